// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace boost::logging::detail {

/// Objects that were replaced while readers may still hold them. Not synchronised.
template <typename T>
class RetiredObjects {
 public:
  /// To be called after the published pointer has been replaced.
  /// @param _object may be null.
  void add(std::unique_ptr<T> _object) {
    if (_object) objects_.push_back(std::move(_object));
  }

  /// Takes out those that no reader of the pool can hold, for the caller to destroy where it holds no lock.
  template <typename Pool>
  std::vector<std::unique_ptr<T>> takeUnused(const Pool& _pool) {
    std::vector<std::unique_ptr<T>> unused;
    std::vector<std::unique_ptr<T>> used;
    for (std::unique_ptr<T>& object : objects_) {
      (_pool.mayHold(object.get()) ? used : unused).push_back(std::move(object));
    }
    objects_ = std::move(used);
    return unused;
  }

  std::size_t size() const { return objects_.size(); }

 private:
  std::vector<std::unique_ptr<T>> objects_;
};

}  // namespace boost::logging::detail
