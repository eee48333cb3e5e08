// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// An appender that does nothing.
inline void quietAppender(const std::string& /*_log*/, const std::string& /*_message*/) {}

/// The levels of enable_logs.
constexpr unsigned int levelOn = 0;
constexpr unsigned int levelOff = 4294967295U;

}  // namespace testsupport
