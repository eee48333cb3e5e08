// SPDX-License-Identifier: MIT
#pragma once

namespace testsupport {

/// While it lives, redirects a standard stream of the process (STDOUT_FILENO, STDERR_FILENO).
class ReplacedStream {
 public:
  /// @param _file the descriptor to redirect to, which stays the caller's; -1 closes the stream.
  ReplacedStream(int _stream, int _file);
  ~ReplacedStream();
  ReplacedStream(const ReplacedStream&) = delete;
  ReplacedStream& operator=(const ReplacedStream&) = delete;

 private:
  int stream_;
  int former_;
};

}  // namespace testsupport
