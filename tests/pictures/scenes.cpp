#include "scenes.h"

#include <random>

#include "forms/user_actions.h"
#include "storage/text_file.h"

namespace kvrnstep::pictures {

namespace {

std::filesystem::path newFolder() {
  const auto name = "listwright-pictures-" + std::to_string(std::random_device{}());
  // The last part can be seen in the box that asks for a file.
  auto folder = std::filesystem::temp_directory_path() / name / "Steps";
  std::filesystem::create_directories(folder);
  return folder;
}

}  // namespace

Folder::Folder() : folder_(newFolder()) {
  for (const char16_t* name : {u"Numbered list", u"Chapters in Roman numerals", u"Questions"}) {
    write(std::u16string(name) + u".step", u"");
  }
  write(u"Prefix_Step.dat", u"Step\r\nChapter\r\nNo. {STEP_R}\r\n§\r\n");
  write(u"Suffix_Step.dat", u".\r\n)\r\n:\r\n");
  write(u"beginning_step.dat",
        u"\"What to do when the alarm rings:\"\r\n\"\"\r\n\"Agenda\r\n======\"\r\n");
}

Folder::~Folder() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_.parent_path(), ignored);
}

void Folder::write(const std::u16string& name, const std::u16string& text) {
  storage::WriteTextFile((folder_ / name).u16string(), text);
}

void click(forms::Window& window, std::string_view name, int index) {
  forms::userClicked(*window.find(name, index));
}

void writeList(forms::Window& window) {
  const auto text = [&window](const char* name, int index, const char16_t* value) {
    static_cast<forms::TextControl*>(window.find(name, index))->setText(value);
  };
  click(window, "optNA", 2);
  text("cboPreSuf", 0, u"Step");
  text("cboPreSuf", 1, u")");
  text("txtBEndAt", -1, u"8");
  text("txtBegin", -1, u"What to do when the alarm rings:\r\n");
}

std::vector<Scene> scenes() {
  using forms::Window;
  return {
      {"compact", [](Window& /*window*/) {}},
      {"preview",
       [](Window& window) {
         writeList(window);
         click(window, "mnuOptions", 5);
       }},
      {"files", [](Window& window) { click(window, "mnuOptions", 4); }},
      {"files-and-preview",
       [](Window& window) {
         writeList(window);
         click(window, "mnuOptions", 4);
         click(window, "mnuOptions", 5);
         forms::userClickedEntry(static_cast<forms::ListBox&>(*window.find("lstStepf", -1)), 1);
       }},
      {"prefixes", [](Window& window) { click(window, "mnuEdits", 0); }},
      {"beginnings", [](Window& window) { click(window, "mnuEdits", 3); }},
      {"question",
       [](Window& window) {
         forms::userReleasedMouse(*window.find("updBEndAt", -1), forms::MouseButton::Right);
       }},
      {"step-file-menu",
       [](Window& window) {
         click(window, "mnuOptions", 4);
         auto& list = static_cast<forms::ListBox&>(*window.find("lstStepf", -1));
         forms::userClickedEntry(list, 0);
         forms::userReleasedMouse(list, forms::MouseButton::Right);
       }},
  };
}

plugin::HostContext hostOf(const Folder& folder) {
  plugin::HostContext host;
  host.SEC_APP_NAME = u"Listwright";
  host.sPthStepFolder = folder.path();
  host.s_IniPathAndName = folder.path() + u"/steps.ini";
  host.s_EditorFont = u"Courier New";
  host.i_EditorSize = 9;
  host.bytSpcCount = 4;
  host.l_EditorBColor = static_cast<std::int32_t>(0x80000005);
  host.l_EditorFColor = static_cast<std::int32_t>(0x80000008);
  return host;
}

}  // namespace kvrnstep::pictures
