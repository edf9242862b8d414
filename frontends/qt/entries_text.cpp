#include "entries_text.h"

#include "text.h"

namespace kvrnstep::qt {

namespace {

QStringList shownTexts(const QAbstractItemModel& shown) {
  QStringList texts;
  for (int row = 0; row < shown.rowCount(); ++row) {
    texts << shown.data(shown.index(row, 0)).toString();
  }
  return texts;
}

}  // namespace

QStringList entryTexts(const forms::Entries& entries) {
  QStringList texts;
  for (const std::u16string& entry : entries.all()) texts << toQt(entry);
  return texts;
}

bool sameEntries(const QAbstractItemModel& shown, const forms::Entries& entries) {
  return shownTexts(shown) == entryTexts(entries);
}

std::u16string joinedEntries(const QAbstractItemModel& shown) {
  return fromQt(shownTexts(shown).join(' '));
}

}  // namespace kvrnstep::qt
