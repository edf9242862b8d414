#pragma once

// The plug-in as a component: classes that are created by an identifier and called through
// interfaces of a fixed binary layout, or by the names and numbers of their members. On Windows
// these are the system's own types; elsewhere they are declared here, with the same layout, and
// one exported function, `kvrnstepGetClassObject`, takes the place of the registry.
//
//     void* library = dlopen("/usr/lib/listwright/libkvrnstep.so", RTLD_NOW | RTLD_LOCAL);
//     auto getClassObject = reinterpret_cast<kvrnstep::GetClassObjectFunction>(
//         dlsym(library, kvrnstep::kGetClassObject));
//     kvrnstep::IClassFactory* factory = nullptr;
//     getClassObject(kvrnstep::kClassListwright, kvrnstep::kIidClassFactory, (void**)&factory);
//     kvrnstep::_Listwright* listwright = nullptr;
//     factory->CreateInstance(nullptr, kvrnstep::kInterfaceListwright, (void**)&listwright);
//
// The host releases each object that it gets, and frees each text that it gets with SysFreeString.

#include <cstddef>
#include <cstdint>

#include "kvrnstep/identifiers.h"

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// After the other one.
#include <objbase.h>
#include <oleauto.h>

#else

#include <cstdlib>
#include <cstring>

#define STDMETHODCALLTYPE

#endif

namespace kvrnstep {

#ifdef _WIN32

using ::BOOL, ::BSTR, ::CLSID, ::CY, ::DISPID, ::DISPPARAMS, ::EXCEPINFO, ::GUID, ::HRESULT,
    ::IClassFactory, ::IDispatch, ::IID, ::ITypeInfo, ::IUnknown, ::LCID, ::LONG, ::LPOLESTR,
    ::OLECHAR, ::SCODE, ::SysAllocStringLen, ::SysFreeString, ::SysStringLen, ::UINT, ::ULONG,
    ::VARIANT, ::VARIANT_BOOL, ::VariantClear, ::VariantInit, ::VARTYPE, ::WORD;

// The system's interfaces have no destructor of any kind.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

#else

// Layout, unions and memory are as the binary interface has them.
// NOLINTBEGIN(cppcoreguidelines-no-malloc, cppcoreguidelines-owning-memory)
// NOLINTBEGIN(cppcoreguidelines-pro-type-union-access)

using HRESULT = std::int32_t;
using ULONG = std::uint32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using WORD = std::uint16_t;
using BOOL = std::int32_t;
using LCID = std::uint32_t;
using DISPID = std::int32_t;
using SCODE = std::int32_t;
using VARTYPE = std::uint16_t;
using VARIANT_BOOL = std::int16_t;
using OLECHAR = char16_t;
using LPOLESTR = OLECHAR*;

inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

/// A UTF-16 text with the number of its bytes in the four bytes before it and a zero behind it.
/// Null is an empty text.
using BSTR = OLECHAR*;

struct GUID {
  std::uint32_t Data1;
  std::uint16_t Data2;
  std::uint16_t Data3;
  std::uint8_t Data4[8];
};
using IID = GUID;
using CLSID = GUID;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

inline bool operator==(const GUID& one, const GUID& other) {
  return std::memcmp(&one, &other, sizeof(GUID)) == 0;
}

constexpr HRESULT asResult(std::uint32_t code) {
  return static_cast<HRESULT>(code);
}
inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT E_NOINTERFACE = asResult(0x80004002);
inline constexpr HRESULT E_POINTER = asResult(0x80004003);
inline constexpr HRESULT E_FAIL = asResult(0x80004005);
inline constexpr HRESULT E_OUTOFMEMORY = asResult(0x8007000E);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = asResult(0x80040110);
inline constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = asResult(0x80040111);
inline constexpr HRESULT DISP_E_UNKNOWNINTERFACE = asResult(0x80020001);
inline constexpr HRESULT DISP_E_MEMBERNOTFOUND = asResult(0x80020003);
inline constexpr HRESULT DISP_E_PARAMNOTFOUND = asResult(0x80020004);
inline constexpr HRESULT DISP_E_TYPEMISMATCH = asResult(0x80020005);
inline constexpr HRESULT DISP_E_UNKNOWNNAME = asResult(0x80020006);
inline constexpr HRESULT DISP_E_OVERFLOW = asResult(0x8002000A);
inline constexpr HRESULT DISP_E_BADINDEX = asResult(0x8002000B);
inline constexpr HRESULT DISP_E_BADPARAMCOUNT = asResult(0x8002000E);
inline constexpr HRESULT DISP_E_PARAMNOTOPTIONAL = asResult(0x8002000F);
inline constexpr bool SUCCEEDED(HRESULT result) {
  return result >= 0;
}
inline constexpr bool FAILED(HRESULT result) {
  return result < 0;
}

inline constexpr DISPID DISPID_UNKNOWN = -1;
inline constexpr WORD DISPATCH_METHOD = 1;
inline constexpr WORD DISPATCH_PROPERTYGET = 2;
inline constexpr WORD DISPATCH_PROPERTYPUT = 4;

/// The types of values in a variant.
enum VariantType : VARTYPE {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R4 = 4,
  VT_R8 = 5,
  VT_CY = 6,
  VT_DATE = 7,
  VT_BSTR = 8,
  VT_DISPATCH = 9,
  VT_ERROR = 10,
  VT_BOOL = 11,
  VT_VARIANT = 12,
  VT_UNKNOWN = 13,
  VT_DECIMAL = 14,
  VT_I1 = 16,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_I8 = 20,
  VT_UI8 = 21,
  VT_INT = 22,
  VT_UINT = 23,
  VT_BYREF = 0x4000,
};

struct IUnknown;
struct IDispatch;
struct ITypeInfo;
struct EXCEPINFO;  // never filled: calls fail with a result alone

/// A currency amount in ten-thousandths.
struct CY {
  std::int64_t int64;
};

/// The longest thing that a variant can hold.
struct Record {
  void* pvRecord;
  void* pRecInfo;
};

struct VARIANT {
  VARTYPE vt;
  WORD wReserved1;
  WORD wReserved2;
  WORD wReserved3;
  union {
    std::int64_t llVal;
    std::uint64_t ullVal;
    std::int32_t lVal;
    std::uint32_t ulVal;
    std::int16_t iVal;
    std::uint16_t uiVal;
    std::int8_t cVal;
    std::uint8_t bVal;
    float fltVal;
    double dblVal;
    double date;
    CY cyVal;
    VARIANT_BOOL boolVal;
    SCODE scode;
    BSTR bstrVal;
    IUnknown* punkVal;
    IDispatch* pdispVal;
    VARIANT* pvarVal;
    BSTR* pbstrVal;
    void* byref;
    Record record;
  };
};
using VARIANTARG = VARIANT;

struct DISPPARAMS {
  VARIANTARG* rgvarg;         ///< the arguments, the last one first
  DISPID* rgdispidNamedArgs;  ///< positions of the named arguments, which come first in `rgvarg`
  UINT cArgs;
  UINT cNamedArgs;
};

// Objects delete themselves when their last reference is released; hosts never delete them.
struct IUnknown {
  virtual HRESULT QueryInterface(REFIID riid, void** object) = 0;
  virtual ULONG AddRef() = 0;
  virtual ULONG Release() = 0;

