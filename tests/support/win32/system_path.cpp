// SPDX-License-Identifier: MIT
#include "tests/support/system_path.h"

#include <atomic>
#include <system_error>
#include <vector>

#include "platform/win32/windows_api.h"

namespace testsupport {
namespace {

namespace fs = std::filesystem;

// A file that is open can be removed, but keeps its name until it is closed. Under a name elsewhere that does no harm.
void moveAway(const fs::path& _file) {
  static std::atomic<int> count{0};
  const std::string name = "qmrk-removed-" + std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(++count);
  const fs::path target = fs::temp_directory_path() / name;
  std::error_code ignored;
  fs::rename(_file, target, ignored);
  fs::remove(target, ignored);
}

std::vector<fs::path> filesIn(const fs::path& _folder) {
  std::vector<fs::path> files;
  std::error_code error;
  for (auto entry = fs::recursive_directory_iterator(_folder, error); entry != fs::recursive_directory_iterator();
       entry.increment(error)) {
    if (!entry->is_directory()) files.push_back(entry->path());
  }
  return files;
}

}  // namespace

std::filesystem::path systemPath(const std::string& _path) {
  const auto size = static_cast<int>(_path.size());
  std::wstring wide(_path.size(), L'\0');
  const int length = ::MultiByteToWideChar(CP_ACP, 0, _path.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

std::string pathText(const std::filesystem::path& _path) {
  const std::wstring wide = _path.wstring();
  const auto size = static_cast<int>(wide.size());
  std::string text(2 * wide.size(), '\0');
  const int length = ::WideCharToMultiByte(CP_ACP, 0, wide.data(), size, text.data(), 2 * size, nullptr, nullptr);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

bool removeAtOnce(const fs::path& _path) {
  std::error_code error;
  for (const fs::path& file : filesIn(_path)) {
    moveAway(file);
  }
  if (!fs::is_directory(_path, error)) moveAway(_path);
  fs::remove_all(_path, error);
  return !error;
}

}  // namespace testsupport
