// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qmrkctl {

/// Splits bytes that arrive in pieces into lines. Cuts lines that are too long to show, so that a file without line
/// ends needs no memory.
class LineSplitter {
 public:
  /// In bytes; a longer line ends with a note of how many bytes are missing.
  static constexpr std::size_t longestLine = std::size_t{64} * 1024;

  /// Calls _onLine(std::string) for each line that is now complete, without its line end (LF or CR LF).
  template <typename OnLine>
  void feed(std::string_view _bytes, OnLine _onLine) {
    for (std::size_t end = _bytes.find('\n'); end != std::string_view::npos; end = _bytes.find('\n')) {
      append(_bytes.substr(0, end));
      _onLine(takeLine());
      _bytes.remove_prefix(end + 1);
    }
    append(_bytes);
  }

  /// Whether it holds the beginning of an unfinished line.
  bool hasFragment() const { return !line_.empty() || cut_ > 0; }

  /// Takes that beginning as a line.
  std::string takeLine();

 private:
  void append(std::string_view _bytes);

  std::string line_;
  std::size_t cut_ = 0;
};

}  // namespace qmrkctl
