// The bytes of settings files: a key reads as it was written, and no other byte changes.

#include "platform/profile.h"

#include <array>

#include "fuzz.h"
#include "obvious_profile.h"

namespace {

using namespace kvrnstep;

/// Short names of few kinds, so that they are found in the file again and again.
std::string anyName(FuzzedDataProvider& input) {
  static const std::array<std::string, 9> kNames{"Sec",    "sEC", "Key",  "KEY", "",
                                                 " Key\t", "A]",  "[Key", ";"};
  const auto name = input.ConsumeIntegralInRange<std::size_t>(0, kNames.size());
  return name < kNames.size() ? kNames[name] : input.ConsumeRandomLengthString(8);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const std::string section = anyName(input);
  const std::string key = anyName(input);
  const std::string otherKey = anyName(input);
  const std::string value = input.ConsumeRandomLengthString(32);
  const std::string bytes = input.ConsumeRemainingBytesAsString();

  fuzz::ObviousProfile judge(bytes);
  const auto expected = judge.value(section, key);
  const auto read = platform::profileValue(bytes, section, key);
  fuzz::check(read.has_value() == expected.has_value(), "a key is there or not");
  fuzz::check(!read || *read == *expected, "a key has the value that its line gives");

  const std::string written = platform::withProfileValue(bytes, section, key, value);
  judge.set(section, key, value);
  fuzz::check(written == judge.bytes(), "the key changes, and no other byte");
  if (!platform::isProfileName(section, key)) return 0;

  const auto again = platform::profileValue(written, section, key);
  fuzz::check(again && *again == fuzz::ObviousProfile::readable(value), "a value comes back");
  const auto other = platform::profileValue(written, section, otherKey);
  fuzz::check(other.has_value() == judge.value(section, otherKey).has_value(), "others stay there");
  fuzz::check(platform::withProfileValue(written, section, key, value).size() >= written.size() ||
                  value.find_first_of("\r\n") != std::string::npos,
              "writing a value again loses nothing");
  return 0;
}
