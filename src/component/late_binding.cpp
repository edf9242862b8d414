#include "component/late_binding.h"

#include <algorithm>

#include "component/late_values.h"
#include "text/letter_case.h"

namespace kvrnstep::component {

namespace {

/// The row with that name, letter case aside, or null.
template <class Row>
const Row* named(std::span<const Row> rows, const OLECHAR* name) {
  const std::u16string_view wanted(reinterpret_cast<const char16_t*>(name));
  const auto found = std::ranges::find_if(
      rows, [&](const Row& row) { return text::equalIgnoringCase(row.name, wanted); });
  return found == rows.end() ? nullptr : &*found;
}

}  // namespace

HRESULT LateArguments::place(const Member& member, const DISPPARAMS& given) {
  placed_.assign(member.parameters.size(), nullptr);
  first_ = given.rgvarg;
  const bool tooMany = given.cArgs > placed_.size() || given.cNamedArgs > given.cArgs;
  const bool unreadable = (given.cArgs > 0 && given.rgvarg == nullptr) ||
                          (given.cNamedArgs > 0 && given.rgdispidNamedArgs == nullptr);
  if (tooMany || unreadable) return result_ = DISP_E_BADPARAMCOUNT;
  for (UINT i = given.cNamedArgs; i < given.cArgs; ++i) {
    placed_.at(given.cArgs - 1 - i) = &given.rgvarg[i];
  }
  if (FAILED(placeNamed(given))) return result_;
  return judgeMissing(member);
}

HRESULT LateArguments::placeNamed(const DISPPARAMS& given) {
  for (UINT i = 0; i < given.cNamedArgs; ++i) {
    const DISPID position = given.rgdispidNamedArgs[i];
    const bool known = position >= 0 && static_cast<std::size_t>(position) < placed_.size();
    if (!known || placed_.at(static_cast<std::size_t>(position)) != nullptr) {
      return note(DISP_E_PARAMNOTFOUND, given.rgvarg[i]);
    }
    placed_.at(static_cast<std::size_t>(position)) = &given.rgvarg[i];
  }
  return S_OK;
}

HRESULT LateArguments::judgeMissing(const Member& member) {
  for (std::size_t i = 0; i < placed_.size(); ++i) {
    const VARIANT*& argument = placed_.at(i);
    const bool missing = argument != nullptr && isMissing(*argument);
    if (missing && !member.parameters[i].optional) return note(DISP_E_PARAMNOTOPTIONAL, *argument);
    if (missing) argument = nullptr;
    if (argument == nullptr && !member.parameters[i].optional) {
      return result_ = DISP_E_BADPARAMCOUNT;
    }
  }
  return S_OK;
}

HRESULT LateArguments::note(HRESULT result, const VARIANT& argument) {
  if (FAILED(result)) wrong_ = static_cast<UINT>(&argument - first_);
  return result_ = result;
}

HRESULT idsOfNames(std::span<const Member> members, LPOLESTR* names, UINT count, DISPID* ids) {
  std::fill_n(ids, count, DISPID_UNKNOWN);
  if (count == 0) return S_OK;
  const Member* member = named(members, names[0]);
  if (member == nullptr) return DISP_E_UNKNOWNNAME;
  ids[0] = member->id;
  HRESULT result = S_OK;
  for (UINT i = 1; i < count; ++i) {
    const Parameter* parameter = named(member->parameters, names[i]);
    if (parameter == nullptr) {
      result = DISP_E_UNKNOWNNAME;
    } else {
      ids[i] = static_cast<DISPID>(parameter - member->parameters.data());
    }
  }
  return result;
}

}  // namespace kvrnstep::component
