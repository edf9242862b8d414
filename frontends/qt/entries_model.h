#pragma once

#include <QAbstractListModel>
#include <string>
#include <vector>

namespace kvrnstep::qt {

/// The entries of a control as its widget shows them: as they were when they were last taken over.
class EntriesModel : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  /// Takes the texts over, if they are not what is shown already.
  void show(const std::vector<std::u16string>& texts);
  [[nodiscard]] const std::vector<std::u16string>& texts() const { return texts_; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  std::vector<std::u16string> texts_;
};

}  // namespace kvrnstep::qt
