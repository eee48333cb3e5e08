// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tools/qmrkctl/common_options.h"

namespace qmrkctl {

/// A log, and whose it is.
struct ChosenLog {
  std::string user;
  std::string path;  ///< in the system's form, as this program reaches it
};

struct LogChoice {
  std::vector<ChosenLog> logs;
  std::string problem;  ///< why there is none, a sentence; empty otherwise
};

/// The logs that the options mean: the common log, or with --app that of an application; of the running user, another
/// one, the user of a process, or of every user who has one. They need not exist, except those of --all-users.
LogChoice chooseLogs(const Options& _options);

}  // namespace qmrkctl
