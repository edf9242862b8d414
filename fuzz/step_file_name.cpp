// Names of step files: whatever the setup holds, the name can stand in a folder.

#include "stepfiles/step_file_name.h"

#include "fuzz.h"
#include "stepfiles/step_record.h"
#include "text/codepage.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kvrnstep;
  FuzzedDataProvider input(data, size);
  auto settings = fuzz::anySettings(input, 200);
  // Now and then a text that is far too long for a name.
  constexpr int kRarely = 100;
  constexpr std::size_t kFarTooLong = 1U << 20U;
  if (input.ConsumeIntegralInRange(0, kRarely) == kRarely) {
    settings.Prefix.append(kFarTooLong, input.ConsumeIntegral<char16_t>());
  }
  const std::u16string name = stepfiles::BuildStepFileName(settings);
  fuzz::check(name.find_first_of(u"\"?`!.'<>;:\\/\r\n\t ") == std::u16string::npos,
              "a name holds nothing that a file name may not hold");

  const std::u16string fitting = stepfiles::fittingFileName(name);
  const std::size_t room = 255 - stepfiles::kStepExtension.size();
  const std::string bytes = text::toUtf8(fitting);
  fuzz::check(bytes.size() <= room, "a name fits with its extension");
  fuzz::check(name.starts_with(fitting), "a name is only cut");
  if (fitting == name) return 0;

  const std::u16string_view rest = std::u16string_view(name).substr(fitting.size());
  fuzz::check(bytes.size() + 4 > room, "no more is cut than need be");
  const bool withinPair = !fitting.empty() && fitting.back() >= 0xD800 &&
                          fitting.back() <= 0xDBFF && rest.front() >= 0xDC00 &&
                          rest.front() <= 0xDFFF;
  fuzz::check(!withinPair, "no character is torn apart");
  return 0;
}
