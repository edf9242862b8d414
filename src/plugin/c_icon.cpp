#include "plugin/c_icon.h"

#include "platform/files.h"
#include "platform/icons.h"
#include "platform/module.h"

namespace kvrnstep::plugin {

std::u16string cIcon::RequestProgramIcon(std::int16_t piIndex101to103) {
  // The module holds more icons than these: those of its windows.
  if (piIndex101to103 < 101 || piIndex101to103 > 103) return {};
  const auto icon = platform::iconFile(piIndex101to103);
  if (!icon) return {};
  std::u16string path = platform::moduleFolder();
  path += platform::kSeparator;
  path += u"Stepicon.ico";
  return platform::replaceFile(path, *icon) ? path : std::u16string();
}

}  // namespace kvrnstep::plugin
