// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace logtest {

/// The options of the command line.
struct Options {
  /// Print the versions only, without a set-up.
  bool version = false;
  /// The CA, if the user gave one (it may be empty); otherwise the set-up chooses.
  bool hasCa = false;
  std::string ca;
  bool writeToCout = false;
  /// A class list. The last entry need not end with ";".
  std::string classes = "Demo.App.error;Demo.App.info;Demo.Net.error;Demo.Net.info;";
  /// Lines per class.
  int lines = 3;
  /// How many seconds to listen, instead of logging a number of lines.
  std::optional<double> listen;
  /// The name of an application that gets a log file of its own, and whether the file is emptied first.
  std::optional<std::string> app;
  bool overWrite = false;
  /// Process, thread and location before each line.
  bool stamps = false;
};

enum class Parsed { run, done, wrong };

/// Parses the command line. Prints help on standard output if requested, and mistakes on standard error.
/// @return run: the options are set; done: nothing is left to do; wrong: the command line is unusable.
Parsed parseOptions(int _argc, const char* const* _argv, Options& _options);

}  // namespace logtest
