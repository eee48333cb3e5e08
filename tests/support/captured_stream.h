// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <mutex>
#include <ostream>
#include <streambuf>
#include <string>

namespace testsupport {

/// While it lives, captures what any thread inserts into a stream (std::cout or std::cerr) instead of writing it.
/// Construct and destroy it while no other thread uses the stream; its functions may be called on any thread.
class CapturedStream : private std::streambuf {
 public:
  explicit CapturedStream(std::ostream& _stream) : stream_(_stream), former_(_stream.rdbuf(this)) {}
  ~CapturedStream() override { stream_.rdbuf(former_); }
  CapturedStream(const CapturedStream&) = delete;
  CapturedStream& operator=(const CapturedStream&) = delete;

  /// Everything inserted so far.
  std::string text() const;

  /// How often the text occurs in everything inserted so far.
  int count(const std::string& _text) const;

  /// Waits at most 30 s until the text occurs that often.
  /// @return whether it does.
  bool waitFor(const std::string& _text, int _times = 1) const;

 private:
  int_type overflow(int_type _character) override;
  std::streamsize xsputn(const char* _characters, std::streamsize _number) override;

  std::ostream& stream_;
  std::streambuf* former_;
  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  std::string text_;
};

}  // namespace testsupport
