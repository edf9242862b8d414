#include "component/late_values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>

#include "component/bstr.h"
#include "variant.h"

namespace kvrnstep::component {
namespace {

using tests::variant;

VARIANT text(std::u16string_view value) {
  return variant(VT_BSTR, newBstr(value));
}

/// Minus 1.1, or 2 to the power of 95, divided by 10 so many times.
VARIANT decimal(WORD places) {
  VARIANT made = variant(VT_DECIMAL, places == 1 ? std::uint64_t{11} : 0);
  made.wReserved1 = static_cast<WORD>(places | (places == 1 ? 0x8000 : 0));
  made.wReserved3 = places == 1 ? 0 : 0x8000;
  return made;
}

// Stand for the failures of a reader among the numbers that it gives.
constexpr double kType = 1e100;
constexpr double kRange = 2e100;

template <class T>
double read(const VARIANT& argument) {
  constexpr T kBefore = 77;
  T value = kBefore;
  const HRESULT result = readValue(argument, value);
  if (result == S_OK) return value;
  EXPECT_EQ(value, kBefore) << "what fails changes nothing";
  return result == DISP_E_TYPEMISMATCH ? kType : result == DISP_E_OVERFLOW ? kRange : 0;
}

TEST(LateValues, AreReadAsWhatAMemberWants) {
  constexpr auto kNone = std::nullopt;
  struct Row {
    VARIANT argument;
    double asLong, asInteger, asByte;
    std::optional<bool> truth;
    std::optional<std::u16string> asText;
  };
  Row rows[] = {
      {variant(VT_NULL, 0), kType, kType, kType, kNone, kNone},
      {variant(VT_ERROR, 5), kType, kType, kType, kNone, kNone},
      {variant(VT_UNKNOWN, nullptr), kType, kType, kType, kNone, kNone},
      {variant(0x2000 | VT_I2, nullptr), kType, kType, kType, kNone, kNone},
      {decimal(1), -1, -1, kRange, true, u"-1.1"},
      {decimal(28), 4, 4, 4, true, u"3.961408"},
      {variant(VT_I1, -128), -128, -128, kRange, true, u"-128"},
      {variant(VT_UI1, 255), 255, 255, 255, true, u"255"},
      {variant(VT_I2, -32768), -32768, -32768, kRange, true, u"-32768"},
      {variant(VT_UI2, 65535), 65535, kRange, kRange, true, u"65535"},
      {variant(VT_I4, 32768), 32768, kRange, kRange, true, u"32768"},
      {variant(VT_UI4, -1), kRange, kRange, kRange, true, u"4294967295"},
      {variant(VT_I8, std::int64_t{1} << 40), kRange, kRange, kRange, true, u"1099511627776"},
      {variant(VT_UI8, std::int64_t{-1}), kRange, kRange, kRange, true, u"9223372036854775807"},
      {variant(VT_INT, -5), -5, -5, kRange, true, u"-5"},
      {variant(VT_UINT, 0), 0, 0, 0, false, u"0"},
      {variant(VT_R4, 2.5F), 2, 2, 2, true, u"2.5"},
      {variant(VT_R8, -0.5), 0, 0, 0, true, u"-0.5"},
      {variant(VT_R8, 255.5), 256, 256, kRange, true, u"255.5"},
      {variant(VT_R8, 1e300), kRange, kRange, kRange, true, u"inf"},
      {variant(VT_R8, std::nan("")), kRange, kRange, kRange, true, u"nan"},
      {variant(VT_DATE, 1.5), 2, 2, 2, true, u"1.5"},
      {variant(VT_CY, std::int64_t{125'000}), 12, 12, 12, true, u"12.5"},
      {variant(VT_BOOL, VARIANT_TRUE), -1, -1, 255, true, u"True"},
      {variant(VT_BOOL, VARIANT_FALSE), 0, 0, 0, false, u"False"},
      {text(u" 2.5 "), 2, 2, 2, true, u" 2.5 "},
      {text(u"0"), 0, 0, 0, false, u"0"},
      {text(u"70000"), 70000, kRange, kRange, true, u"70000"},
      {text(u"1e300"), kRange, kRange, kRange, true, u"1e300"},
      {text(u"tRUE"), kType, kType, kType, true, u"tRUE"},
      {text(u"False"), kType, kType, kType, false, u"False"},
      {text(u"word"), kType, kType, kType, kNone, u"word"},
      {text(u""), kType, kType, kType, kNone, u""},
      {variant(VT_EMPTY, 0), 0, 0, 0, false, u""},
  };
  for (Row& row : rows) {
    // Itself, by reference to the variant, by reference to the value.
    VARIANT value = variant(static_cast<VARTYPE>(VT_BYREF | row.argument.vt), &row.argument.llVal);
    if (row.argument.vt == VT_DECIMAL) value.byref = &row.argument;
    if (row.argument.vt == VT_EMPTY) value = row.argument;
    for (const VARIANT& argument :
         {row.argument, variant(VT_BYREF | VT_VARIANT, &row.argument), value}) {
      SCOPED_TRACE(&row - rows);
      EXPECT_EQ(read<std::int32_t>(argument), row.asLong);
      EXPECT_EQ(read<std::int16_t>(argument), row.asInteger);
      EXPECT_EQ(read<std::uint8_t>(argument), row.asByte);
      bool truth = !row.truth.value_or(true);
      EXPECT_EQ(readValue(argument, truth), row.truth ? S_OK : DISP_E_TYPEMISMATCH);
      EXPECT_EQ(truth, row.truth.value_or(false));
      std::u16string asText = u"before";
      EXPECT_EQ(readValue(argument, asText), row.asText ? S_OK : DISP_E_TYPEMISMATCH);
      EXPECT_EQ(asText, row.asText.value_or(u"before"));
    }
    VariantClear(&row.argument);
  }
}

}  // namespace
}  // namespace kvrnstep::component
