// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>

#include "platform/handle.h"

namespace platform {

/// What a handle can stand for. An object lives as long as a handle stands for it or a call uses it.
class HandleTarget {
 public:
  HandleTarget() = default;
  virtual ~HandleTarget() = default;
  HandleTarget(const HandleTarget&) = delete;
  HandleTarget& operator=(const HandleTarget&) = delete;

  /// Called before the handle is closed that a thread had opened and not closed when it was terminated.
  virtual void outliveOwner() {}
};

/// The open handles of the process.
class HandleTable {
 public:
  /// The one table; never destroyed, since threads go on while the process exits.
  static HandleTable& instance();

  /// Gives the object a handle. _owner is any address that removeOwnedBy is to be called with, or null.
  Handle insert(std::shared_ptr<HandleTarget> _target, const void* _owner);

  /// The object of a handle, null when it is not open or stands for an object of another class.
  template <class Target>
  std::shared_ptr<Target> find(Handle _handle) {
    return std::dynamic_pointer_cast<Target>(findAny(_handle));
  }
  std::shared_ptr<HandleTarget> findAny(Handle _handle);

  bool remove(Handle _handle);
  /// For a thread that was terminated: closes what it has left open.
  void removeOwnedBy(const void* _owner);

  /// How many handles are open.
  std::size_t size();

  /// For fork: keeps the table as it is meanwhile; in the child forgets all handles, without touching their objects,
  /// which threads that the child does not have were perhaps using.
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
