// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>

#include "logmanager/threads/retired_objects.h"
#include "platform/append_file.h"

namespace boost::logging::detail {

struct ThreadState;

/// A log file that threads and processes share, and that stays usable whatever happens to it: opened by the first
/// message, made anew when it is gone from its path, tried again after a failure. All functions may be called from any
/// thread at once. As long as all goes well a message takes no lock and costs one call of the system.
class SharedAppendFile {
 public:
  /// @param _overwrite whether the first opening empties the file.
  SharedAppendFile(const std::string& _path, bool _overwrite);
  ~SharedAppendFile();
  SharedAppendFile(const SharedAppendFile&) = delete;
  SharedAppendFile& operator=(const SharedAppendFile&) = delete;

  /// @param _thread the state of the calling thread.
  /// @param _now the wall clock, in milliseconds.
  void append(ThreadState& _thread, const std::string& _message, std::int64_t _now);

 private:
  /// What is to be repaired and told before the next message.
  struct Trouble {
    /// The file ends in a piece of a message.
    bool isFragment = false;
    /// How many messages did not get into the file, and why the last one.
    std::uint64_t lost = 0;
    platform::ErrorCode error = platform::noError;

    std::string text() const;
    void noteResult(const std::string& _text, const platform::AppendFile::Result& _result);
  };

  bool isCheckDue(std::int64_t _now);
  bool appendToOpenFile(ThreadState& _thread, const std::string& _message);
  void check();
  void appendWithCare(const std::string& _message);
  bool openWhenGone();

  const std::string path_;
  /// Null while no file is open. What it pointed to before stays open as long as it is in use.
  std::atomic<platform::AppendFile*> file_{nullptr};
  /// Whether the next message has to take the lock, to open the file or because of trouble.
  std::atomic<bool> needsCare_{true};
  std::atomic<std::int64_t> checkedAt_{0};

  std::mutex lock_;
  bool isToEmpty_;
  bool isGone_ = true;
  Trouble trouble_;
  RetiredObjects<platform::AppendFile> retired_;
};

}  // namespace boost::logging::detail
