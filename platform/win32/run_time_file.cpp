// SPDX-License-Identifier: MIT
#include "platform/win32/run_time_file.h"

#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

#include <algorithm>

#include "platform/fault.h"

namespace platform {
namespace {

constexpr std::size_t largestWrite = 1 << 20;

}  // namespace

int openRunTimeFile(const std::string& _path, int _flags) {
  const int file = ::_sopen(_path.c_str(), _flags | _O_TEXT | _O_NOINHERIT, _SH_DENYNO, _S_IREAD | _S_IWRITE);
  // A device has its name in every folder.
  if (file == -1 || ::GetFileType(handleOfRunTimeFile(file)) == FILE_TYPE_DISK) return file;
  ::_close(file);
  return -1;
}

HANDLE handleOfRunTimeFile(int _file) { return reinterpret_cast<HANDLE>(::_get_osfhandle(_file)); }

bool writeToRunTimeFile(int _file, const char* _text, std::size_t _size) {
  std::size_t done = 0;
  while (done < _size) {
    if (const ErrorCode fault = injectedFault(Call::write); fault != noError) {
      ::SetLastError(fault);
      return false;
    }
    const auto size = static_cast<unsigned int>(std::min(_size - done, largestWrite));
    const int written = ::_write(_file, _text + done, size);
    if (written <= 0) return false;
    done += static_cast<std::size_t>(written);
  }
  return true;
}

void closeRunTimeFile(int _file) {
  if (_file != -1 && injectedFault(Call::closeFile) == noError) ::_close(_file);
}

}  // namespace platform
