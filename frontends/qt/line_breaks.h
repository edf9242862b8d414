#pragma once

#include <QString>
#include <cstddef>
#include <string>
#include <string_view>

/// Lines end with CR LF in a control and with LF in a widget and on the clipboard, so places in the
/// text differ too.
namespace kvrnstep::qt {

/// CR LF, a lone CR, a lone LF and a paragraph separator all become LF.
QString widgetLines(std::u16string_view text);
/// Every line break becomes CR LF.
std::u16string controlLines(const QString& text);
/// The control's text with what has been edited in the widget. Line breaks that were not edited
/// stay as they are.
std::u16string withEdit(std::u16string_view text, const QString& edited);

/// The place in widgetLines(text) of a place in `text`, and back.
int widgetPlace(std::u16string_view text, std::size_t place);
std::size_t controlPlace(std::u16string_view text, int place);

}  // namespace kvrnstep::qt
