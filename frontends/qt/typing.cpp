#include "typing.h"

#include <QString>
#include <QWidget>
#include <algorithm>

namespace kvrnstep::qt {

bool mayType(forms::TextControl& box, const QKeyEvent& event) {
  // Qt gives the Delete key a character; it types none.
  if (!box.onKeyPress || event.key() == Qt::Key_Delete) return true;
  return mayType(box, event.text());
}

bool mayType(forms::TextControl& box, const QString& characters) {
  return std::ranges::all_of(
      characters, [&](QChar character) { return forms::userTypes(box, character.unicode()); });
}

void releaseComposed(QWidget& widget, forms::TextControl& box) {
  constexpr forms::KeyCode kNoKey = 0;
  // Later, because the input method must have finished before anything else opens.
  const auto release = [&box] {
    forms::userPressedKey(box, kNoKey);
    forms::userReleasedKey(box.window(), kNoKey);
  };
  QMetaObject::invokeMethod(&widget, release, Qt::QueuedConnection);
}

}  // namespace kvrnstep::qt
