// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace platform {

/// Memory that this process shows under its process id, to tools of the same user: on Linux the file
/// /dev/shm/qmrk-<effective user id>/apps/<process id>, in folders that must belong to the user with mode 0700, on
/// Windows the section Local\QMRK_LOG_STATUS.<process id>. Its space is taken at the beginning, so that writing to it
/// cannot fail. One thread at a time may use an object. No function is a cancellation point of a thread or waits for
/// another process.
class StatusMapping {
 public:
  struct Form {
    std::size_t size;
    /// Where the 8 bytes of platform::processNamespace() stand.
    std::size_t namespaceOffset;
  };

  /// Makes the memory, all zeros, and on Linux removes what killed processes of the user have left there. Tools find it
  /// after show().
  /// @return null on failure; nothing is left behind then.
  static std::unique_ptr<StatusMapping> create(const Form& _form);

  /// Removes the page from where tools find it, unless another one has taken its place.
  ~StatusMapping();
  StatusMapping(const StatusMapping&) = delete;
  StatusMapping& operator=(const StatusMapping&) = delete;

  /// Lets tools find the memory, in place of what an earlier process of the same id has left.
  /// @return whether they can.
  bool show();

  /// The memory. Tools read it at any time.
  std::uint64_t* words() const { return words_; }

  /// Whether tools still find it; true as well when that cannot be found out.
  bool isInPlace() const;

  /// For a forked child, whose parent's memory it is: leaves it where it is. Only to be destroyed afterwards.
  void abandon() { path_.clear(); }

 private:
  StatusMapping() = default;

  std::uint64_t* words_ = nullptr;
  std::size_t size_ = 0;
  /// Linux: the name that it has now.
  std::string path_;
  std::uint64_t volume_ = 0;
  std::uint64_t file_ = 0;
  /// Windows.
  void* section_ = nullptr;
};

}  // namespace platform
