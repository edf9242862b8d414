#pragma once

#include <string>
#include <vector>

#include "dialogs/frm_listwright.h"
#include "forms/window.h"
#include "temporary_folder.h"

/// What there is to be seen of the plug-in, for programs that take pictures of it, whatever toolkit
/// draws.
namespace kvrnstep::pictures {

/// A folder with a few files of each kind, for windows that have something to show. It goes with
/// the object.
class Folder {
 public:
  Folder();

  [[nodiscard]] std::u16string path() const { return parent_("Steps"); }

 private:
  tests::TemporaryFolder parent_;
};

/// What a user does before the picture of what opens last is taken.
struct Scene {
  std::string name;
  void (*prepare)(forms::Window& window);
};

/// All windows, their layouts, and what the plug-in draws besides.
std::vector<Scene> scenes();

/// A click, and a list that fills the dialog.
void click(forms::Window& window, std::string_view name, int index);
void writeList(forms::Window& window);

/// A host whose colours are the system's.
plugin::HostContext hostOf(const Folder& folder);

}  // namespace kvrnstep::pictures
