// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/class_overview.h"

#include <algorithm>
#include <map>
#include <set>

#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/asked_viewpoint.h"
#include "tools/qmrkctl/ca_choice.h"
#include "tools/qmrkctl/class_entries.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/logged_lines.h"
#include "tools/qmrkctl/pattern_set.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/steering.h"
#include "tools/qmrkctl/table_text.h"
#include "tools/qmrkctl/utc_time.h"

namespace qmrkctl {
namespace {

using Names = std::vector<std::string>;

constexpr std::int64_t longestLookBack = 1 << 20;

// One class in all the places where it may stand.
struct Row {
  bool isListed = false;    ///< an entry of the list selects it
  bool isFiltered = false;  ///< an entry of the filter does
  int on = 0;               ///< running applications in which it is on
  int off = 0;
  int logged = 0;  ///< lines of late in the common log
};

class Overview {
 public:
  Overview(const Configuration& _configuration, const ClassListPlace& _place)
      : place_(_place), listed_(enabledClasses(_configuration.init.text)) {
    const std::string* const filter = _configuration.value(Quillmark_logging::COMMON_LOG_FILE_FILTER);
    if (filter != nullptr) filtered_ = filterClasses(*filter);
  }

  void addRunning(const std::vector<RunningProcess>& _processes) {
    ProcessConfigurations configurations;
    for (const RunningProcess& process : _processes) {
      if (!follows(process, place_, configurations)) continue;
      ++processes_;
      const ClassStatus& classes = process.status->classes;
      for (const LogState& log : classes.logs)
        ++(log.isOn ? rows_[log.name].on : rows_[log.name].off);
      if (isKnownByList(classes)) applied_.emplace_back(enabledClasses(classes.text.text));
    }
  }

  void addLogged(const std::map<std::string, int>& _lines) {
    for (const auto& [name, lines] : _lines)
      rows_[name].logged += lines;
  }

  // A page has the logs of the moment at which it was written. One that was created since is as the applied list says.
  void addLateLogs() {
    for (auto& [name, row] : rows_) {
      if (row.on + row.off > 0) continue;
      for (const PatternSet& list : applied_)
        ++(list.selects(name) ? row.on : row.off);
    }
  }

  // After all others: patterns that select none of the classes stand for themselves.
  void addPatterns() {
    for (const std::vector<ClassEntry>* const entries : {&listed_, &filtered_}) {
      for (const ClassEntry& entry : *entries)
        rows_[entry.pattern];
    }
    const PatternSet list(listed_);
    const PatternSet filter(filtered_);
    for (auto& [name, row] : rows_) {
      row.isListed = list.selects(name);
      row.isFiltered = filter.selects(name);
    }
  }

  void tell(const std::vector<Lease>& _leases, Report& _report) const {
    std::vector<Names> table = {{"CLASS", "LIST", "FILTER", "RUNNING", "LOGGED", ""}};
    Json classes = Json::array();
    for (const auto& [name, row] : rows_) {
      const std::string until = leasedUntil(_leases, name);
      table.push_back({shown(name), row.isListed ? "on" : "-", row.isFiltered ? "yes" : "-", runningText(row),
                       row.logged > 0 ? std::to_string(row.logged) : "-", until.empty() ? "" : "until " + until});
      Json object = {{"class", name}, {"listed", row.isListed}, {"filtered", row.isFiltered},
                     {"on", row.on},  {"off", row.off},         {"logged", row.logged}};
      if (!until.empty()) object["until"] = until;
      classes.push_back(object);
    }
    _report.line(shown(place_.ca) + " " + shown(platform::nativePath(place_.path)) + ", followed by " +
                 std::to_string(processes_) + " running processes");
    for (const std::string& line : tableLines(table))
      _report.line(line);
    _report.result() = {{"ca", place_.ca},
                        {"file", platform::nativePath(place_.path)},
                        {"processes", processes_},
                        {"overview", classes}};
  }

 private:
  static bool isKnownByList(const ClassStatus& _classes) {
    return _classes.generation > 0 && !_classes.text.isCut && _classes.ownChange == status::Call::none;
  }

  static std::string runningText(const Row& _row) {
    if (_row.on + _row.off == 0) return "-";
    return "on in " + std::to_string(_row.on) + " of " + std::to_string(_row.on + _row.off);
  }

  static std::string leasedUntil(const std::vector<Lease>& _leases, const std::string& _name) {
    std::int64_t until = 0;
    for (const Lease& lease : _leases) {
      if (std::find(lease.classes.begin(), lease.classes.end(), _name) != lease.classes.end()) {
        until = std::max(until, lease.until);
      }
    }
    return until == 0 ? "" : utcText(until);
  }

  const ClassListPlace& place_;
  std::vector<ClassEntry> listed_;
  std::vector<ClassEntry> filtered_;
  int processes_ = 0;
  std::vector<PatternSet> applied_;  ///< the lists of those processes, where a page shows all of it
  std::map<std::string, Row> rows_;
};

// Without a list all classes stay as they are.
int tellUnreadList(const ConfigurationFile& _list) {
  const std::string path = shown(platform::nativePath(_list.path));
  const bool isMissing = _list.facts.kind == toolsystem::PathKind::missing && !_list.facts.isHidden;
  if (!_list.isRead)
    Report::message((isMissing ? "there is no class list " : "the class list cannot be read: ") + path);
  return _list.isRead || isMissing ? exitOk : exitPartial;
}

}  // namespace

int listClasses(const Options& _options, Report& _report) {
  int refusal = exitOk;
  const auto viewpoint = askedViewpoint(_options, refusal);
  if (!viewpoint) return refusal;
  const Configuration configuration = readConfiguration(*viewpoint, _options.ca);
  const auto place = classListPlace(*viewpoint, configuration);
  if (!place) {
    Report::message("the CA " + shown(configuration.caInEffect) + " has no class list of its own");
    return exitNotFound;
  }
  tellOtherCa(configuration);
  Overview overview(configuration, *place);
  overview.addRunning(runningProcesses(steeredProcesses(_options)).found);
  if (configuration.logs && !configuration.logs->commonLog.empty()) {
    LoggedLines log(reachedPath(*viewpoint, configuration.logs->commonLog));
    log.goBack(longestLookBack);
    overview.addLogged(log.newLines().byClass);
  }
  overview.addLateLogs();
  overview.addPatterns();
  const auto state = readClassList(*place);
  overview.tell(state ? state->leases : std::vector<Lease>(), _report);
  return tellUnreadList(configuration.init);
}

}  // namespace qmrkctl
