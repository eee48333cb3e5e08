// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tools/qmrkctl/configuration.h"

namespace qmrkctl {

/// Classes that exist for certain: those of logs of running applications, and those of lines in the common log. Others
/// may exist too.
class KnownClasses {
 public:
  /// @param _running the names of all logs of the running applications; empty: unknown.
  /// @param _logged the classes of lines.
  KnownClasses(std::vector<std::string> _running, const std::vector<std::string>& _logged);

  /// Whether it is one of them, or above one. Takes less time than the questions below, which look at all of them.
  bool contains(std::string_view _class) const { return names_.contains(_class); }

  /// Whether a pattern selects one of them.
  bool isSelectedBy(std::string_view _pattern) const;

  /// Empty: unknown.
  const std::vector<std::string>& running() const { return running_; }

  /// The class that was probably meant by a pattern that selects none of them: one of them, or one above it, with a
  /// slip in one part or in another letter case; else with the usual name of a kind of message, such as "info", as its
  /// last part. Empty: there is none.
  std::string meantBy(std::string_view _pattern) const;

 private:
  std::vector<std::string> running_;
  std::set<std::string, std::less<>> names_;  ///< with all that are above them
  std::set<std::string, std::less<>> leaves_;
};

/// The classes of the last lines of the common log, where it can be read.
std::vector<std::string> loggedClasses(const Viewpoint& _viewpoint, const Configuration& _configuration);

}  // namespace qmrkctl
