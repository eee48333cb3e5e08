// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace logtest {

/// What the user of the program wants.
struct Options {
  /// Print the versions only, without a set-up.
  bool version = false;
  /// The CA if the user gave one (it may be empty); else the set-up chooses one.
  bool hasCa = false;
  std::string ca;
  bool writeToCout = false;
  /// A class list. The last entry may lack its ";".
  std::string classes = "Demo.App.error;Demo.App.info;Demo.Net.error;Demo.Net.info;";
  /// Lines to each class.
  int lines = 3;
  /// How many seconds to listen, instead of logging a number of lines.
  std::optional<double> listen;
  /// Name of an application that gets a log file of its own, and whether that is emptied.
  std::optional<std::string> app;
  bool overWrite = false;
  /// Process, thread and location before each line.
  bool stamps = false;
};

enum class Parsed { run, done, wrong };

/// Reads the command line. Writes the help, if asked for, to standard output, and mistakes to standard error.
/// @return run: the options are set; done: there is nothing left to do; wrong: the command line is unusable.
Parsed parseOptions(int _argc, const char* const* _argv, Options& _options);

}  // namespace logtest
