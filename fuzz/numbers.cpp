// Numbers in texts, against the C library in its own locale.

#include "text/numbers.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "fuzz.h"

namespace {

using namespace kvrnstep;

/// The characters that numbers are made of, and a few that end them.
constexpr std::u16string_view kCharacters = u"0123456789.+-eE \txX,nif\u0660\u2212";

std::u16string numberLikeText(std::string_view bytes) {
  std::u16string text;
  for (const char byte : bytes) {
    text += kCharacters[static_cast<unsigned char>(byte) % kCharacters.size()];
  }
  return text;
}

std::string asciiPrefix(std::u16string_view text, bool blanksAnywhere) {
  std::string ascii;
  for (const char16_t c : text) {
    if (blanksAnywhere && (c == u' ' || c == u'\t')) continue;
    // strtod takes hexadecimal numbers, infinity and what is no number besides.
    if (c > 127 || std::strchr("0123456789.+-eE", static_cast<char>(c)) == nullptr || c == 0) break;
    ascii += static_cast<char>(c);
  }
  return ascii;
}

void checkText(const std::u16string& text) {
  fuzz::check(text::leadingNumber(text) == std::strtod(asciiPrefix(text, true).c_str(), nullptr),
              "a text begins with the number that the C library reads");

  const auto first = text.find_first_not_of(u' ');
  const auto trimmed = first == std::u16string::npos
                           ? std::u16string()
                           : text.substr(first, text.find_last_not_of(u' ') - first + 1);
  const std::string ascii = asciiPrefix(trimmed, false);
  char* end = nullptr;
  const double whole = std::strtod(ascii.c_str(), &end);
  const bool isNumber = !ascii.empty() && ascii.size() == trimmed.size() &&
                        end == ascii.c_str() + ascii.size() && std::isfinite(whole);
  const auto read = text::wholeTextNumber(text);
  fuzz::check(read.has_value() == isNumber, "a text is a number or none");
  fuzz::check(!read || *read == whole, "a text is the number that the C library reads");
}

template <class Whole>
void checkRounding(double number, std::optional<Whole> rounded) {
  const double expected = std::nearbyint(number);
  const bool fits = expected >= std::numeric_limits<Whole>::min() &&
                    expected <= std::numeric_limits<Whole>::max();
  fuzz::check(rounded.has_value() == fits, "a number fits or not");
  fuzz::check(!rounded || *rounded == expected, "halves go to the even neighbour");
}

void checkNumber(double number) {
  checkRounding(number, text::roundToInt16(number));
  checkRounding(number, text::roundToInt32(number));
}

void checkDecimal(float number) {
  std::array<char, 64> expected{};
  std::snprintf(expected.data(), expected.size(), "%.7g", static_cast<double>(number));
  const std::u16string digits = text::decimal(number);
  const std::string ascii(digits.begin(), digits.end());
  fuzz::check(number == 0 ? ascii == "0" : ascii == expected.data(), "seven digits are written");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  checkText(numberLikeText(fuzz::bytesOf(data, size)));
  FuzzedDataProvider input(data, size);
  const auto bits = input.ConsumeIntegral<std::uint64_t>();
  double number = 0;
  std::memcpy(&number, &bits, sizeof number);
  checkNumber(number);
  // Around the halves, and around the ends of the types.
  checkNumber(input.ConsumeIntegral<std::int32_t>() / 2.0);
  checkNumber(input.ConsumeIntegral<std::int16_t>() + input.ConsumeIntegral<std::int8_t>() / 4.0);
  const auto floatBits = input.ConsumeIntegral<std::uint32_t>();
  float single = 0;
  std::memcpy(&single, &floatBits, sizeof single);
  if (!std::isnan(single)) checkDecimal(single);
  checkText(fuzz::anyText(input, 32));
  return 0;
}
