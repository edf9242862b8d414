#include "component/late_values.h"

#include <cmath>
#include <limits>
#include <optional>
#include <variant>

#include "component/bstr.h"
#include "text/letter_case.h"
#include "text/numbers.h"

namespace kvrnstep::component {

namespace {

struct Nothing {};
/// A variant's value; no alternative is for what no member can use: Null, objects, arrays …
using Value = std::variant<std::monostate, Nothing, bool, std::int64_t, double, std::u16string>;

/// A simple value that lies in the variant, or that it points to.
template <class T>
T held(const VARIANT& variant, T own) {
  return (variant.vt & VT_BYREF) != 0 ? *static_cast<const T*>(variant.byref) : own;
}

/// The largest whole number is as good as a larger one: both fit nothing.
std::int64_t signedOf(std::uint64_t number) {
  constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  return static_cast<std::int64_t>(number < kLargest ? number : kLargest);
}

double amount(CY currency) {
  constexpr double kParts = 10'000;
  return static_cast<double>(currency.int64) / kParts;
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
      return amount(held(v, v.cyVal));
    case VT_BOOL:
      return held(v, v.boolVal) != VARIANT_FALSE;
    case VT_BSTR:
      return textOf(held(v, v.bstrVal));
    default:
      return {};
  }
}

/// A whole number of the wanted type.
template <class Whole>
struct IntegerReader {
  using Limits = std::numeric_limits<Whole>;
  Whole& value;

  HRESULT operator()(std::monostate) const { return DISP_E_TYPEMISMATCH; }
  HRESULT operator()(Nothing) const { return take(std::int64_t{0}); }
  HRESULT operator()(bool truth) const {
    value = truth ? static_cast<Whole>(-1) : Whole{0};
    return S_OK;
  }
  HRESULT operator()(std::int64_t number) const { return take(number); }
  HRESULT operator()(double number) const {
    const auto rounded = text::roundToInt32(number);
    return rounded ? take(std::int64_t{*rounded}) : DISP_E_OVERFLOW;
  }
  HRESULT operator()(const std::u16string& text) const {
    const auto number = text::wholeTextNumber(text);
    return number ? (*this)(*number) : DISP_E_TYPEMISMATCH;
  }

 private:
  [[nodiscard]] HRESULT take(std::int64_t number) const {
    if (number < Limits::min() || number > Limits::max()) return DISP_E_OVERFLOW;
    value = static_cast<Whole>(number);
    return S_OK;
  }
};

template <class Whole>
HRESULT readWhole(const VARIANT& argument, Whole& value) {
  return std::visit(IntegerReader<Whole>{value}, valueOf(argument));
}

std::optional<bool> truthOf(std::u16string_view text) {
  if (text::equalIgnoringCase(text, u"True")) return true;
  if (text::equalIgnoringCase(text, u"False")) return false;
  if (const auto number = text::wholeTextNumber(text)) return *number != 0;
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
  struct Reader {
    std::u16string& value;
    HRESULT operator()(std::monostate) const { return DISP_E_TYPEMISMATCH; }
    HRESULT operator()(Nothing) const { return take(u""); }
    HRESULT operator()(bool truth) const { return take(truth ? u"True" : u"False"); }
    HRESULT operator()(std::int64_t number) const { return take(text::decimal(number)); }
    HRESULT operator()(double number) const { return take(decimalText(number)); }
    HRESULT operator()(std::u16string text) const { return take(std::move(text)); }
    [[nodiscard]] HRESULT take(std::u16string text) const {
      value = std::move(text);
      return S_OK;
    }
  };
  return std::visit(Reader{value}, valueOf(argument));
}

HRESULT readValue(const VARIANT& argument, std::int16_t& value) {
  return readWhole(argument, value);
}

HRESULT readValue(const VARIANT& argument, std::int32_t& value) {
  return readWhole(argument, value);
}

HRESULT readValue(const VARIANT& argument, std::uint8_t& value) {
  return readWhole(argument, value);
}

HRESULT readValue(const VARIANT& argument, bool& value) {
  struct Reader {
    bool& value;
    HRESULT operator()(std::monostate) const { return DISP_E_TYPEMISMATCH; }
    HRESULT operator()(Nothing) const { return take(false); }
    HRESULT operator()(bool truth) const { return take(truth); }
    HRESULT operator()(std::int64_t number) const { return take(number != 0); }
    HRESULT operator()(double number) const { return take(number != 0); }
    HRESULT operator()(const std::u16string& text) const {
      const auto truth = truthOf(text);
      return truth ? take(*truth) : DISP_E_TYPEMISMATCH;
    }
    [[nodiscard]] HRESULT take(bool truth) const {
      value = truth;
      return S_OK;
    }
  };
  return std::visit(Reader{value}, valueOf(argument));
}

HRESULT checkTextTarget(const VARIANT& argument) {
  if (argument.vt == (VT_BYREF | VT_VARIANT)) {
    return argument.pvarVal != nullptr ? S_OK : DISP_E_TYPEMISMATCH;
  }
  if (argument.vt == (VT_BYREF | VT_BSTR)) {
    return argument.pbstrVal != nullptr ? S_OK : DISP_E_TYPEMISMATCH;
  }
  if ((argument.vt & VT_BYREF) != 0) return DISP_E_TYPEMISMATCH;
  std::u16string lost;
  return readValue(argument, lost);
}

void writeText(const VARIANT& argument, const std::u16string& text) {
  if (argument.vt == (VT_BYREF | VT_VARIANT)) {
    VARIANT& target = *argument.pvarVal;
    if (target.vt == (VT_BYREF | VT_BSTR)) return writeText(target, text);
    BSTR written = newBstr(text);
    VariantClear(&target);
    target.vt = VT_BSTR;
    target.bstrVal = written;
  } else if (argument.vt == (VT_BYREF | VT_BSTR)) {
    BSTR written = newBstr(text);
    SysFreeString(*argument.pbstrVal);
    *argument.pbstrVal = written;
  }
}

}  // namespace kvrnstep::component
