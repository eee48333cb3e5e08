// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace testsupport {

/// The bytes that operator new of this program has given out and not got back. Linking the source of this header
/// replaces the operators.
std::size_t memoryInUse();

}  // namespace testsupport
