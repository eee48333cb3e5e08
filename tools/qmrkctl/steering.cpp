// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/steering.h"

#include <charconv>
#include <string>
#include <system_error>

#include "platform/text_file.h"
#include "tools/system/log_file.h"

namespace qmrkctl {
namespace {

// By name, else by the number that it is.
std::optional<std::uint32_t> userIdOf(const std::string& _user) {
  const auto account = toolsystem::accountOfUser(_user);
  if (account) return account->uid;
  std::uint32_t number = 0;
  const auto [stop, error] = std::from_chars(_user.data(), _user.data() + _user.size(), number);
  const bool isNumber = error == std::errc() && stop == _user.data() + _user.size();
  return isNumber ? std::optional<std::uint32_t>(number) : std::nullopt;
}

}  // namespace

bool isKnownUser(const std::string& _user) { return userIdOf(_user).has_value(); }

ProcessQuery steeredProcesses(const Options& _options) {
  ProcessQuery query = queryOf(_options);
  const bool isChosen = !query.user.empty() || query.allUsers || query.pid || !query.application.empty();
  if (!isChosen && toolsystem::seesEveryProcess()) query.allUsers = true;
  return query;
}

std::vector<toolsystem::EventPlace> placesOf(const ProcessQuery& _query, const std::vector<RunningProcess>& _processes,
                                             std::optional<int> _session) {
  std::vector<toolsystem::ProcessFacts> facts;
  for (const RunningProcess& process : _processes)
    facts.push_back(process.facts);
  if (!_query.user.empty()) {
    const auto user = userIdOf(_query.user);
    if (user) facts.push_back(toolsystem::placeFacts(*user));
  }
  toolsystem::EventScope scope;
  scope.isOwnWanted = _query.user.empty() && !_query.pid && _query.application.empty();
  scope.areAllWanted = _query.allUsers;
  scope.session = _session;
  return toolsystem::eventPlaces(facts, scope);
}

std::optional<std::uint64_t> hashOfList(const RunningProcess& _process) {
  if (!_process.status || _process.status->initPath.isCut || _process.status->initPath.text.empty()) {
    return std::nullopt;
  }
  std::string text;
  platform::TextReader file(_process.facts.root + _process.status->initPath.text);
  if (!file.readAll(text)) return std::nullopt;
  return status::hashOf(text);
}

bool follows(const RunningProcess& _process, const ClassListPlace& _place) {
  if (!_process.status) return false;
  const PageText& path = _process.status->initPath;
  if (path.isCut || path.text.empty()) return _process.status->caInEffect == _place.ca;
  const toolsystem::FileId theirs = toolsystem::fileIdAt(_process.facts.root + path.text);
  const toolsystem::FileId ours = toolsystem::fileIdAt(_place.reached);
  const toolsystem::FileId none;
  if (theirs == none || ours == none) return _process.facts.root + path.text == _place.reached;
  return theirs == ours;
}

}  // namespace qmrkctl
