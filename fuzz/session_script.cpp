#include "session_script.h"

#include <algorithm>
#include <span>

namespace kvrnstep::fuzz {

namespace {

/// What stands behind a "%" in a pattern is filled in: t a text, d a short number, n any number,
/// p a number of twips, f a file name.
constexpr std::string_view kMain[] = {"click cmdCIC(%d)",
                                      "click chkLWO(%d)",
                                      "click optNA(%d)",
                                      "up updBStart",
                                      "down updBStart",
                                      "up updBEndAt",
                                      "down updBEndAt",
                                      "up updLS",
                                      "down updLS",
                                      "type txtBStart %n",
                                      "type txtBEndAt %n",
                                      "type txtLS %n",
                                      "clear txtBStart",
                                      "clear txtBEndAt",
                                      "clear txtLS",
                                      "set txtBStart.text %n",
                                      "set txtBEndAt.text %n",
                                      "set txtLS.text %n",
                                      "set updBStart.value %n",
                                      "set updBEndAt.value %n",
                                      "set updLS.value %n",
                                      "rightclick updBStart",
                                      "rightclick updBEndAt",
                                      "rightclick updLS",
                                      "type cboPreSuf(0) %t",
                                      "type cboPreSuf(1) %t",
                                      "set cboPreSuf(0).text %t",
                                      "choose cboPreSuf(0) %d",
                                      "choose cboPreSuf(1) %d",
                                      "set cboPreSuf(1).text %t",
                                      "clear cboPreSuf(0)",
                                      "type txtBegin %t",
                                      "type txtEnd %t",
                                      "set txtBegin.text %t",
                                      "set txtEnd.text %t",
                                      "menu mnuFiles(0)",
                                      "menu mnuFiles(1)",
                                      "menu mnuFiles(3)",
                                      "menu mnuOptions(0)",
                                      "menu mnuOptions(1)",
                                      "menu mnuOptions(2)",
                                      "menu mnuOptions(4)",
                                      "menu mnuOptions(5)",
                                      "menu mnuOptions(4)",
                                      "menu mnuOptions(5)",
                                      "press Ctrl+O",
                                      "press Ctrl+S",
                                      "click lstStepf %d",
                                      "dblclick lstStepf %d",
                                      "rightclick lstStepf %d",
                                      "menu mnuHidd(0)",
                                      "menu mnuHidd(2)",
                                      "escape",
                                      "set chkLWO(%d).value %d",
                                      "set optNA(%d).value True",
                                      "set lstStepf.index %d",
                                      "select txtBegin %d %d",
                                      "answer %f",
                                      "answer %n",
                                      "answer",
                                      "move %p %p",
                                      "minimize",
                                      "restore",
                                      "menu mnuEdits(%d)",
                                      "click lblD(%d)",
                                      "drag lblD(0) txtBegin"};
constexpr std::string_view kEnd[] = {"close",           "press Ctrl+Q",    "click cmdCIC(0)",
                                     "click cmdCIC(1)", "click cmdCIC(2)", "menu mnuActions(0)",
                                     "menu mnuFiles(5)"};
constexpr std::string_view kStored[] = {"type txtHold(%d) %t",
                                        "set txtHold(%d).text %t",
                                        "clear txtHold(%d)",
                                        "click imgBE(%d)",
                                        "type txtHold(1%d) %t",
                                        "click imgBE(1%d)",
                                        "resize %p %p",
                                        "move %p %p",
                                        "select txtHold(%d) 0 %d",
                                        "minimize",
                                        "restore",
                                        "click cmdOK",
                                        "close"};
constexpr std::string_view kAffixes[] = {"type txtAdd %t",
                                         "set txtAdd.text %t",
                                         "clear txtAdd",
                                         "click cmdAdd",
                                         "click cmdAdd",
                                         "click cmdSort",
                                         "click cmdEdO",
                                         "click cmdDelete",
                                         "click cmdPatU",
                                         "click cmdPatD",
                                         "click cmdCases(0)",
                                         "click cmdCases(1)",
                                         "click cmdCases(2)",
                                         "click lstEdit %d",
                                         "dblclick lstEdit %d",
                                         "set lstEdit.index %d",
                                         "drag lblDrag(0) txtAdd",
                                         "drag lblDrag(2) txtAdd",
                                         "drag lstEdit txtAdd",
                                         "select txtAdd %d %d",
                                         "set lstEdit.topindex %d",
                                         "move %p %p",
                                         "minimize",
                                         "restore",
                                         "click cmdOK",
                                         "click cmdCancel",
                                         "close"};
constexpr std::string_view kOpenStored[] = {"menu mnuEdits(3)", "menu mnuEdits(4)", "click lblD(4)",
                                            "click lblD(5)"};
constexpr std::string_view kOpenAffixes[] = {"menu mnuEdits(0)", "menu mnuEdits(1)",
                                             "click lblD(0)", "rightclick lblD(1)"};
constexpr std::string_view kBefore[] = {
    "arg iBuildStep %d",
    "arg BuMenuMode True",
    "arg bytSpcCount %d",
    "arg bytSpcCount 255",
    "arg i_EditorSize %d",
    "arg s_EditorFont %t",
    "arg SEC_APP_NAME %t",
    "arg bolIsSoundAvailable True",
    "#file steps.ini "
    "\"[Listwright]\\r\\nDisplay=FilesPreview\\r\\nUseDefault=1\\r\\nStart=7\\r\\n\"",
    "#file steps.ini "
    "\"[Listwright]\\r\\nDisplay=Preview\\r\\nStepBE_HT=%n\\r\\nListwright_LT=%n\\r\\n\"",
    "#file Prefix_Step.dat \"a\\r\\nb\\r\\n{STEP_R}\\r\\n\"",
    "#file Suffix_Step.dat %t",
    "#file beginning_step.dat %t",
    "#file ending_step.dat \"\\\"one\\\"\\r\\n\\\"two\\\"\\r\\n\"",
    "#file begin_my_step.dat %t",
    "#file a.step \"2,\\\"B\\\",\\\"E\\\",\\\"(\\\",\\\")\\\",1,3,%n,1,1,1,1,1,1,1\\r\\n\"",
    "#file b.STEP %t",
    "#folder Prefix_Step.dat",
    "#folder a.step",
    "#folder steps.ini"};
constexpr std::string_view kTexts[] = {"\"\"",
                                       "\".\"",
                                       "\"{STEP_#}\"",
                                       "\"{STEP_L}{STEP_R}\"",
                                       "\"a b\"",
                                       "\") \"",
                                       "\"<WXEQUOTE>\\\"\"",
                                       "\"\\r\\n\"",
                                       "\"two\\r\\nlines\"",
                                       "\"\\u00e9\\u20ac\"",
                                       "\"\\ud83d\\ude00\"",
                                       "\"\\ud83d\"",
                                       "\"x\\b\\b\"",
                                       "\"{{STEP_L}TEP_R}\"",
                                       "\"\\t\"",
                                       "\"A,B;C\"",
                                       "\"[Listwright]\"",
                                       "\"Key=1\"",
                                       "\"/\\\\:*?\"",
                                       "\"\\u0000\"",
                                       "\"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\""};
constexpr std::string_view kNumbers[] = {"0",       "1",       "2",     "9",   "10",         "27",
                                         "50",      "99",      "100",   "999", "\" 7\"",     "\"\"",
                                         "-5",      "12.5",    "32767", "1e9", "4294967296", "abc",
                                         "\"1 2\"", "\"\\b\"", "3x",    "400"};
constexpr std::string_view kTwips[] = {"0",     "1",   "-300",  "4000", "4335", "8000",
                                       "12000", "1e6", "300.5", "7",    "99999"};
constexpr std::string_view kFiles[] = {
    "a.step",           "b.step",           "b.STEP",    "new",
    "list.txt",         "wrong.doc",        "\"\"",      ".step",
    "x.y.step",         "Prefix_Step.dat",  "steps.ini", "\"a b.step\"",
    "\"\\u00e9.step\"", "\"\\ud83d.step\"", ".",         ".."};

std::size_t below(Random& random, std::size_t limit) {
  return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
}

std::string_view pick(std::span<const std::string_view> pool, Random& random) {
  return pool[below(random, pool.size())];
}

std::string filled(std::string_view pattern, Random& random) {
  std::string line;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    if (pattern[at] != '%') {
      line += pattern[at];
      continue;
    }
    switch (pattern[++at]) {
      case 't':
        line += pick(kTexts, random);
        break;
      case 'd':
        line += std::to_string(below(random, 6));
        break;
      case 'n':
        line += pick(kNumbers, random);
        break;
      case 'p':
        line += pick(kTwips, random);
        break;
      default:
        line += pick(kFiles, random);
    }
  }
  return line;
}

void append(Lines& lines, std::span<const std::string_view> pool, std::size_t count,
            Random& random) {
  for (; count > 0; --count) lines.push_back(filled(pick(pool, random), random));
}

/// A few lines that belong together.
Lines block(Random& random) {
  Lines lines;
  switch (below(random, 8)) {
    case 0:
      append(lines, kOpenStored, 1, random);
      append(lines, kStored, 1 + below(random, 6), random);
      break;
    case 1:
    case 2:
      append(lines, kOpenAffixes, 1, random);
      append(lines, kAffixes, 1 + below(random, 10), random);
      break;
    case 3:
      append(lines, kEnd, 1, random);
      append(lines, kBefore, below(random, 3), random);
      lines.emplace_back("call");
      break;
    default:
      append(lines, kMain, 1 + below(random, 4), random);
  }
  return lines;
}

Lines newScript(Random& random) {
  Lines lines;
  append(lines, kBefore, below(random, 5), random);
  lines.emplace_back("call");
  append(lines, kMain, 4, random);
  return lines;
}

std::ptrdiff_t place(const Lines& lines, Random& random) {
  return static_cast<std::ptrdiff_t>(below(random, lines.size() + 1));
}

}  // namespace

