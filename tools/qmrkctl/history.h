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

/// A change of a class list, for the record.
struct ChangeRecord {
  std::string ca;
  std::string command;  ///< "enable", "sweep" ...
  std::string before;   ///< the list
  std::string after;
  std::string reason;
  std::string duration;  ///< of a lease; empty: for good
};

/// Appends the change to a history: one line of JSON with time, who, before, after, reason and answers.
std::optional<toolsystem::FileFailure> appendToHistory(const std::string& _path, const ChangeRecord& _change,
                                                       const std::vector<Answer>& _answers);

/// The records of a history, oldest first. A line that is none, as a torn one, is left out and counted.
struct History {
  std::vector<Json> records;
  std::size_t unreadableLines = 0;
};

History parseHistory(std::string_view _text);

}  // namespace qmrkctl
