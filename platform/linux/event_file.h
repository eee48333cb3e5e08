// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

#include "platform/errors.h"
#include "platform/linux/file_descriptor.h"

namespace platform {

/// One use of a named event: the file in the user's folder that holds the word of the event, open, locked and mapped.
///
/// Two bytes of the file carry locks. Who uses the event has a shared lock on the byte of the users. Who joins or
/// leaves has, for these few microseconds, an exclusive lock on the byte of the gate. Inside the gate an exclusive lock
/// on the users' byte can be had exactly when nobody uses the event: who gets it in joining makes the event anew, who
/// gets it in leaving removes the file. Both locks end with a killed process; what it has left half done is then
/// nobody's, and made anew. Without the gate a process killed while it makes the event anew would leave the state
/// before it to those who wait for its lock.
///
/// A process can be stopped inside the gate, so nobody waits for it longer than 100 ms, and no lock of the process is
/// held meanwhile. Who has waited in vain goes on beside the gate: it shares the users' byte, or, when that is locked
/// exclusively, leaves the file to the one who stands there and begins another.
class EventFile {
 public:
  enum class Joining { createOrOpen, openOnly };

  struct Joined {
    std::shared_ptr<EventFile> file;  ///< null on failure
    bool existed = false;
    ErrorCode error = noError;  ///< errorFileNotFound when nobody uses the event (openOnly)
  };

  /// Becomes a user of the event, waiting a moment for others to pass the gate. A folder or file that is removed
  /// meanwhile is created again.
  static Joined join(const std::string& _name, Joining _joining);

  /// Leaves the event; the last user removes the file.
  ~EventFile();
  EventFile(const EventFile&) = delete;
  EventFile& operator=(const EventFile&) = delete;

  std::uint32_t* word() const { return word_; }

  /// Whether the path still names this file; true as well when that cannot be told.
  bool isInPlace() const;

  /// For fork: keeps every file of the process from being joined or left meanwhile; in the child closes its copies,
  /// so that it does not count as a user, and forgets them.
  static void lockAll();
  static void unlockAll();
  static void abandonAll();

 private:
  enum class Step { joined, again, failed };

  explicit EventFile(const std::string& _name);
  Step tryToJoin(Joining _joining, bool& _existed);
  Step open(Joining _joining);
  bool passGate(std::unique_lock<std::mutex>& _lock);
  Step enter(Joining _joining, bool& _existed);
  Step enterBesideGate(std::unique_lock<std::mutex>& _lock, Joining _joining, bool& _existed);
  Step becomeFirst();
  Step becomeFurther();
  bool map();
  void leave(std::unique_lock<std::mutex>& _lock);

  std::string name_;
  std::string path_;
  FileDescriptor file_;
  std::uint32_t* word_ = nullptr;
};

}  // namespace platform
