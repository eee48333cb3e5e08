// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/history.h"

#include <algorithm>

#include "tools/qmrkctl/actor.h"
#include "tools/qmrkctl/answer_report.h"
#include "tools/qmrkctl/utc_time.h"
#include "tools/system/appended_line.h"

namespace qmrkctl {

std::optional<toolsystem::FileFailure> appendToHistory(const std::string& _path, const ChangeRecord& _change,
                                                       const std::vector<Answer>& _answers) {
  Json record = {{"time", utcNow()},           {"who", actorJson()},       {"ca", _change.ca},
                 {"command", _change.command}, {"before", _change.before}, {"after", _change.after}};
  if (!_change.reason.empty()) record["reason"] = _change.reason;
  if (!_change.duration.empty()) record["for"] = _change.duration;
  record["answers"] = Json::array();
  std::transform(_answers.begin(), _answers.end(), std::back_inserter(record["answers"]), answerJson);
  return toolsystem::appendRecord(_path, record.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n");
}

History parseHistory(std::string_view _text) {
  History history;
  while (!_text.empty()) {
    const std::size_t end = std::min(_text.find('\n'), _text.size());
    const std::string_view line = _text.substr(0, end);
    _text.remove_prefix(std::min(end + 1, _text.size()));
    if (line.empty() || line == "\r") continue;
    Json record = Json::parse(line, nullptr, false);
    if (record.is_object() && record.contains("time") && record["time"].is_string()) {
      history.records.push_back(std::move(record));
    } else {
      ++history.unreadableLines;
    }
  }
  return history;
}

}  // namespace qmrkctl
