// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/qmrkctl/check/checks.h"
#include "tools/qmrkctl/check/known_classes.h"
#include "tools/qmrkctl/class_entries.h"

namespace qmrkctl {

/// Whether the entries of a class list reach the common log, through a filter. Where they do not, it says which of the
/// two is probably wrong.
class ReachCheck {
 public:
  /// @param _place of the first character of the filter.
  /// Both references must outlive the check.
  ReachCheck(std::vector<ClassEntry> _filter, FindingPlace _place, const KnownClasses& _known);

  /// @param _entry sound, as no other check has a finding.
  void check(const ClassEntry& _entry, const FindingPlace& _place, Findings& _findings);

  /// After the last entry: where none passes the filter, and some nearly do, all their findings are errors.
  void end(Findings& _findings) const;

 private:
  struct Meant {
    std::string name;                ///< what would pass
    const ClassEntry* by = nullptr;  ///< the entry of the filter that it would pass
  };

  const ClassEntry* passing(std::string_view _pattern) const;
  bool isRowOfEntries(std::string_view _pattern) const;
  Meant meantBy(const std::string& _pattern) const;
  void addMisspelt(const ClassEntry& _entry, const FindingPlace& _place, const Meant& _meant, Findings& _findings);

  std::vector<ClassEntry> filter_;
  FindingPlace filterPlace_;
  const KnownClasses& known_;
  bool hasPassed_ = false;
  std::vector<std::size_t> misspelt_;  ///< indices of findings
};

}  // namespace qmrkctl
