// SPDX-License-Identifier: MIT
#pragma once

#include <list>
#include <string>
#include <utility>

#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/running_processes.h"

namespace qmrkctl {

/// A configuration, and with whose eyes it was read.
struct SeenConfiguration {
  Viewpoint viewpoint;
  std::string ca;  ///< that was asked for; empty: the default one
  Configuration configuration;
};

/// Reads the configurations of many processes; those that see the same share one.
class ProcessConfigurations {
 public:
  /// What a set-up of the process for the CA that it asked for would find now.
  /// @return null when there is no such process any more; else valid as long as this object.
  const SeenConfiguration* of(const RunningProcess& _process);

  /// The same for the CA that its listener follows; null also when it has no listener.
  const SeenConfiguration* ofListener(const RunningProcess& _process);

  /// The same for any viewpoint and CA.
  const SeenConfiguration& of(const Viewpoint& _viewpoint, const std::string& _ca);

  const std::list<SeenConfiguration>& all() const { return seen_; }

 private:
  std::list<SeenConfiguration> seen_;
};

}  // namespace qmrkctl
