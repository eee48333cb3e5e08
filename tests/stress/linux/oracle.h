// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>

#include "tests/stress/linux/numbered_line.h"

namespace stress {

/// What a check of the logs found.
struct Tally {
  std::int64_t written = 0;     ///< statements that began
  std::int64_t found = 0;       ///< complete lines, each counted once
  std::int64_t lost = 0;        ///< missing lines whose statement had returned
  std::int64_t torn = 0;        ///< lines of which only a part is there
  std::int64_t duplicated = 0;  ///< further copies of lines
  std::int64_t glued = 0;       ///< lines of the file that hold more than one, or parts of them
  std::int64_t disordered = 0;  ///< lines that stand before an earlier one of their writer
};

std::ostream& operator<<(std::ostream& _stream, const Tally& _tally);

/// Knows what writers have written. Forked children share it, and their notes survive their death. A writer's numbers
/// count from 0. One thread at a time may be a writer.
class Oracle {
 public:
  explicit Oracle(std::uint32_t _writers);
  ~Oracle();
  Oracle(const Oracle&) = delete;
  Oracle& operator=(const Oracle&) = delete;

  /// The text of the writer's next line, which counts as written.
  std::string next(std::uint32_t _writer, std::size_t _fillerSize);

  /// Call it when the statement that logs it has returned.
  void acknowledge(std::uint32_t _writer);

  /// How many lines were acknowledged, of one writer or of all.
  std::int64_t acknowledged(std::uint32_t _writer) const;
  std::int64_t acknowledged() const;

  /// Compares the notes with the text of all logs, in the order in which they were written.
  Tally check(const std::string& _text) const;

 private:
  struct Writer {
    std::atomic<std::uint32_t> begun;
    std::atomic<std::uint32_t> returned;
  };

  std::uint32_t writerCount_;
  Writer* writers_;
};

}  // namespace stress
