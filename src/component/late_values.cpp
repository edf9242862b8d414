#include "component/late_values.h"

#include <cmath>
#include <limits>
#include <optional>
#include <utility>
#include <variant>

#include "component/bstr.h"
#include "text/letter_case.h"
#include "text/numbers.h"

namespace kvrnstep::component {

namespace {

struct Nothing {};
/// The value of a variant; monostate for values that no member can use, such as Null and arrays.
using Value = std::variant<std::monostate, Nothing, bool, std::int64_t, double, std::u16string>;

/// The value in the variant, or the one that the variant points to.
template <class T>
T held(const VARIANT& variant, T own) {
  return (variant.vt & VT_BYREF) != 0 ? *static_cast<const T*>(variant.byref) : own;
}

/// A number that is too large becomes the largest, which no parameter can hold either.
std::int64_t signedOf(std::uint64_t number) {
  constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  return static_cast<std::int64_t>(number < kLargest ? number : kLargest);
}

/// A whole number of 96 bits, its sign, and how often it is to be divided by ten. It fills the
/// whole variant but for the type.
double decimalOf(const VARIANT& v) {
  constexpr double kBits32 = 4294967296.0;
  const auto middle = static_cast<double>(v.ullVal >> 32U);
  const auto low = static_cast<double>(v.ullVal & 0xFFFFFFFFU);
  const auto high = static_cast<double>(v.wReserved3) * 0x10000 + v.wReserved2;
  const double whole = (high * kBits32 + middle) * kBits32 + low;
  const double value = whole / std::pow(10.0, v.wReserved1 & 0xFFU);
  return v.wReserved1 > 0xFF ? -value : value;
}

Value valueOf(const VARIANT& argument);

/// An object stands for its default property, unless that is an object again.
Value defaultOf(IUnknown* object) {
  constexpr DISPID kDefaultProperty = 0;
  void* found = nullptr;
  if (object == nullptr || FAILED(object->QueryInterface(kIidDispatch, &found))) return {};
  auto* const asked = static_cast<IDispatch*>(found);
  DISPPARAMS none{};
  VARIANT property{};
  VariantInit(&property);
  const HRESULT told = asked->Invoke(kDefaultProperty, kIidNull, 0, DISPATCH_PROPERTYGET, &none,
                                     &property, nullptr, nullptr);
  asked->Release();
  const bool isObject = property.vt == VT_DISPATCH || property.vt == VT_UNKNOWN;
  Value value = FAILED(told) || isObject ? Value() : valueOf(property);
  VariantClear(&property);
  return value;
}

Value valueOf(const VARIANT& argument) {
  const VARIANT& v = referred(argument);
  const bool byReference = (v.vt & VT_BYREF) != 0;
  if (byReference && v.byref == nullptr) return {};
  switch (v.vt & ~VT_BYREF) {
    case VT_EMPTY:
      return byReference ? Value() : Nothing{};
    case VT_I1:
      return std::int64_t{held(v, v.cVal)};
    case VT_I2:
      return std::int64_t{held(v, v.iVal)};
    case VT_I4:
    case VT_INT:
      return std::int64_t{held(v, v.lVal)};
    case VT_I8:
      return std::int64_t{held(v, v.llVal)};
    case VT_UI1:
      return std::int64_t{held(v, v.bVal)};
    case VT_UI2:
      return std::int64_t{held(v, v.uiVal)};
    case VT_UI4:
    case VT_UINT:
      return std::int64_t{held(v, v.ulVal)};
    case VT_UI8:
      return signedOf(held(v, v.ullVal));
    case VT_R4:
      return double{held(v, v.fltVal)};
    case VT_R8:
    case VT_DATE:
      return held(v, v.dblVal);
    case VT_CY:
      return static_cast<double>(held(v, v.cyVal).int64) / 10'000;
    case VT_DECIMAL:
      return decimalOf(byReference ? *static_cast<const VARIANT*>(v.byref) : v);
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return defaultOf(held(v, v.punkVal));
    case VT_BOOL:
      return held(v, v.boolVal) != VARIANT_FALSE;
    case VT_BSTR:
      return textOf(held(v, v.bstrVal));
    default:
      return {};
  }
}

/// An empty variant is 0. No result: the value is not a number.
std::optional<double> numberOf(const Value& value) {
  if (std::holds_alternative<Nothing>(value)) return 0;
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? -1 : 0;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* text = std::get_if<std::u16string>(&value)) return text::wholeTextNumber(*text);
  return std::nullopt;
}

std::u16string decimalText(double number) {
  const bool whole = number == std::nearbyint(number) && std::abs(number) < 1e15;
  return whole ? text::decimal(static_cast<std::int64_t>(number))
               : text::decimal(static_cast<float>(number));
}

}  // namespace

