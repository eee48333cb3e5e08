// SPDX-License-Identifier: MIT
#include "platform/linux/record_lock.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace platform {
namespace {

bool lockByte(int _file, long _byte, RecordLock _lock, int _command) {
  struct flock request {};
  request.l_whence = SEEK_SET;
  request.l_start = _byte;
  request.l_len = 1;
  request.l_type = F_UNLCK;
  if (_lock == RecordLock::shared) request.l_type = F_RDLCK;
  if (_lock == RecordLock::exclusive) request.l_type = F_WRLCK;
  int result = 0;
  do {
    result = ::fcntl(_file, _command, &request);
  } while (result == -1 && errno == EINTR);
  return result == 0;
}

}  // namespace

bool tryRecordLock(int _file, long _byte, RecordLock _lock) { return lockByte(_file, _byte, _lock, F_OFD_SETLK); }

bool waitForRecordLock(int _file, long _byte, RecordLock _lock) { return lockByte(_file, _byte, _lock, F_OFD_SETLKW); }

}  // namespace platform
