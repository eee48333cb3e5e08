// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

namespace Quillmark_logging {

/// What the appenders share that one call after the other connects to one pattern and one file. A set-up replaces the
/// former appender while threads may be inside it, so for a moment two have the file open. They take turns, and each
/// learns whether another one has written, or rolled the file, since its own turn. All functions may be called from any
/// threads at once.
class FileSuccession {
 public:
  /// That of a file and a pattern; it lives as long as somebody keeps it.
  static std::shared_ptr<FileSuccession> of(const std::string& _path, const std::string& _pattern);

  FileSuccession() = default;
  FileSuccession(const FileSuccession&) = delete;
  FileSuccession& operator=(const FileSuccession&) = delete;

  /// Tells one appender from the others.
  std::uint64_t newMember() { return latestMember_.fetch_add(1, std::memory_order_relaxed) + 1; }

  /// A member's turn, while it lives.
  class Turn {
   public:
    /// Waits until no other member has a turn. A turn of a thread that does not exist in this process, which was forked
    /// meanwhile, is over; so is one that lasts two seconds.
    Turn(FileSuccession& _succession, std::uint64_t _member);
    ~Turn();
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    /// Whether another member had the latest turn.
    bool followsAnother() const { return followsAnother_; }

    /// Whether the turn before this one was broken off, whoever had it.
    bool followsBroken() const { return followsBroken_; }

   private:
    FileSuccession& succession_;
    bool followsBroken_;
    bool followsAnother_;
  };

 private:
  /// @return false when the latest holder did not give it back.
  bool lock();
  void unlock() { holder_.store(0, std::memory_order_release); }

  /// The process whose thread has a turn, by a number that differs from that of every process it was forked from; 0
  /// when there is none.
  std::atomic<std::uint64_t> holder_{0};
  std::atomic<std::uint64_t> latestMember_{0};
  /// The member that had the latest turn; 0 before the first.
  std::atomic<std::uint64_t> latestWriter_{0};
};

}  // namespace Quillmark_logging
