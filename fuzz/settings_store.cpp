// The settings file on disk: several keys are written, and each reads as it was written last.

#include "storage/settings_store.h"

#include "fuzz.h"
#include "obvious_profile.h"
#include "text/codepage.h"

namespace {

using namespace kvrnstep;

constexpr std::u16string_view kKeys[] = {u"Display", u"display", u"Prefix",        u"Suffix",
                                         u"Option0", u"",        u"Listwright_LT", u"a=b"};

/// As the profile functions get it.
std::string argument(const std::u16string& text) {
  return text::toBytes(text.substr(0, text.find(u'\0')));
}

bool isHigh(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool isLow(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Up to its first NUL, and as long as a value that is read can be.
std::u16string expectedText(const std::string& value) {
  std::u16string text = text::fromBytes(value.substr(0, value.find('\0')));
  if (text.size() <= modSecns::kLongestValue) return text;
  const std::size_t length = modSecns::kLongestValue;
  const bool withinPair = isHigh(text[length - 1]) && isLow(text[length]);
  return text.substr(0, withinPair ? length - 1 : length);
}

class Session {
 public:
  Session(FuzzedDataProvider& input, std::u16string file)
      : input_(input), file_(std::move(file)), judge_(input.ConsumeRandomLengthString(256)) {
    fuzz::writeBytes(file_, judge_.bytes());
  }

  void step() {
    const std::u16string section = input_.ConsumeBool() ? u"Listwright" : fuzz::anyText(input_, 4);
    const std::u16string key(input_.PickValueInArray(kKeys));
    if (input_.ConsumeBool()) write(section, key);
    read(section, key);
  }

 private:
  void write(const std::u16string& section, const std::u16string& key) {
    const std::u16string value = fuzz::anyText(input_, 300);
    modSecns::WriteIniKey(section, key, value, file_);
    judge_.set(argument(section), argument(key), argument(value));
    fuzz::check(fuzz::readBytes(file_) == judge_.bytes(), "the key changes, and no other byte");
  }

  void read(const std::u16string& section, const std::u16string& key) {
    const std::u16string fallback = fuzz::anyText(input_, 8);
    const auto value = judge_.value(argument(section), argument(key));
    fuzz::check(modSecns::ReadIniKey(section, key, fallback, file_) ==
                    expectedText(value.value_or(argument(fallback))),
                "a key has the value that its line gives");
  }

  FuzzedDataProvider& input_;
  std::u16string file_;
  fuzz::ObviousProfile judge_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fuzz::ScratchFolder folder;
  FuzzedDataProvider input(data, size);
  Session session(input, folder.file("steps.ini"));
  for (int steps = 0; steps < 6; ++steps) session.step();
  return 0;
}
