// SPDX-License-Identifier: MIT
#pragma once

#include <list>
#include <string>
#include <utility>

#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/running_processes.h"

namespace qmrkctl {

/// A configuration, and the viewpoint from which it was read.
struct SeenConfiguration {
  Viewpoint viewpoint;
  std::string ca;  ///< as asked for; empty: the default one
  Configuration configuration;
};

/// Reads the configurations of many processes; processes that see the same files share one. For one thread.
class ProcessConfigurations {
 public:
  /// What a set-up in the process, for the CA that it asked for, would find now.
  /// @return null if the process has ended; else valid as long as this object.
  const SeenConfiguration* of(const RunningProcess& _process);

  /// The same for the CA that its listener follows; null also if it has no listener or shows no page.
  const SeenConfiguration* ofListener(const RunningProcess& _process);

  /// The same for any viewpoint and CA.
  const SeenConfiguration& of(const Viewpoint& _viewpoint, const std::string& _ca);

  /// Every configuration read so far, in the order of the requests.
  const std::list<SeenConfiguration>& all() const { return seen_; }

 private:
  std::list<SeenConfiguration> seen_;
};

}  // namespace qmrkctl
