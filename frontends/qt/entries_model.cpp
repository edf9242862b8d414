#include "entries_model.h"

#include "text.h"

namespace kvrnstep::qt {

void EntriesModel::show(const forms::Entries& entries) {
  if (texts_ == entries.all()) return;
  beginResetModel();
  texts_ = entries.all();
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
