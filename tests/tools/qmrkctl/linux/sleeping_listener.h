// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace testsupport {

/// A forked child that holds the event QMRK_LOG_EVENT, sleeps, and does what it is set to until the object ends.
class SleepingListener {
 public:
  struct Settings {
    unsigned int userId = 0;        ///< as which it runs; 0: the test's own
    bool hasPrivateMemory = false;  ///< a /dev/shm of its own
    /// Names given to initDefaultLogs; with them it shows a status page.
    std::vector<std::string> applications;
    /// The class list that it applies at its start and whenever the event is set, showing what came of it on its page,
    /// with these logs. Empty: it sleeps on.
    std::string listPath;
    std::vector<std::string> logs;
    std::string ca = "CA12";    ///< shown on the page
    std::string commonLog;      ///< shown on the page
    bool replacesPage = false;  ///< shows each answer on a page that it makes again
  };

  /// Returns when the child holds the event and shows its page.
  explicit SleepingListener(const Settings& _settings);
  ~SleepingListener();
  SleepingListener(const SleepingListener&) = delete;
  SleepingListener& operator=(const SleepingListener&) = delete;

  pid_t pid() const { return process_; }

  /// SIGSTOP; returns when it is stopped.
  void stop() const;

 private:
  pid_t process_ = -1;
};

}  // namespace testsupport
