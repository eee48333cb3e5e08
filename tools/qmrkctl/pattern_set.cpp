// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/pattern_set.h"

#include <algorithm>

namespace qmrkctl {

PatternSet::PatternSet(const std::vector<ClassEntry>& _entries) {
  for (const ClassEntry& entry : _entries) {
    if (entry.pattern.find('*') == std::string::npos) {
      plain_.insert(entry.pattern);
    } else {
      withWildcard_.push_back(entry.pattern);
    }
  }
}

bool PatternSet::selects(std::string_view _log) const {
  if (plain_.contains(_log)) return true;
  // The names above it. The empty one is above none.
  for (std::size_t end = _log.find('.', 1); end < _log.size(); end = _log.find('.', end + 1)) {
    if (plain_.contains(_log.substr(0, end))) return true;
  }
  return std::any_of(withWildcard_.begin(), withWildcard_.end(),
                     [_log](const std::string& _pattern) { return qmrkctl::selects(_pattern, _log); });
}

}  // namespace qmrkctl
