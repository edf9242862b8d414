// Arguments of late-bound callers: whatever the variant, the conversions agree with one another.

#include "component/late_values.h"

#include <cmath>
#include <limits>

#include "component/bstr.h"
#include "fuzz.h"
#include "text/numbers.h"

namespace {

using namespace kvrnstep;
using component::newBstr;

/// A variant of a type that holds no object, with what it may point to.
class Argument {
 public:
  explicit Argument(FuzzedDataProvider& input) {
    VariantInit(&inner_);
    VariantInit(&outer_);
    fill(input, inner_);
    refer(input.ConsumeIntegralInRange(0, 4));
  }
  ~Argument() {
    VariantClear(&inner_);
    SysFreeString(text_);
  }
  Argument(const Argument&) = delete;
  Argument& operator=(const Argument&) = delete;

  [[nodiscard]] const VARIANT& get() const { return outer_; }
  [[nodiscard]] const VARIANT& inner() const { return inner_; }
  [[nodiscard]] bool takesText() const {
    return outer_.vt == (VT_BYREF | VT_VARIANT) || outer_.vt == (VT_BYREF | VT_BSTR);
  }

 private:
  static void fill(FuzzedDataProvider& input, VARIANT& variant) {
    static constexpr VARTYPE kTypes[] = {VT_EMPTY,
                                         VT_NULL,
                                         VT_I2,
                                         VT_I4,
                                         VT_R4,
                                         VT_R8,
                                         VT_CY,
                                         VT_DATE,
                                         VT_BSTR,
                                         VT_ERROR,
                                         VT_BOOL,
                                         VT_I1,
                                         VT_UI1,
                                         VT_UI2,
                                         VT_UI4,
                                         VT_I8,
                                         VT_UI8,
                                         VT_INT,
                                         VT_UINT,
                                         14,
                                         0x2011,
                                         36,
                                         72,
                                         VT_BYREF,
                                         VT_BYREF | VT_I4,
                                         VT_BYREF | VT_BSTR};
    variant.vt = input.PickValueInArray(kTypes);
    if (variant.vt == VT_BSTR) {
      variant.bstrVal = newBstr(anyValueText(input));
    } else if ((variant.vt & VT_BYREF) == 0) {
      // Small numbers, whose conversions succeed, as often as large ones.
      variant.llVal = input.ConsumeBool() ? input.ConsumeIntegral<std::int64_t>()
                                          : input.ConsumeIntegralInRange<std::int64_t>(-300, 300);
      if (variant.vt == VT_R8 && input.ConsumeBool()) {
        variant.dblVal = input.ConsumeIntegral<std::int32_t>() / 2.0;
      }
    }
  }

  static std::u16string anyValueText(FuzzedDataProvider& input) {
    switch (input.ConsumeIntegralInRange(0, 3)) {
      case 0:
        return text::decimal(input.ConsumeIntegral<std::int32_t>());
      case 1:
        return text::decimal(input.ConsumeFloatingPoint<float>());
      case 2:
        return input.ConsumeBool() ? u"TRUE" : u"false";
      default:
        return fuzz::anyText(input, 24);
    }
  }

  /// How the caller passes the variant: itself, by reference, or its value by reference.
  void refer(int way) {
    outer_ = inner_;
    if (way == 1) {
      outer_.vt = VT_BYREF | VT_VARIANT;
      outer_.pvarVal = &inner_;
    } else if (way == 2 && (inner_.vt & VT_BYREF) == 0 && inner_.vt != VT_EMPTY) {
      outer_.vt = inner_.vt | VT_BYREF;
      outer_.byref = &inner_.llVal;
    } else if (way == 3) {
      text_ = newBstr(u"before");
      outer_.vt = VT_BYREF | VT_BSTR;
      outer_.pbstrVal = &text_;
    } else if (way == 4) {
      outer_.vt = VT_BYREF | VT_VARIANT;
      outer_.pvarVal = nullptr;
    }
  }

  VARIANT inner_;
  VARIANT outer_;
  BSTR text_ = nullptr;
};

bool isResult(HRESULT result) {
  return result == S_OK || result == DISP_E_TYPEMISMATCH || result == DISP_E_OVERFLOW;
}

/// A narrow conversion gives what the wide one gives where that fits, and otherwise leaves the
/// value alone.
template <class Narrow>
void checkNarrow(const Argument& argument, HRESULT (*read)(const VARIANT&, Narrow&)) {
  constexpr Narrow kBefore = 77;
  std::int32_t wide = kBefore;
  Narrow narrow = kBefore;
  const HRESULT wideResult = component::readLong(argument.get(), wide);
  const HRESULT result = read(argument.get(), narrow);
  fuzz::check(isResult(wideResult) && isResult(result), "a conversion ends in one of three ways");
  fuzz::check(SUCCEEDED(result) || narrow == kBefore, "what fails changes nothing");
  fuzz::check(SUCCEEDED(wideResult) || wide == kBefore, "what fails changes nothing");
  fuzz::check(FAILED(result) || narrow == static_cast<Narrow>(wide), "both give the same number");

  const bool fits =
      wide >= std::numeric_limits<Narrow>::min() && wide <= std::numeric_limits<Narrow>::max();
  const bool isTruth = wide == -1;  // all bits of a byte
  if (SUCCEEDED(wideResult) && !isTruth) {
    fuzz::check(SUCCEEDED(result) == fits, "a number that fits is taken");
  } else if (FAILED(wideResult)) {
    fuzz::check(result == wideResult, "no other type takes what the widest refuses");
  }
}

void checkTruth(const Argument& argument) {
  std::int32_t number = 0;
  bool truth = false;
  const HRESULT result = component::readBoolean(argument.get(), truth);
  fuzz::check(isResult(result), "a conversion ends in one of three ways");
  if (FAILED(component::readLong(argument.get(), number))) return;
  fuzz::check(SUCCEEDED(result), "a number is true or false");
  // A half is rounded away as a number.
  fuzz::check(number == 0 || truth, "any number but 0 is true");
}

void checkText(const Argument& argument) {
  std::u16string text = u"before";
  const HRESULT result = component::readText(argument.get(), text);
  fuzz::check(result == S_OK || result == DISP_E_TYPEMISMATCH, "all that is a value is a text");
  fuzz::check(SUCCEEDED(result) || text == u"before", "what fails changes nothing");
  std::int32_t number = 0;
  const bool isNumber = SUCCEEDED(component::readLong(argument.get(), number));
  fuzz::check(!isNumber || SUCCEEDED(result), "a number is a text");
}

void checkWritingBack(const Argument& argument) {
  if (FAILED(component::checkTextTarget(argument.get()))) return;
  // What the inner variant refers to is none of its own.
  if ((argument.inner().vt & VT_BYREF) != 0) return;
  component::writeText(argument.get(), u"after");
  if (!argument.takesText()) return;
  std::u16string text;
  fuzz::check(SUCCEEDED(component::readText(argument.get(), text)), "what was written is a text");
  fuzz::check(text == u"after", "a text is written back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const Argument argument(input);
  checkNarrow<std::int16_t>(argument, component::readInteger);
  checkNarrow<std::uint8_t>(argument, component::readByte);
  checkTruth(argument);
  checkText(argument);
  component::isMissing(argument.get());
  checkWritingBack(argument);
  return 0;
}
