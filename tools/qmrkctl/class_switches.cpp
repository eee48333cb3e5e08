// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/class_switches.h"

#include <algorithm>
#include <map>

#include "tools/qmrkctl/class_entries.h"

namespace qmrkctl {
namespace {

// Which logs were on.
class FormerStates {
 public:
  explicit FormerStates(const ClassStatus& _before) : entries_(enabledClasses(_before.text.text)) {
    for (const LogState& log : _before.logs)
      states_[log.name] = log.isOn;
  }

  bool wasOn(const std::string& _name) const {
    const auto found = states_.find(_name);
    if (found != states_.end()) return found->second;
    return std::any_of(entries_.begin(), entries_.end(),
                       [&_name](const ClassEntry& _entry) { return selects(_entry.pattern, _name); });
  }

 private:
  std::vector<ClassEntry> entries_;
  std::map<std::string, bool> states_;
};

}  // namespace

ClassSwitches switchesBetween(const ClassStatus& _before, const ClassStatus& _after) {
  const FormerStates former(_before);
  ClassSwitches switches;
  for (const LogState& log : _after.logs) {
    if (log.isOn != former.wasOn(log.name)) (log.isOn ? switches.on : switches.off).push_back(log.name);
  }
  return switches;
}

}  // namespace qmrkctl
