// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace testsupport {

/// The slot of a virtual function in the table of its class, counted from 0; a destructor takes two. In the C++ ABI of
/// g++ and clang on x86-64, on Windows too, a pointer to a virtual member begins with its offset plus 1.
template <class Member>
std::size_t virtualSlot(Member _member) {
  std::uintptr_t offset = 0;
  static_assert(sizeof _member == 2 * sizeof offset);
  std::memcpy(&offset, &_member, sizeof offset);
  return (offset - 1) / sizeof(void*);
}

}  // namespace testsupport
