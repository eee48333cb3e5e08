// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/qmrkctl/acknowledgement.h"
#include "tools/qmrkctl/json.h"
#include "tools/system/replaced_file.h"

namespace qmrkctl {

/// A change of a class list, as the history records it.
struct ChangeRecord {
  std::string ca;
  std::string command;  ///< "enable", "sweep" ...
  std::string before;   ///< the list
  std::string after;
  std::string reason;
  std::string duration;  ///< of a lease, as durationText gives it; empty: for good
};

/// Appends a change to a history: one line of JSON with the time, the user, the list before and after, and the answers.
/// @param _path with separators of either kind.
/// @return no value on success.
std::optional<toolsystem::FileFailure> appendToHistory(const std::string& _path, const ChangeRecord& _change,
                                                       const std::vector<Answer>& _answers);

/// The records of a history, oldest first. Lines that are no records, such as a torn one, are only counted.
struct History {
  std::vector<Json> records;
  std::size_t unreadableLines = 0;
};

History parseHistory(std::string_view _text);

}  // namespace qmrkctl
