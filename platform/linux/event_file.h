// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

#include "platform/errors.h"
#include "platform/linux/event_folder.h"
#include "platform/linux/file_descriptor.h"

namespace platform {

/// One use of a named event: the file in the user's folder that holds the word of the event, open, locked and mapped.
///
/// Two bytes of the file carry locks. A user of the event holds a shared lock on the byte of the users. Whoever joins
/// or leaves holds, for some microseconds, an exclusive lock on the byte of the gate. Inside the gate an exclusive lock
/// on the users' byte is available exactly when nobody uses the event: whoever gets it on joining recreates the event,
/// whoever gets it on leaving removes the file. Both locks end with a killed process; what it has left half done then
/// belongs to nobody, and is recreated. Without the gate, a process killed while it recreates the event would leave the
/// former state to those who wait for its lock.
///
/// A process can be stopped inside the gate, so nobody waits for it longer than 100 ms, and holds no lock of its own
/// process meanwhile. Whoever has waited in vain bypasses the gate: it shares the users' byte, or, if that is locked
/// exclusively, leaves the file to the one inside and begins another.
class EventFile {
 public:
  enum class Joining { createOrOpen, openOnly };

  struct Joined {
    std::shared_ptr<EventFile> file;  ///< null on failure
    bool existed = false;
    ErrorCode error = noError;  ///< errorFileNotFound when nobody uses the event (openOnly)
  };

  /// Becomes a user of the event, waiting a moment for others to pass the gate. Recreates a folder or file that is
  /// removed meanwhile.
  static Joined join(const std::string& _name, Joining _joining, const EventFolder& _folder = ownEventFolder());

  /// Leaves the event; the last user removes the file.
  ~EventFile();
  EventFile(const EventFile&) = delete;
  EventFile& operator=(const EventFile&) = delete;

  const std::string& name() const { return name_; }
  std::uint32_t* word() const { return word_; }

  /// Whether the path still names this file, and the application has not closed it, as a daemon closes all numbers;
  /// true as well when that cannot be found out.
  bool isInPlace() const;

  /// For fork: keeps the process from joining or leaving any file during it. The child closes its copies, so that it
  /// does not count as a user, and forgets them. Only what prepareForForks makes takes memory.
  static void prepareForForks();
  static void lockAll();
  static void unlockAll();
  static void abandonAll();

  /// The next one in the list of the events that are kept.
  std::shared_ptr<EventFile> nextKept;

 private:
  enum class Step { joined, again, failed };

  EventFile(const std::string& _name, const EventFolder& _folder);
  Step tryToJoin(Joining _joining, bool& _existed);
  Step open(Joining _joining);
  bool passGate(std::unique_lock<std::mutex>& _lock);
  Step enter(Joining _joining, bool& _existed);
  Step enterBesideGate(std::unique_lock<std::mutex>& _lock, Joining _joining, bool& _existed);
  Step becomeFirst();
  Step becomeFurther();
  bool map();
  bool isAtPath() const;
  bool isStillOpen() const;
  void takeNumber();
  void closeFile();
  void leave(std::unique_lock<std::mutex>& _lock);

  std::string name_;
  EventFolder folder_;
  std::string path_;
  FileDescriptor file_;
  // Of the file.
  dev_t volume_ = 0;
  ino_t inode_ = 0;
  std::uint32_t* word_ = nullptr;
};

}  // namespace platform
