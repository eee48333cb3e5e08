// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace boost::logging::detail {

/// The reader slots of one kind of object (ReaderSlot or a class derived from it). Never destroyed; has as many slots
/// as were in use at the same time. Any threads may call all functions at once; none takes a lock.
template <typename Slot>
class SlotPool {
 public:
  constexpr SlotPool() = default;
  SlotPool(const SlotPool&) = delete;
  SlotPool& operator=(const SlotPool&) = delete;

  /// Holds the published object, or null, in a slot that was free. May throw std::bad_alloc.
  template <typename T>
  Slot& hold(const std::atomic<T*>& _published, T*& _object) {
    for (Node* node = first_.load(std::memory_order_acquire); node != nullptr; node = node->next) {
      if (node->slot.tryHold(_published, _object)) return node->slot;
    }
    Slot& slot = addSlot();
    _object = slot.hold(_published);
    return slot;
  }

  /// Calls _visit(Slot&) for each slot. Call it while no other thread uses the pool.
  template <typename Visit>
  void forEach(Visit _visit) {
    for (Node* node = first_.load(std::memory_order_relaxed); node != nullptr; node = node->next)
      _visit(node->slot);
  }

  /// Whether a reader may be using the object, whose published pointer has been replaced.
  bool mayHold(const void* _object) const {
    for (Node* node = first_.load(std::memory_order_seq_cst); node != nullptr; node = node->next) {
      if (node->slot.mayHold(_object)) return true;
    }
    return false;
  }

 private:
  struct Node {
    Slot slot;
    Node* next = nullptr;
  };

  Slot& addSlot() {
    Node* const node = new Node;
    node->slot.take();
    node->next = first_.load(std::memory_order_relaxed);
    while (!first_.compare_exchange_weak(node->next, node, std::memory_order_seq_cst, std::memory_order_relaxed)) {
    }
    return node->slot;
  }

  std::atomic<Node*> first_{nullptr};
};

/// Objects that were replaced while readers may still hold them. Not synchronised.
template <typename T>
class RetiredObjects {
 public:
  /// Call it before replacing published pointers, so that add() cannot fail then. May throw std::bad_alloc.
  void makeRoom(std::size_t _count = 1) {
    const std::size_t needed = objects_.size() + _count;
    if (needed > objects_.capacity()) objects_.reserve(std::max(needed, 2 * objects_.size() + 1));
  }

  /// Call it after replacing the published pointer.
  /// @param _object may be null.
  void add(std::unique_ptr<T> _object) noexcept {
    if (_object) objects_.push_back(std::move(_object));
  }

  /// Takes out those that no reader of the pool can hold, for the caller to destroy without holding a lock.
  template <typename Pool>
  std::vector<std::unique_ptr<T>> takeUnused(const Pool& _pool) {
    const auto unusedBegin = std::partition(objects_.begin(), objects_.end(), [&_pool](const std::unique_ptr<T>& _one) {
      return _pool.mayHold(_one.get());
    });
    std::vector<std::unique_ptr<T>> unused(std::make_move_iterator(unusedBegin),
                                           std::make_move_iterator(objects_.end()));
    objects_.erase(unusedBegin, objects_.end());
    return unused;
  }

  std::size_t size() const { return objects_.size(); }

 private:
  std::vector<std::unique_ptr<T>> objects_;
};

}  // namespace boost::logging::detail
