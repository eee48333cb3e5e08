// SPDX-License-Identifier: MIT
#include "tests/config/scarce_memory.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

// Requests until the one that fails, which is when it comes to 0; negative while none is to fail.
constinit thread_local int requestsLeft = -1;

}  // namespace

namespace testsupport {

ScarceMemory::ScarceMemory(int _nth) { requestsLeft = _nth; }

ScarceMemory::~ScarceMemory() { requestsLeft = -1; }

void ScarceMemory::failNext() { requestsLeft = 1; }

bool ScarceMemory::hasFailed() const { return requestsLeft <= 0; }

}  // namespace testsupport

void* operator new(std::size_t _size) {
  void* const block = requestsLeft > 0 && --requestsLeft == 0 ? nullptr : std::malloc(_size == 0 ? 1 : _size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
void operator delete(void* _block) noexcept { std::free(_block); }
void operator delete(void* _block, std::size_t) noexcept { std::free(_block); }
