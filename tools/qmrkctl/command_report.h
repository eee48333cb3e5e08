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

/// What a command tells: its results on standard output, as text or, with --json, as one object at its end; its
/// messages on standard error. Texts of a result that come from outside are passed through shown() by who makes the
/// line. For one thread.
class Report {
 public:
  explicit Report(const Options& _options);

  /// Adds a line, given without its line end, to the result in text form. Nothing is shown with --json or --quiet.
  void line(std::string_view _text);

  /// The same, only with --verbose.
  void detail(std::string_view _text);

  /// Bytes of the result in text form as they are, for logs that are passed on.
  void bytes(std::string_view _text);

  /// A line on standard error, which begins with "qmrkctl: ". Shown with every option.
  static void message(std::string_view _text);

  /// Records a finding and shows it in text form.
  void add(const Finding& _finding);

  /// The text between escape sequences of its style, where the result goes to a terminal or colour is asked for.
  std::string painted(std::string_view _text, Style _style) const;

  const std::vector<Finding>& findings() const { return findings_; }

  /// What the key "result" holds with --json.
  Json& result() { return result_; }

  /// Whether results can still be written; false when the reader of the pipe has gone or the disk is full.
  bool isWritable() const { return writeError_ == 0; }

  /// Writes what is left, with --json the object.
  /// @param _command as in its schema, like "classes".
  /// @return the exit code to end with: _exitCode, or exitInternal when the results could not be written and their
  ///   reader is still there.
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
