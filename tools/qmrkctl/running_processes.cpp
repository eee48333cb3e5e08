// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/running_processes.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "platform/running_process.h"
#include "tools/qmrkctl/check/similar_name.h"
#include "tools/status/process_finder.h"

namespace qmrkctl {
namespace {

using toolsystem::ProcessFacts;

using Pages = std::map<std::uint32_t, FoundProcess>;

bool isOwn(const ProcessFacts& _facts) { return _facts.userId == platform::userId(); }

bool isOfWantedUser(const ProcessQuery& _query, const ProcessFacts& _facts) {
  if (_query.allUsers || _query.pid) return true;
  if (_query.user.empty()) return isOwn(_facts);
  return _facts.user == _query.user || std::to_string(_facts.userId) == _query.user;
}

void addPages(const platform::StatusPagePlace& _place, Pages& _pages) {
  for (FoundProcess& page : findProcesses(_place)) {
    if (page.state == PageState::live && page.processId != 0 && page.status) {
      _pages.emplace(page.processId, std::move(page));
    }
  }
}

// The pages of the wanted processes, and those of the user whose process does not show what it has loaded.
Pages pagesFor(const ProcessQuery& _query, const std::vector<ProcessFacts>& _wanted) {
  Pages pages;
  const bool all = _query.allUsers || _query.pid || !_query.user.empty();
  addPages({"", all ? std::nullopt : std::optional<std::uint32_t>(platform::userId())}, pages);
  std::set<std::string> seen;
  for (const ProcessFacts& facts : _wanted) {
    if (!facts.root.empty() && seen.insert(facts.space).second) addPages({facts.root, facts.pageUserId}, pages);
  }
  return pages;
}

std::string applicationOf(const ProcessFacts& _facts, const std::optional<ProcessStatus>& _status) {
  std::string names;
  if (_status) {
    for (const ApplicationName& application : _status->applications) {
      if (application.name.empty() || application.isUnregistered) continue;
      names += (names.empty() ? "" : ", ") + application.name;
    }
  }
  return names.empty() ? _facts.name : names;
}

bool hasApplication(const RunningProcess& _process, const std::string& _name) {
  if (_name.empty() || _process.facts.name == _name || _process.application == _name) return true;
  if (!_process.status) return false;
  const auto& applications = _process.status->applications;
  return std::any_of(applications.begin(), applications.end(),
                     [&_name](const ApplicationName& _application) { return _application.name == _name; });
}

// A process that has the library without its file, or does not show what it has loaded, is known by its page alone.
void addKnownByPage(const Pages& _pages, const ProcessQuery& _query, std::vector<ProcessFacts>& _wanted) {
  for (const auto& [pid, page] : _pages) {
    const bool isThere = std::any_of(_wanted.begin(), _wanted.end(),
                                     [pid = pid](const ProcessFacts& _facts) { return _facts.pid == pid; });
    if (isThere || (_query.pid && *_query.pid != pid)) continue;
    ProcessFacts facts = toolsystem::factsOfProcess(pid);
    facts.hasLibrary = true;
    if (isOfWantedUser(_query, facts)) _wanted.push_back(std::move(facts));
  }
}

}  // namespace

ProcessQuery queryOf(const Options& _options) {
  ProcessQuery query;
  if (_options.pid) query.pid = static_cast<std::uint32_t>(*_options.pid);
  query.user = _options.user;
  query.allUsers = _options.allUsers;
  query.application = _options.app;
  return query;
}

RunningProcesses runningProcesses(const ProcessQuery& _query) {
  RunningProcesses processes;
  std::vector<ProcessFacts> wanted;
  for (ProcessFacts& facts : toolsystem::listProcesses(_query.pid)) {
    if (isOfWantedUser(_query, facts)) {
      wanted.push_back(std::move(facts));
    } else if (facts.hasLibrary) {
      ++processes.ofOthers;
    }
  }
  Pages pages = pagesFor(_query, wanted);
  addKnownByPage(pages, _query, wanted);
  for (ProcessFacts& facts : wanted) {
    RunningProcess process;
    const auto page = pages.find(facts.pid);
    if (page != pages.end()) process.status = std::move(page->second.status);
    if (!facts.hasLibrary && !process.status) continue;
    process.application = applicationOf(facts, process.status);
    process.facts = std::move(facts);
    if (hasApplication(process, _query.application)) processes.found.push_back(std::move(process));
  }
  std::sort(processes.found.begin(), processes.found.end(),
            [](const RunningProcess& _one, const RunningProcess& _other) { return _one.pid() < _other.pid(); });
  if (!toolsystem::seesEveryProcess()) processes.ofOthers += toolsystem::foreignListeners();
  return processes;
}

void keepThoseOf(const std::string& _ca, std::vector<RunningProcess>& _processes) {
  if (_ca.empty()) return;
  const auto isMeant = [&_ca](const std::string& _other) { return isSameIgnoringCase(_ca, _other); };
  std::erase_if(_processes, [&isMeant](const RunningProcess& _process) {
    return !_process.status || (!isMeant(_process.status->caAsked) && !isMeant(_process.status->caInEffect));
  });
}

bool listensTo(const RunningProcess& _process, const std::string& _event) {
  const std::vector<std::string>& events = _process.facts.events;
  if (std::find(events.begin(), events.end(), _event) != events.end()) return true;
  // Where the system does not show it, the page does.
  if (!_process.status || !events.empty()) return false;
  const ListenerStatus& listener = _process.status->listener;
  const bool isThere =
      listener.state == status::ListenerState::waiting || listener.state == status::ListenerState::updating;
  return isThere && listener.event == _event;
}

}  // namespace qmrkctl
