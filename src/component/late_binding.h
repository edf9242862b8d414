#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "component/late_values.h"
#include "kvrnstep/component.hpp"
#include "kvrnstep/fields.hpp"

/// Members called by their names and numbers.
namespace kvrnstep::component {

struct Member {
  std::u16string_view name;
  DISPID id;
  WORD ways;  ///< DISPATCH_METHOD, DISPATCH_PROPERTYGET or both
  std::span<const Parameter> parameters;
};

/// The arguments of one call in the order of the parameters; null where one was left out. Readers
/// note the first argument that does not fit.
class LateArguments {
 public:
  /// Puts the caller's arguments, the last one first and the named ones before all, in order.
  HRESULT place(const Member& member, const DISPPARAMS& given);

  /// Reads the argument, if it was passed.
  template <class Value>
  void read(std::size_t parameter, Value& value) {
    const VARIANT* argument = (*this)[parameter];
    if (argument == nullptr || FAILED(result_)) return;
    note(readValue(*argument, value), *argument);
  }
  /// Judges the argument with a function of late_values.h.
  void check(std::size_t parameter, HRESULT (*judge)(const VARIANT&));

  [[nodiscard]] const VARIANT* operator[](std::size_t parameter) const {
    return placed_.at(parameter);
  }
  /// S_OK, or what is wrong with the first argument that did not fit.
  [[nodiscard]] HRESULT result() const { return result_; }
  /// Its place among the caller's arguments.
  [[nodiscard]] UINT wrongArgument() const { return wrong_; }

 private:
  HRESULT placeNamed(const DISPPARAMS& given);
  HRESULT judgeMissing(const Member& member);
  HRESULT note(HRESULT result, const VARIANT& argument);

  std::vector<const VARIANT*> placed_;
  const VARIANT* first_ = nullptr;
  HRESULT result_ = S_OK;
  UINT wrong_ = 0;
};

/// IDispatch::GetIDsOfNames: the number of the member that the first name names, letter case
/// aside, then the positions of the parameters that the other ones name.
HRESULT idsOfNames(std::span<const Member> members, LPOLESTR* names, UINT count, DISPID* ids);

/// The member with this number that can be called in this way; DISP_E_MEMBERNOTFOUND.
HRESULT findMember(std::span<const Member> members, DISPID id, WORD way, const Member*& found);

}  // namespace kvrnstep::component
