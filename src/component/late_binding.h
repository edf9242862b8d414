#pragma once

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

/// The arguments of one call in the order of the parameters. It remembers the first argument that
/// could not be read.
class LateArguments {
 public:
  /// Sorts the caller's arguments, which come with the named ones first and the last one first.
  HRESULT place(const Member& member, const DISPPARAMS& given);

  /// Reads the argument, if it was passed.
  template <class Value>
  void read(std::size_t parameter, Value& value) {
    const VARIANT* argument = placed_.at(parameter);
    if (argument == nullptr || FAILED(result_)) return;
    note(readValue(*argument, value), *argument);
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

}  // namespace kvrnstep::component
