// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>

#include "platform/fork_shared_word.h"

namespace boost::logging::detail {

/// Whether the first opening of a file is still to empty it. The processes that are forked from this one share the
/// answer: what one of them has written, no other one may take away. One thread of a process at a time may use an
/// object.
class OnceEmptied {
 public:
  /// @param _isDue false: no opening empties the file.
  explicit OnceEmptied(bool _isDue);

  /// Call it before each opening. Waits while another process is about to empty the file; one that takes two seconds is
  /// taken to be gone.
  /// @return whether this opening has to empty the file. Call end() then, however the opening ends.
  bool begin();

  /// @param _isEmptied false when the opening failed, so that the next one is to empty the file.
  void end(bool _isEmptied);

  /// For a forked child, when a thread of the parent was between begin() and end().
  void restartInChild();

 private:
  /// Null when there is nothing to empty. Holds one of the states below, or the turn of whoever is emptying the file.
  std::unique_ptr<platform::ForkSharedWord> state_;
  std::uint32_t turn_ = 0;
};

}  // namespace boost::logging::detail
