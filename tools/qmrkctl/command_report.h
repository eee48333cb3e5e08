// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/qmrkctl/common_options.h"
#include "tools/qmrkctl/finding.h"
#include "tools/qmrkctl/json.h"

namespace qmrkctl {

enum class Style { plain, good, bad, doubtful, faint, strong };

/// What a command reports: results on standard output, as text or, with --json, as one object at the end; messages on
/// standard error. The caller passes text from outside through shown(), except in findings. For one thread.
class Report {
 public:
  /// @param _options must outlive the report.
  explicit Report(const Options& _options);

  /// Prints a line of the result, given without its line end; nothing with --json or --quiet.
  void line(std::string_view _text);

  /// The same, only with --verbose.
  void detail(std::string_view _text);

  /// Prints bytes of the result as they are, for lines of logs; nothing with --json or --quiet.
  void bytes(std::string_view _text);

  /// Prints "qmrkctl: " and a line on standard error, whatever the options are.
  static void message(std::string_view _text);

  /// Records a finding for the object and prints it as text.
  void add(const Finding& _finding);

  /// The text with the escape sequences of its style, if the result goes to a terminal or colour was requested.
  std::string painted(std::string_view _text, Style _style) const;

  const std::vector<Finding>& findings() const { return findings_; }

  /// The value of the key "result".
  Json& result() { return result_; }

  /// Whether results can still be written: false once the pipe's reader has gone or the disk is full.
  bool isWritable() const { return writeError_ == 0; }

  /// Ends the report: with --json, prints the object.
  /// @param _command as in its schema, like "classes".
  /// @return the exit code: _exitCode, or exitInternal if the results could not be written although their reader is
  ///   still there.
  int finish(std::string_view _command, int _exitCode);

 private:
  void write(std::string_view _text);

  const Options& options_;
  bool isColored_;
  int writeError_ = 0;
  std::vector<Finding> findings_;
  Json result_ = Json::object();
};

}  // namespace qmrkctl
