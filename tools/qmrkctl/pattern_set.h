// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tools/qmrkctl/class_entries.h"

namespace qmrkctl {

/// The patterns of a class list, of which there may be millions: without "*" they cost a look-up for each part of a
/// name, not a comparison each.
class PatternSet {
 public:
  PatternSet() = default;
  explicit PatternSet(const std::vector<ClassEntry>& _entries);

  /// Whether one of them selects the log.
  bool selects(std::string_view _log) const;

 private:
  std::set<std::string, std::less<>> plain_;
  std::vector<std::string> withWildcard_;
};

}  // namespace qmrkctl
