#include "session_rules.h"

#include <array>
#include <string>

#include "fuzz.h"
#include "text/numbers.h"

namespace kvrnstep::fuzz {

namespace {

/// Reads properties of the topmost window.
class Reader {
 public:
  explicit Reader(driving::Stage& stage) : stage_(stage) {}

  [[nodiscard]] driving::Value value(const std::string& target) const {
    driving::Value value;
    std::string reason;
    const auto outcome = stage_.read(target, value, reason);
    check(outcome == driving::Outcome::Done, "a property can be read");
    return value;
  }
  [[nodiscard]] bool on(const std::string& target) const { return std::get<bool>(value(target)); }
  [[nodiscard]] double number(const std::string& target) const {
    return std::get<double>(value(target));
  }
  [[nodiscard]] double numberIn(const std::string& box) const {
    return text::leadingNumber(text(box));
  }
  [[nodiscard]] std::u16string text(const std::string& control) const {
    return std::get<std::u16string>(value(control + ".text"));
  }
  [[nodiscard]] bool enabled(const std::string& control) const { return on(control + ".enabled"); }
  [[nodiscard]] bool stepsValid() const {
    return numberIn("txtBStart") > 0 && numberIn("txtBEndAt") > 0;
  }

 private:
  driving::Stage& stage_;
};

std::string element(std::string_view name, int index) {
  return std::string(name) + "(" + std::to_string(index) + ")";
}

void checkNumbers(const Reader& read) {
  for (const std::string spinner : {"updBStart", "updBEndAt"}) {
    const double value = read.number(spinner + ".value");
    check(value >= 1 && value <= 99, "a step lies between 1 and 99");
  }
  const double spacing = read.number("updLS.value");
  check(spacing >= 0 && spacing <= 9, "line spacing lies between 0 and 9");
  // While a box holds no number its spinner may be moved past the other one; the next number
  // that is typed puts them in order.
  if (!read.stepsValid()) return;
  check(read.number("updBEndAt.value") >= read.number("updBStart.value"),
        "the end is not below the start");
}

void checkListingType(const Reader& read) {
  for (int type = 0; type < 4; ++type) {
    if (!read.on(element("optNA", type) + ".value")) continue;
    check(read.enabled("chkLWO(1)") == (type == 1 || type == 2), "upper case is for letters");
    check(read.enabled("chkLWO(6)") == (type == 0), "ordinals are for numbers");
    for (int picture = 0; picture < 4; ++picture) {
      check(read.on(element("imgBull", picture) + ".visible") == (picture == type),
            "the picture is that of the type");
    }
  }
  check(read.enabled("chkLWO(0)") == (read.number("chkLWO(2).value") != 0),
        "indented spacing needs indentation");
}

void checkLayout(const Reader& read) {
  const bool files = read.on("mnuOptions(4).checked");
  const bool preview = read.on("mnuOptions(5).checked");
  check(read.number("frmListwright.width") == (preview ? 8220 : 4170), "the width is the layout's");
  check(read.number("frmListwright.height") == (files ? 6855 : 5280), "and so is the height");
  check(read.number("fraStep.left") == (preview ? 275 : 2), "the frame lies beside the preview");
  check((read.number("txtPreview.left") > 0) == preview || files, "the preview shows when wanted");
  for (int button = 3; button <= 5; ++button) {
    const std::string name = element("cmdCIC", button);
    if (files || preview) check(read.on(name + ".visible"), "panels have their buttons");
    if (!files && !preview) check(!read.enabled(name), "without panels there is nothing to save");
    if (preview) {
      check(read.enabled(name) == read.enabled("cmdCIC(0)"), "the preview's buttons follow Insert");
    }
  }
}

void checkActions(const Reader& read) {
  static const std::array<std::string, 5> kFollowers{"cmdCIC(2)", "mnuActions(0)", "mnuActions(2)",
                                                     "mnuFiles(1)", "mnuFiles(3)"};
  const bool insert = read.enabled("cmdCIC(0)");
  for (const std::string& follower : kFollowers) {
    check(read.enabled(follower) == insert, "all actions are enabled, or none");
  }
  check(read.enabled("cmdCIC(1)"), "Cancel is always to be had");
}

}  // namespace

void checkMainDialog(driving::Stage& stage, const dialogs::frmListwright& dialog) {
  const Reader read(stage);
  check(dialog.LwOutputString().empty(), "an idle dialog holds no list");
  checkNumbers(read);
  checkListingType(read);
  checkLayout(read);
  checkActions(read);
}

void checkAfterTyping(driving::Stage& stage, std::string_view box) {
  const Reader read(stage);
  const bool insert = read.enabled("cmdCIC(0)");
  const bool panelShown = read.on("mnuOptions(4).checked") || read.on("mnuOptions(5).checked");
  if (box == "txtBStart" || box == "txtBEndAt") {
    check(insert == read.stepsValid(), "Insert needs a start and an end");
  } else if (box == "txtLS") {
    // A refreshed preview writes the end anew, which is judged like a typed one.
    const bool spacing = read.numberIn("txtLS") >= 0;
    check(insert == (panelShown ? read.stepsValid() : spacing), "Insert needs a line spacing");
  }
}

void checkStorageEditor(driving::Stage& stage) {
  const Reader read(stage);
  for (int slot = 0; slot < 15; ++slot) {
    check(read.enabled(element("imgBE", slot)) == !read.text(element("txtHold", slot)).empty(),
          "only a text can be applied");
  }
  check(read.number("frmStepBE.width") >= 8000, "the editor is no narrower");
  check(read.number("frmStepBE.height") >= 4335, "the editor is no lower");
}

void checkAffixEditor(driving::Stage& stage) {
  const Reader read(stage);
  const bool selected = read.number("lstEdit.index") >= 0;
  for (const char* button : {"cmdEdO", "cmdDelete", "cmdPatU", "cmdPatD"}) {
    check(read.enabled(button) == selected, "selection buttons need a selected entry");
  }
  check(read.enabled("cmdAdd") == !read.text("txtAdd").empty(), "only a text can be added");
  const bool entries = !std::get<std::u16string>(read.value("lstEdit.items")).empty();
  check(entries || !read.enabled("cmdSort"), "nothing can be sorted in an empty list");
}

}  // namespace kvrnstep::fuzz
