// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// An appender that does nothing.
inline void quietAppender(const std::string& /*_log*/, const std::string& /*_message*/) {}

}  // namespace testsupport
