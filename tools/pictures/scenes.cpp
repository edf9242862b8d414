#include "scenes.h"

#include "forms/user_actions.h"

namespace kvrnstep::pictures {

Folder::Folder() {
  // The last part can be seen in the box that asks for a file.
  std::filesystem::create_directory(parent_.path("Steps"));
  const std::pair<std::string, std::string> files[] = {
      {"Numbered list.step", ""},
      {"Chapters in Roman numerals.step", ""},
      {"Questions.step", ""},
      {"Prefix_Step.dat", "Step\r\nChapter\r\nNo. {STEP_R}\r\n\xC2\xA7\r\n"},
      {"Suffix_Step.dat", ".\r\n)\r\n:\r\n"},
      {"beginning_step.dat",
       "\"What to do when the alarm rings:\"\r\n\"\"\r\n\"Agenda\r\n======\"\r\n"},
  };
  for (const auto& [name, bytes] : files) parent_.put("Steps/" + name, bytes);
}

void click(forms::Window& window, std::string_view name, int index) {
  forms::userClicked(*window.find(name, index));
}

void writeList(forms::Window& window) {
  const auto text = [&window](const char* name, int index, const char16_t* value) {
    static_cast<forms::TextControl*>(window.find(name, index))->setText(value);
  };
  click(window, "optNA", 2);
  window.setFocus(*window.find("optNA", 2));
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
      {"message",
       [](Window& window) {
         static_cast<forms::TextControl*>(window.find("txtBEndAt", -1))->setText({});
         click(window, "mnuOptions", 5);
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
