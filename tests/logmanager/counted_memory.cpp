// SPDX-License-Identifier: MIT
#include "tests/logmanager/counted_memory.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <thread>
#include <utility>

namespace {

constinit std::atomic<std::size_t> inUse{0};

/// Before every block lies its size, and its beginning where that has to be aligned.
struct Header {
  std::size_t size;
  void* begin;
};

thread_local constinit testsupport::HeldAllocation* held = nullptr;

thread_local constinit int untilFailure = -1;
thread_local constinit bool hasFailed = false;

void failIfDue() {
  if (untilFailure < 0 || untilFailure-- != 0) return;
  hasFailed = true;
  throw std::bad_alloc();
}

void waitIfHeld() {
  if (held == nullptr || held->after-- != 0) return;
  held->isHeld = true;
  while (!held->isReleased)
    std::this_thread::yield();
}

void* allocate(std::size_t _size, std::size_t _alignment) {
  failIfDue();
  waitIfHeld();
  void* const begin = std::malloc(_size + _alignment + sizeof(Header));
  if (begin == nullptr) throw std::bad_alloc();
  const auto lowest = reinterpret_cast<std::size_t>(begin) + sizeof(Header);
  const std::size_t place = (lowest + _alignment - 1) / _alignment * _alignment;
  new (reinterpret_cast<void*>(place - sizeof(Header))) Header{_size, begin};
  inUse.fetch_add(_size, std::memory_order_relaxed);
  return reinterpret_cast<void*>(place);
}

void release(void* _block) {
  if (_block == nullptr) return;
  const auto* const header = reinterpret_cast<Header*>(reinterpret_cast<std::size_t>(_block) - sizeof(Header));
  inUse.fetch_sub(header->size, std::memory_order_relaxed);
  std::free(header->begin);
}

}  // namespace

namespace testsupport {

std::size_t memoryInUse() { return inUse.load(std::memory_order_relaxed); }

void holdAllocation(HeldAllocation* _held) { held = _held; }

bool failAllocation(int _after) {
  untilFailure = _after;
  return std::exchange(hasFailed, false);
}

}  // namespace testsupport

void* operator new(std::size_t _size) { return allocate(_size, alignof(std::max_align_t)); }
void* operator new(std::size_t _size, std::align_val_t _alignment) {
  return allocate(_size, static_cast<std::size_t>(_alignment));
}
void* operator new(std::size_t _size, const std::nothrow_t&) noexcept {
  try {
    return allocate(_size, alignof(std::max_align_t));
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* _block) noexcept { release(_block); }
void operator delete(void* _block, const std::nothrow_t&) noexcept { release(_block); }
void operator delete(void* _block, std::size_t) noexcept { release(_block); }
void operator delete(void* _block, std::align_val_t) noexcept { release(_block); }
void operator delete(void* _block, std::size_t, std::align_val_t) noexcept { release(_block); }
