// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <vector>

namespace boost::logging::detail {

/// Objects that were replaced while readers may still hold them. Not synchronised.
template <typename T>
class RetiredObjects {
 public:
  /// To be called before published pointers are replaced, so that add() cannot fail then. May throw std::bad_alloc.
  void makeRoom(std::size_t _count = 1) {
    const std::size_t needed = objects_.size() + _count;
    if (needed > objects_.capacity()) objects_.reserve(std::max(needed, 2 * objects_.size() + 1));
  }

  /// To be called after the published pointer has been replaced.
  /// @param _object may be null.
  void add(std::unique_ptr<T> _object) noexcept {
    if (_object) objects_.push_back(std::move(_object));
  }

  /// Takes out those that no reader of the pool can hold, for the caller to destroy where it holds no lock.
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
