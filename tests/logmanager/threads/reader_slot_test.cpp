// SPDX-License-Identifier: MIT
#include "logmanager/threads/reader_slot.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>

#include "logmanager/threads/slot_pool.h"

namespace {

using boost::logging::detail::ReaderSlot;
using boost::logging::detail::RetiredObjects;
using boost::logging::detail::SlotPool;

/// A published pointer that is replaced at a moment of the test's choice: right after a reader has loaded it for the
/// n-th time.
class ReplacedAfterLoad {
 public:
  ReplacedAfterLoad(const int* _first, int _nth, const std::function<const int*()>& _replace)
      : pointer_(_first), loadsLeft_(_nth), replace_(_replace) {}

  const int* load(std::memory_order _order) const {
    const int* const loaded = pointer_.load(_order);
    if (--loadsLeft_ == 0) pointer_ = replace_();
    return loaded;
  }

 private:
  mutable std::atomic<const int*> pointer_;
  mutable int loadsLeft_;
  std::function<const int*()> replace_;
};

TEST(ReaderSlot, HoldsTheNewObjectAfterAReplacementBeforeItShowsTheOldOne) {
  const int former = 1;
  const int current = 2;
  ReaderSlot slot;
  bool isFormerInUse = true;
  const ReplacedAfterLoad published(&former, 1, [&] {
    // The replacing thread finds no slot that shows the former object, and frees it.
    isFormerInUse = slot.mayHold(&former);
    return &current;
  });
  const int* held = nullptr;
  ASSERT_TRUE(slot.tryHold(published, held));
  EXPECT_FALSE(isFormerInUse);
  EXPECT_EQ(held, &current);
  EXPECT_TRUE(slot.mayHold(&current));
}

TEST(ReaderSlot, HoldsTheNewObjectAfterAReplacementBeforeATakenSlotShowsTheOldOne) {
  const int former = 1;
  const int current = 2;
  ReaderSlot slot;
  slot.take();
  bool isFormerInUse = true;
  const ReplacedAfterLoad published(&former, 1, [&] {
    isFormerInUse = slot.mayHold(&former);
    return &current;
  });
  EXPECT_EQ(slot.hold(published), &current);
  EXPECT_FALSE(isFormerInUse);
  EXPECT_TRUE(slot.mayHold(&current));
}

TEST(ReaderSlot, KeepsTheOldObjectThatItShowsDuringAReplacement) {
  const int former = 1;
  const int current = 2;
  ReaderSlot slot;
  bool isFormerInUse = false;
  // The second load is the one that makes sure.
  const ReplacedAfterLoad published(&former, 2, [&] {
    isFormerInUse = slot.mayHold(&former);
    return &current;
  });
  const int* held = nullptr;
  ASSERT_TRUE(slot.tryHold(published, held));
  EXPECT_EQ(held, &former);
  EXPECT_TRUE(isFormerInUse);
  slot.leave();
  EXPECT_FALSE(slot.mayHold(&former));
}

TEST(ReaderSlot, CannotBeTakenTwice) {
  const int object = 1;
  const std::atomic<const int*> published{&object};
  ReaderSlot slot;
  const int* held = nullptr;
  ASSERT_TRUE(slot.tryHold(published, held));
  EXPECT_FALSE(slot.tryHold(published, held));
}

TEST(SlotPool, KeepsARetiredObjectUntilItsLastReaderLeaves) {
  // A pool is never destroyed.
  static constinit SlotPool<ReaderSlot> pool;
  RetiredObjects<const int> retired;
  auto object = std::make_unique<const int>(1);
  const std::atomic<const int*> published{object.get()};
  const int* held = nullptr;
  ReaderSlot& one = pool.hold(published, held);
  ReaderSlot& other = pool.hold(published, held);
  retired.makeRoom();
  retired.add(std::move(object));
  EXPECT_TRUE(retired.takeUnused(pool).empty());
  one.leave();
  EXPECT_TRUE(retired.takeUnused(pool).empty());
  other.leave();
  EXPECT_EQ(retired.takeUnused(pool).size(), 1U);
  EXPECT_EQ(retired.size(), 0U);
}

}  // namespace
