// SPDX-License-Identifier: MIT
#include "tools/system/new_file.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace toolsystem {

int writeNewFile(const std::string& _path, const std::string& _text) {
  const int file =
      ::_open(_path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_TEXT | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
  if (file == -1) return errno;
  const int written = ::_write(file, _text.data(), static_cast<unsigned int>(_text.size()));
  const int error = written < 0 ? errno : 0;
  ::_close(file);
  const bool isWhole = written >= 0 && static_cast<std::size_t>(written) == _text.size();
  if (isWhole) return 0;
  std::remove(_path.c_str());
  return error != 0 ? error : ENOSPC;
}

int makeFolders(const std::string& _path) {
  std::error_code error;
  std::filesystem::create_directories(_path, error);
  return error ? error.default_error_condition().value() : 0;
}

}  // namespace toolsystem
