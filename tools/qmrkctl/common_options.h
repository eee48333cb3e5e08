// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace qmrkctl {

enum class ColorMode { automatic, always, never };

enum class Verbosity { quiet, normal, verbose };

/// The options that every command accepts, before or after its name.
struct Options {
  std::string ca;    ///< empty: the default CA
  std::string user;  ///< empty: the running user
  bool allUsers = false;
  std::optional<int> pid;
  std::string app;  ///< an application's name; empty: any
  bool json = false;
  ColorMode color = ColorMode::automatic;
  Verbosity verbosity = Verbosity::normal;
};

}  // namespace qmrkctl
