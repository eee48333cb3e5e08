// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>

#include "tests/stress/linux/numbered_line.h"

namespace stress {

/// What a check of the logs has found.
struct Tally {
  std::int64_t written = 0;     ///< statements that were begun
  std::int64_t found = 0;       ///< lines that are there whole, each counted once
  std::int64_t lost = 0;        ///< lines that are not there, though their statement had returned
  std::int64_t torn = 0;        ///< lines of which a part is there
  std::int64_t duplicated = 0;  ///< lines that are there once more
  std::int64_t glued = 0;       ///< lines of the file that hold more than one, or parts of them
  std::int64_t disordered = 0;  ///< lines that stand before an earlier one of their writer
};

std::ostream& operator<<(std::ostream& _stream, const Tally& _tally);

/// Knows what writers have written. Forked children share it, and what they have noted stays when they are killed.
/// A writer's numbers count from 0. One thread at a time may be a writer.
class Oracle {
 public:
  explicit Oracle(std::uint32_t _writers);
  ~Oracle();
  Oracle(const Oracle&) = delete;
  Oracle& operator=(const Oracle&) = delete;

  /// The text of the writer's next line, which counts as written.
  std::string next(std::uint32_t _writer, std::size_t _fillerSize);

  /// To be called when the statement that logs it has returned.
  void acknowledge(std::uint32_t _writer);

  /// How many lines were acknowledged, of one writer or of all.
  std::int64_t acknowledged(std::uint32_t _writer) const;
  std::int64_t acknowledged() const;

  /// Compares what was noted with the text of all logs, in the order in which they were written.
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