 protected:
  ~IUnknown() = default;
};

struct IClassFactory : IUnknown {
  virtual HRESULT CreateInstance(IUnknown* outer, REFIID riid, void** object) = 0;
  virtual HRESULT LockServer(BOOL lock) = 0;

 protected:
  ~IClassFactory() = default;
};

struct IDispatch : IUnknown {
  virtual HRESULT GetTypeInfoCount(UINT* count) = 0;
  virtual HRESULT GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) = 0;
  virtual HRESULT GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                DISPID* ids) = 0;
  virtual HRESULT Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                         DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                         UINT* wrongArgument) = 0;

 protected:
  ~IDispatch() = default;
};
namespace detail {
/// Bytes before a text; the last four hold its length.
inline constexpr std::size_t kTextHead = 8;
}  // namespace detail

/// A new text of that many characters, zero where `text` is null; null when memory is out.
inline BSTR SysAllocStringLen(const OLECHAR* text, UINT length) {
  const std::size_t bytes = std::size_t{length} * sizeof(OLECHAR);
  if (bytes > 0x7FFFFFF0) return nullptr;
  auto* memory = static_cast<char*>(std::calloc(detail::kTextHead + bytes + sizeof(OLECHAR), 1));
  if (memory == nullptr) return nullptr;
  const auto count = static_cast<std::uint32_t>(bytes);
  std::memcpy(memory + detail::kTextHead - sizeof(count), &count, sizeof(count));
  if (text != nullptr) std::memcpy(memory + detail::kTextHead, text, bytes);
  return reinterpret_cast<BSTR>(memory + detail::kTextHead);
}

inline void SysFreeString(BSTR text) {
  if (text != nullptr) std::free(reinterpret_cast<char*>(text) - detail::kTextHead);
}

