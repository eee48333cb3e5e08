// SPDX-License-Identifier: MIT
#include "tools/system/appended_line.h"

#include "platform/text_file.h"
#include "platform/win32/windows_api.h"

namespace toolsystem {
namespace {

FileFailure appendFailure(const std::string& _what, DWORD _error) {
  return {_what + " (error " + std::to_string(_error) + ")", _error == ERROR_ACCESS_DENIED,
          _error == ERROR_FILE_NOT_FOUND || _error == ERROR_PATH_NOT_FOUND};
}

std::string withSystemLineEnds(const std::string& _text) {
  std::string text;
  for (const char character : _text)
    text += character == '\n' ? std::string("\r\n") : std::string(1, character);
  return text;
}

std::optional<FileFailure> append(const std::string& _path, const std::string& _line, DWORD _creation) {
  const std::string lineEnd = platform::endsInsideLine(_path) ? "\n" : "";
  const HANDLE file =
      ::CreateFileA(_path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    _creation, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return appendFailure("cannot open " + _path, ::GetLastError());
  const std::string bytes = withSystemLineEnds(lineEnd + _line);
  DWORD written = 0;
  const bool isDone = ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0;
  const DWORD error = isDone ? ERROR_DISK_FULL : ::GetLastError();
  ::CloseHandle(file);
  if (isDone && written == bytes.size()) return std::nullopt;
  return appendFailure("cannot append to " + _path, error);
}

}  // namespace

std::optional<FileFailure> appendToLog(const std::string& _path, const std::string& _line,
                                       std::optional<std::uint32_t> /*_owner*/) {
  return append(_path, _line, OPEN_EXISTING);
}

std::optional<FileFailure> appendRecord(const std::string& _path, const std::string& _line) {
  return append(_path, _line, OPEN_ALWAYS);
}

}  // namespace toolsystem
