// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/errors.h"

namespace boost::logging::detail {

/// Counts messages that could not be written to a file, and reports them on the standard error stream: the first ones
/// at once, later ones together, at most once a minute for each file. May be called from any thread.
/// @param _path names the file; many writers of a file may use the same.
/// @param _error why the last one could not be written.
void reportLoss(const std::string& _path, std::uint64_t _count, platform::ErrorCode _error) noexcept;

}  // namespace boost::logging::detail
