// SPDX-License-Identifier: MIT
#include "tests/config/scarce_memory.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

// Requests until the one that fails, which is when it comes to 0; negative while none is to fail.
constinit thread_local int requestsLeft = -1;

constinit std::atomic<std::size_t> bytesInUse{0};
constinit std::atomic<std::size_t> mostBytesInUse{0};

// A block begins with its size, and keeps the alignment of malloc.
constexpr std::size_t headSize = alignof(std::max_align_t);

void count(std::size_t _size) {
  const std::size_t inUse = bytesInUse.fetch_add(_size) + _size;
  std::size_t most = mostBytesInUse.load();
  while (inUse > most && !mostBytesInUse.compare_exchange_weak(most, inUse)) {
  }
}

void release(void* _block) {
  if (_block == nullptr) return;
  char* const head = static_cast<char*>(_block) - headSize;
  std::size_t size = 0;
  std::memcpy(&size, head, sizeof size);
  bytesInUse -= size;
  std::free(head);
}

}  // namespace

namespace testsupport {

ScarceMemory::ScarceMemory(int _nth) { requestsLeft = _nth; }

ScarceMemory::~ScarceMemory() { requestsLeft = -1; }

void ScarceMemory::failNext() { requestsLeft = 1; }

bool ScarceMemory::hasFailed() const { return requestsLeft <= 0; }

MemoryPeak::MemoryPeak() : before_(bytesInUse) { mostBytesInUse = before_; }

std::size_t MemoryPeak::bytes() const { return mostBytesInUse - before_; }

}  // namespace testsupport

void* operator new(std::size_t _size) {
  const bool fails = requestsLeft > 0 && --requestsLeft == 0;
  char* const head = fails ? nullptr : static_cast<char*>(std::malloc(headSize + _size));
  if (head == nullptr) throw std::bad_alloc();
  std::memcpy(head, &_size, sizeof _size);
  count(_size);
  return head + headSize;
}

// The other forms call that one, unless a sanitizer brings its own.

void* operator new(std::size_t _size, const std::nothrow_t& /*_tag*/) noexcept {
  try {
    return operator new(_size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void* operator new[](std::size_t _size) { return operator new(_size); }
void* operator new[](std::size_t _size, const std::nothrow_t& _tag) noexcept { return operator new(_size, _tag); }

void operator delete(void* _block) noexcept { release(_block); }
void operator delete(void* _block, std::size_t) noexcept { release(_block); }
void operator delete(void* _block, const std::nothrow_t& /*_tag*/) noexcept { release(_block); }
void operator delete[](void* _block) noexcept { release(_block); }
void operator delete[](void* _block, std::size_t) noexcept { release(_block); }
void operator delete[](void* _block, const std::nothrow_t& /*_tag*/) noexcept { release(_block); }
