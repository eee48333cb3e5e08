// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>

#include "platform/handle.h"

namespace platform {

/// What a handle can refer to. An object lives as long as a handle refers to it or a call uses it.
class HandleTarget {
 public:
  HandleTarget() = default;
  virtual ~HandleTarget() = default;
  HandleTarget(const HandleTarget&) = delete;
  HandleTarget& operator=(const HandleTarget&) = delete;

  /// Called before a handle is closed that a terminated thread had left open.
  virtual void outliveOwner() {}
};

/// The open handles of the process.
class HandleTable {
 public:
  /// The one table; never destroyed, since threads go on while the process exits.
  static HandleTable& instance();

  /// Gives the object a handle. _owner is the address that removeOwnedBy will be called with, or null.
  Handle insert(std::shared_ptr<HandleTarget> _target, const void* _owner);

  /// The object of a handle; null when the handle is not open or refers to an object of another class.
  template <class Target>
  std::shared_ptr<Target> find(Handle _handle) {
    return std::dynamic_pointer_cast<Target>(findAny(_handle));
  }
  std::shared_ptr<HandleTarget> findAny(Handle _handle);

  bool remove(Handle _handle);
  /// For a terminated thread: closes what it has left open.
  void removeOwnedBy(const void* _owner);

  /// How many handles are open.
  std::size_t size();

  /// For fork: holds the table during it. The child forgets all handles without touching their objects, which threads
  /// that it does not have may have been using.
  void lock() { mutex_.lock(); }
  void unlock() { mutex_.unlock(); }
  void forgetAll() noexcept { forgotten_.merge(entries_); }

 private:
  struct Entry {
    std::shared_ptr<HandleTarget> target;
    const void* owner;
  };

  HandleTable() = default;

  std::mutex mutex_;
  std::map<Handle, Entry> entries_;
  std::map<Handle, Entry> forgotten_;
  std::uintptr_t latest_ = 0;
};

}  // namespace platform
