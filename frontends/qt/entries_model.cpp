#include "entries_model.h"

#include "text.h"

namespace kvrnstep::qt {

void EntriesModel::show(const std::vector<std::u16string>& texts) {
  if (texts_ == texts) return;
  beginResetModel();
  texts_ = texts;
  endResetModel();
}

int EntriesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(texts_.size());
}

QVariant EntriesModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole)) return {};
  return toQt(texts_.at(static_cast<std::size_t>(index.row())));
}

}  // namespace kvrnstep::qt
