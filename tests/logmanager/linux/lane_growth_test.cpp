// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <string>
#include <utility>

#include "logmanager/appenders/lane.h"

// Memory that is given back is overwritten at once, and the consumer goes on whenever the lane is about to copy.

namespace {

std::function<void()> beforeCopy;

}  // namespace

void* operator new[](std::size_t _size, std::align_val_t _alignment) {
  const auto alignment = static_cast<std::size_t>(_alignment);
  if (void* const memory = std::aligned_alloc(alignment, (_size + alignment - 1) / alignment * alignment))
    return memory;
  throw std::bad_alloc();
}

void operator delete[](void* _memory, std::align_val_t /*_alignment*/) noexcept {
  if (_memory == nullptr) return;
  std::memset(_memory, '#', ::malloc_usable_size(_memory));
  std::free(_memory);
}

namespace std {

void* copyAfterTheConsumer(void* _to, const void* _from, size_t _size) {
  if (beforeCopy) beforeCopy();
  return memmove(_to, _from, _size);
}

}  // namespace std

// The copies of the lane itself, and only these, go through the function above.
#define memmove copyAfterTheConsumer
#define memcpy copyAfterTheConsumer
#include "logmanager/appenders/lane.cpp"
#undef memcpy
#undef memmove

namespace {

using boost::logging::detail::HeldBytes;
using boost::logging::detail::Lane;
using boost::logging::detail::Record;

TEST(LaneGrowth, KeepsAnUnfinishedTextWhenTheConsumerIsJustBehind) {
  HeldBytes held(std::size_t{1024} * 1024);
  Lane* const lane = Lane::create(held);
  ASSERT_TRUE(lane->makeRoom(3000));
  std::memset(lane->textBegin(), 'x', 3000);
  lane->publish(1, 0, nullptr, nullptr, 3000);
  ASSERT_TRUE(lane->makeRoom(256));
  std::memcpy(lane->textBegin(), "begun", 5);
  bool hasGoneOn = false;
  beforeCopy = [&] {
    hasGoneOn = true;
    while (const Record* const record = lane->peek())
      lane->pass(*record);
    lane->consume();
  };
  ASSERT_TRUE(lane->makeMoreRoom(5, 5000));
  beforeCopy = nullptr;
  EXPECT_TRUE(hasGoneOn);
  EXPECT_EQ(std::string(lane->textBegin(), 5), "begun");
  lane->release();
  lane->release();
}

}  // namespace