const VARIANT& referred(const VARIANT& argument) {
  const bool refers = argument.vt == (VT_BYREF | VT_VARIANT) && argument.pvarVal != nullptr;
  return refers ? *argument.pvarVal : argument;
}

bool isMissing(const VARIANT& argument) {
  const VARIANT& v = referred(argument);
  return v.vt == VT_ERROR && v.scode == DISP_E_PARAMNOTFOUND;
}

HRESULT readValue(const VARIANT& argument, std::u16string& value) {
  Value given = valueOf(argument);
  if (std::holds_alternative<std::monostate>(given)) return DISP_E_TYPEMISMATCH;
  struct Text {
    std::u16string operator()(std::monostate) const { return {}; }
    std::u16string operator()(Nothing) const { return {}; }
    std::u16string operator()(bool truth) const { return truth ? u"True" : u"False"; }
    std::u16string operator()(std::int64_t number) const { return text::decimal(number); }
    std::u16string operator()(double number) const { return decimalText(number); }
    std::u16string operator()(std::u16string& text) const { return std::move(text); }
  };
  value = std::visit(Text(), given);
  return S_OK;
}

template <std::integral Whole>
HRESULT readValue(const VARIANT& argument, Whole& value) {
  const Value given = valueOf(argument);
  const auto number = numberOf(given);
  if (!number) return DISP_E_TYPEMISMATCH;
  const auto rounded = text::roundToInt32(*number);
  if (!rounded) return DISP_E_OVERFLOW;
  // True has all bits set, in a byte too.
  const bool fits = std::in_range<Whole>(*rounded);
  if (!fits && !std::holds_alternative<bool>(given)) return DISP_E_OVERFLOW;
  value = static_cast<Whole>(*rounded);
  return S_OK;
}
template HRESULT readValue(const VARIANT& argument, std::int16_t& value);
template HRESULT readValue(const VARIANT& argument, std::int32_t& value);
template HRESULT readValue(const VARIANT& argument, std::uint8_t& value);

HRESULT readValue(const VARIANT& argument, bool& value) {
  const Value given = valueOf(argument);
  const auto* text = std::get_if<std::u16string>(&given);
  const bool isTrue = text != nullptr && text::equalIgnoringCase(*text, u"True");
  const bool isFalse = text != nullptr && text::equalIgnoringCase(*text, u"False");
  const auto number = isTrue || isFalse ? std::nullopt : numberOf(given);
  if (!number && !isTrue && !isFalse) return DISP_E_TYPEMISMATCH;
  value = number ? *number != 0 : isTrue;
  return S_OK;
}

HRESULT readValue(const VARIANT& argument, TextTarget& value) {
  value.argument = &argument;
  if (argument.vt == (VT_BYREF | VT_VARIANT) || argument.vt == (VT_BYREF | VT_BSTR)) {
    return argument.byref != nullptr ? S_OK : DISP_E_TYPEMISMATCH;
  }
  if ((argument.vt & VT_BYREF) != 0) return DISP_E_TYPEMISMATCH;
  std::u16string lost;
  return readValue(argument, lost);
}

void writeText(const TextTarget& target, const std::u16string& text) {
  const VARIANT& argument = *target.argument;
  if (argument.vt == (VT_BYREF | VT_VARIANT)) {
    VARIANT& referred = *argument.pvarVal;
    if (referred.vt == (VT_BYREF | VT_BSTR)) return writeText({&referred}, text);
    BSTR written = newBstr(text);
    VariantClear(&referred);
    referred.vt = VT_BSTR;
    referred.bstrVal = written;
  } else if (argument.vt == (VT_BYREF | VT_BSTR)) {
    BSTR written = newBstr(text);
    SysFreeString(*argument.pbstrVal);
    *argument.pbstrVal = written;
  }
}

}  // namespace kvrnstep::component
