// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tools/qmrkctl/common_options.h"

namespace qmrkctl {

/// A log and its user.
struct ChosenLog {
  std::string user;
  std::string path;  ///< in the system's form, as this program reaches it
};

struct LogChoice {
  std::vector<ChosenLog> logs;
  std::string problem;  ///< why there is none, in words; empty otherwise
};

/// The logs that the options name: the common log or, with --app, that of an application; of the current user, another
/// user, the user of a process, or every user who has one. They need not exist, except those of --all-users.
LogChoice chooseLogs(const Options& _options);

}  // namespace qmrkctl
