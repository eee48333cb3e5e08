// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace platform {

/// While it lives, a failing write of the calling thread sends no signal to the application: neither for a pipe that
/// nobody reads (SIGPIPE) nor beyond the file size limit (SIGXFSZ). Needed around writes by others, such as a stream;
/// the functions of platform/ take care of it themselves. Does nothing on Windows, which has no such signals.
class QuietWrites {
 public:
  QuietWrites();
  ~QuietWrites();
  QuietWrites(const QuietWrites&) = delete;
  QuietWrites& operator=(const QuietWrites&) = delete;

  /// Call it when a write has failed.
  void consume();

 private:
  struct Signals;
  std::unique_ptr<Signals> signals_;
};

}  // namespace platform