/// In characters.
inline UINT SysStringLen(BSTR text) {
  if (text == nullptr) return 0;
  std::uint32_t bytes = 0;
  std::memcpy(&bytes, reinterpret_cast<const char*>(text) - sizeof(bytes), sizeof(bytes));
  return bytes / static_cast<std::uint32_t>(sizeof(OLECHAR));
}

inline void VariantInit(VARIANT* variant) {
  std::memset(static_cast<void*>(variant), 0, sizeof(VARIANT));
}

/// Frees what the variant owns and leaves it empty.
inline HRESULT VariantClear(VARIANT* variant) {
  if (variant->vt == VT_BSTR) SysFreeString(variant->bstrVal);
  if ((variant->vt == VT_UNKNOWN || variant->vt == VT_DISPATCH) && variant->punkVal != nullptr) {
    variant->punkVal->Release();
  }
  VariantInit(variant);
  return S_OK;
}

// NOLINTEND(cppcoreguidelines-pro-type-union-access)
// NOLINTEND(cppcoreguidelines-no-malloc, cppcoreguidelines-owning-memory)

#endif

namespace detail {
constexpr GUID guid(std::uint32_t first, std::uint16_t second, std::uint16_t third, std::uint8_t a,
                    std::uint8_t b, std::uint8_t c, std::uint8_t d, std::uint8_t e, std::uint8_t f,
                    std::uint8_t g, std::uint8_t h) {
  return {first, second, third, {a, b, c, d, e, f, g, h}};
}
}  // namespace detail

inline constexpr GUID kIidNull{};
inline constexpr GUID kIidUnknown = detail::guid(0x00000000, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46);
inline constexpr GUID kIidClassFactory =
    detail::guid(0x00000001, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46);
inline constexpr GUID kIidDispatch = detail::guid(0x00020400, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46);
inline constexpr GUID kLibrary = KVRNSTEP_LIBRARY_ID(detail::guid);
inline constexpr GUID kClassListwright = KVRNSTEP_CLASS_LISTWRIGHT(detail::guid);
inline constexpr GUID kInterfaceListwright = KVRNSTEP_INTERFACE_LISTWRIGHT(detail::guid);
inline constexpr GUID kClassIcon = KVRNSTEP_CLASS_CICON(detail::guid);
inline constexpr GUID kInterfaceIcon = KVRNSTEP_INTERFACE_CICON(detail::guid);

// The interfaces keep the names that hosts know them by.
// NOLINTBEGIN(bugprone-reserved-identifier, cert-dcl37-c, cert-dcl51-cpp)

/// The class that shows the dialog.
struct _Listwright : IDispatch {
  /// Name and version for a host's list of plug-ins, a tab between them.
  virtual HRESULT STDMETHODCALLTYPE PlugNameVersion(BSTR* result) = 0;
  /// Shows the dialog and returns when it has closed.
  /// @param theLwOutputString is replaced: the list after Insert, otherwise empty
  /// @param l_EditorBColor … bytSpcCount are only read; null stands for one that is left out
  /// @param result True after Insert
  /// @return E_POINTER when one of the two results has no place to go; nothing was done then
  virtual HRESULT STDMETHODCALLTYPE ShowListwrightDialog(
      BSTR* theLwOutputString, std::int16_t iBuildStep, VARIANT_BOOL BuMenuMode,
      VARIANT_BOOL bolIsSoundAvailable, BSTR swavAlertQ, BSTR swavFinishQ, BSTR sPthStepFolder,
      BSTR SEC_APP_NAME, BSTR SEC_APP_LWDR, LONG* l_EditorBColor, LONG* l_EditorFColor,
      BSTR* s_IniPathAndName, BSTR* s_EditorFont, std::int16_t* i_EditorSize,
      std::uint8_t* bytSpcCount, VARIANT_BOOL* result) = 0;

 protected:
  ~_Listwright() = default;
};

/// The class that hands out icons.
struct _cIcon : IDispatch {
  /// Writes icon 101, 102 or 103 as a file and returns its path, empty on failure.
  virtual HRESULT STDMETHODCALLTYPE RequestProgramIcon(std::int16_t piIndex101to103,
                                                       BSTR* result) = 0;

 protected:
  ~_cIcon() = default;
};

// NOLINTEND(bugprone-reserved-identifier, cert-dcl37-c, cert-dcl51-cpp)

#ifdef _WIN32
#pragma GCC diagnostic pop
#endif

/// The exported function: hands out the class object of a class, E_NOINTERFACE or
/// CLASS_E_CLASSNOTAVAILABLE.
using GetClassObjectFunction = HRESULT (*)(const CLSID& classId, const IID& interfaceId,
                                           void** object);
inline constexpr const char* kGetClassObject = "kvrnstepGetClassObject";

}  // namespace kvrnstep