Lines linesOf(std::string_view script) {
  Lines lines;
  while (!script.empty()) {
    const auto length = std::min(script.find('\n'), script.size());
    if (length > 0) lines.emplace_back(script.substr(0, length));
    script.remove_prefix(std::min(length + 1, script.size()));
  }
  return lines;
}

std::string scriptOf(const Lines& lines, std::size_t mostBytes) {
  std::string script;
  for (const std::string& line : lines) {
    if (script.size() + line.size() + 1 > mostBytes) break;
    script += line + '\n';
  }
  return script;
}

Lines changed(Lines script, Random& random) {
  if (std::ranges::find(script, "call") == script.end()) return newScript(random);
  const auto at = place(script, random);
  const auto last = std::min(at + 1 + static_cast<std::ptrdiff_t>(below(random, 4)),
                             static_cast<std::ptrdiff_t>(script.size()));
  switch (below(random, 6)) {
    case 0:
      script.erase(script.begin() + at, script.begin() + std::max(at, last));
      break;
    case 1: {
      const Lines copied(script.begin() + at, script.begin() + std::max(at, last));
      script.insert(script.begin() + place(script, random), copied.begin(), copied.end());
      break;
    }
    case 2:
      append(script, kMain, 1, random);
      std::swap(script.back(), script[below(random, script.size())]);
      break;
    case 3: {
      Lines before;
      append(before, kBefore, 1, random);
      script.insert(std::ranges::find(script, "call"), before.front());
      break;
    }
    default: {
      const Lines added = block(random);
      script.insert(script.begin() + at, added.begin(), added.end());
    }
  }
  return script;
}

Lines crossed(const Lines& one, const Lines& other, Random& random) {
  Lines lines(one.begin(), one.begin() + place(one, random));
  lines.insert(lines.end(), other.begin() + place(other, random), other.end());
  return lines;
}

}  // namespace kvrnstep::fuzz
