// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace Quillmark_logging {

/// The trace line of the listener about the result of a wait, such as "--- LogEventHandler::Listen4EventThread()
/// WAIT_TIMEOUT (258)"; a result without a name is called "default".
std::string waitResultLine(std::uint32_t _result);

}  // namespace Quillmark_logging
