// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace testsupport {

/// A forked child that holds the event QMRK_LOG_EVENT and, where it has the names of applications, shows a status page.
/// It sleeps until the object ends.
class SleepingListener {
 public:
  struct Settings {
    unsigned int userId = 0;        ///< as which it runs; 0: the test's own
    bool hasPrivateMemory = false;  ///< a /dev/shm of its own
    std::vector<std::string> applications;
  };

  /// Returns when the child holds the event.
  explicit SleepingListener(const Settings& _settings);
  ~SleepingListener();
  SleepingListener(const SleepingListener&) = delete;
  SleepingListener& operator=(const SleepingListener&) = delete;

  pid_t pid() const { return process_; }

 private:
  pid_t process_ = -1;
};

}  // namespace testsupport
