// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/steering.h"

#include <charconv>
#include <string>
#include <system_error>

#include "platform/native_path.h"
#include "platform/text_file.h"
#include "tools/qmrkctl/check/similar_name.h"
#include "tools/qmrkctl/command_report.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/system/log_file.h"
#include "tools/system/path_in_root.h"

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

// The class list that a process applies when its event is set; none: its page does not tell. Its last update may have
// been by a set-up call for another CA than that which the listener follows.
std::optional<std::string> nextList(const RunningProcess& _process, ProcessConfigurations& _configurations) {
  const ProcessStatus& status = *_process.status;
  const ListenerStatus& listener = status.listener;
  const bool listens =
      listener.state == status::ListenerState::waiting || listener.state == status::ListenerState::updating;
  if (listens && !listener.ca.empty() && !isSameIgnoringCase(listener.ca, status.classes.ca)) {
    const SeenConfiguration* const seen = _configurations.ofListener(_process);
    if (seen != nullptr && !seen->configuration.init.path.empty()) return seen->configuration.init.path;
  }
  if (status.initPath.isCut || status.initPath.bytes.empty()) return std::nullopt;
  return status.initPath.bytes;
}

}  // namespace

bool refusesUser(const Options& _options) {
  if (_options.user.empty() || userIdOf(_options.user)) return false;
  Report::message("there is no user \"" + shown(_options.user) + "\"");
  return true;
}

ProcessQuery steeredProcesses(const Options& _options) {
  ProcessQuery query = queryOf(_options);
  const bool isChosen = !query.user.empty() || query.allUsers || query.pid || !query.application.empty();
  if (!isChosen && toolsystem::seesEveryProcess()) query.allUsers = true;
  return query;
}

std::vector<toolsystem::EventPlace> placesOf(const ProcessQuery& _query, const std::vector<RunningProcess>& _processes,
                                             std::optional<int> _session) {
  std::vector<toolsystem::ProcessFacts> facts;
  facts.reserve(_processes.size() + 1);
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
  if (!_process.status || _process.status->initPath.isCut || _process.status->initPath.bytes.empty()) {
    return std::nullopt;
  }
  std::string text;
  platform::TextReader file(reachedPathOf(_process, _process.status->initPath.bytes));
  if (!file.readAll(text)) return std::nullopt;
  return status::hashOf(text);
}

std::string reachedPathOf(const RunningProcess& _process, const std::string& _path) {
  const std::string root = toolsystem::fileSystemOfProcess(static_cast<int>(_process.pid()));
  return toolsystem::pathInRoot(root, platform::nativePath(_path));
}

bool follows(const RunningProcess& _process, const ClassListPlace& _place, ProcessConfigurations& _configurations) {
  if (!_process.status) return false;
  const std::optional<std::string> path = nextList(_process, _configurations);
  if (!path) return _process.status->caInEffect == _place.ca;
  const std::string reached = reachedPathOf(_process, *path);
  const toolsystem::FileId theirs = toolsystem::fileIdAt(reached);
  const toolsystem::FileId ours = toolsystem::fileIdAt(_place.reached);
  const toolsystem::FileId none;
  if (theirs == none || ours == none) return reached == platform::nativePath(_place.reached);
  return theirs == ours;
}

}  // namespace qmrkctl
