// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "boost/logging/logging.hpp"
#include "logmanager/threads/thread_state.h"

namespace testsupport {

/// Writes as a message logged so many milliseconds after the first.
inline void writeAt(const boost::logging::write_to_file& _file, std::int64_t _milliseconds,
                    const std::string& _message) {
  const boost::logging::detail::MessageScope scope(boost::logging::detail::threadState(),
                                                   1795255200000 + _milliseconds);
  _file("App", _message);
}

}  // namespace testsupport
