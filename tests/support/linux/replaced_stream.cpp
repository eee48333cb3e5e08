// SPDX-License-Identifier: MIT
#include "tests/support/linux/replaced_stream.h"

#include <unistd.h>

namespace testsupport {

ReplacedStream::ReplacedStream(int _stream, int _file) : stream_(_stream), former_(::dup(_stream)) {
  ::close(_stream);
  if (_file != -1) ::dup2(_file, _stream);
}

ReplacedStream::~ReplacedStream() {
  ::dup2(former_, stream_);
  ::close(former_);
}

}  // namespace testsupport
