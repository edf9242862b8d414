#include "plugin/c_icon.h"

#include "platform/files.h"
#include "platform/module.h"
#include "text/paths.h"

namespace kvrnstep::plugin {

std::u16string cIcon::RequestProgramIcon(std::int16_t piIndex101to103) {
  // The module holds other icons, too, which are those of its windows.
  if (piIndex101to103 < 101 || piIndex101to103 > 103) return {};
  const auto icon = platform::iconFile(piIndex101to103);
  if (!icon) return {};
  const std::u16string path = text::inFolder(platform::moduleFolder(), u"Stepicon.ico");
  return platform::replaceFile(path, *icon) ? path : std::u16string();
}

}  // namespace kvrnstep::plugin
