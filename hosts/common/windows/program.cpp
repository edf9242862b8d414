#include "program.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>
// After the other one.
#include <shellapi.h>

#include <cstdio>
#include <memory>

#include "utf8.h"

namespace hosts {

namespace {

std::string utf8(const wchar_t* text) {
  return toUtf8(reinterpret_cast<const char16_t*>(text));
}

}  // namespace

Arguments::Arguments(int /*argc*/, char** /*argv*/) {
  int count = 0;
  const std::unique_ptr<LPWSTR, decltype(&::LocalFree)> values(
      ::CommandLineToArgvW(::GetCommandLineW(), &count), ::LocalFree);
  for (int i = 0; i < count; ++i) texts_.push_back(utf8(values.get()[i]));
  for (const std::string& text : texts_) pointers_.push_back(text.c_str());
}

std::string pluginBesideProgram() {
  constexpr DWORD kLongestPath = 0x8000;
  std::u16string path(kLongestPath, u'\0');
  path.resize(::GetModuleFileNameW(nullptr, reinterpret_cast<wchar_t*>(path.data()), kLongestPath));
  return toUtf8(path.substr(0, path.rfind(u'\\') + 1) + u"kvrnstep.dll");
}

void prepareOutput() {
  ::_setmode(::_fileno(stdout), _O_BINARY);
  ::_setmode(::_fileno(stderr), _O_BINARY);
  if (outputIsTerminal()) ::SetConsoleOutputCP(CP_UTF8);
}

std::string_view prepareInput() {
  ::_setmode(::_fileno(stdin), _O_BINARY);
  return {};
}

bool outputIsRead() {
  const HANDLE output = ::GetStdHandle(STD_OUTPUT_HANDLE);
  const DWORD type = ::GetFileType(output);
  if (type != FILE_TYPE_CHAR) return type != FILE_TYPE_UNKNOWN;
  // A console that was opened for this program alone closes with it.
  DWORD mode = 0;
  DWORD process = 0;
  return ::GetConsoleMode(output, &mode) != FALSE && ::GetConsoleProcessList(&process, 1) > 1;
}

bool outputIsTerminal() {
  return ::_isatty(::_fileno(stdout)) != 0;
}

void showProblem(const std::string& problem) {
  if (::GetFileType(::GetStdHandle(STD_ERROR_HANDLE)) != FILE_TYPE_UNKNOWN) return;
  const std::u16string text = fromUtf8(problem);
  ::MessageBoxW(nullptr, reinterpret_cast<const wchar_t*>(text.c_str()), L"Listwright",
                MB_OK | MB_ICONEXCLAMATION | MB_SETFOREGROUND);
}

}  // namespace hosts
