#include "typing.h"

#include <QString>
#include <algorithm>

namespace kvrnstep::qt {

bool mayType(forms::TextControl& box, const QKeyEvent& event) {
  // Qt gives the Delete key a character; it types none.
  if (!box.onKeyPress || event.key() == Qt::Key_Delete) return true;
  return mayType(box, event.text());
}

bool mayType(forms::TextControl& box, const QString& characters) {
  return std::ranges::all_of(
      characters, [&](QChar character) { return forms::userPressedKey(box, character.unicode()); });
}

}  // namespace kvrnstep::qt
