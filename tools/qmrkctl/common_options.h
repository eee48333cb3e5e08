// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace qmrkctl {

enum class ColorMode { automatic, always, never };

enum class Verbosity { quiet, normal, verbose };

/// What is asked of every command, by options that may stand before or after its name.
struct Options {
  std::string ca;    ///< empty: the default CA
  std::string user;  ///< empty: the running user
  bool allUsers = false;
  std::optional<int> pid;
  std::string app;  ///< name of an application; empty: any
  bool json = false;
  ColorMode color = ColorMode::automatic;
  Verbosity verbosity = Verbosity::normal;
};

}  // namespace qmrkctl
