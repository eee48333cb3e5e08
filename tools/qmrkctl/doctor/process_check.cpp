// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/doctor/process_check.h"

#include "diagnostics/status_page_values.h"
#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "quillmark_logging_version.h"
#include "tools/qmrkctl/utc_time.h"
#include "tools/status/valid_utf8.h"

namespace qmrkctl {
namespace {

std::string momentText(const Moment& _moment) {
  constexpr std::int64_t nanoseconds = 1'000'000;
  return _moment ? utcText(*_moment / nanoseconds) : "never";
}

std::string failureText(const PageText& _error, status::Failure _failure) {
  return _error.text.empty() ? "reason " + std::to_string(static_cast<int>(_failure)) : _error.text;
}

bool readsOtherFile(const ProcessStatus& _status, const Configuration& _configuration) {
  const PageText& read = _status.cfgPath;
  const std::string& now = _configuration.cfg.path;
  return !read.isCut && !read.text.empty() && !now.empty() && validUtf8(now) != read.text;
}

// Whether it writes another common log than its file names now.
bool logsElsewhere(const ProcessStatus& _status, const Configuration& _configuration) {
  const PageText& path = _status.commonLogPath;
  if (!isSetUp(_status) || path.isCut || path.text.empty() || !_configuration.logs) return false;
  const std::string& named = _configuration.logs->commonLog;
  return !named.empty() && validUtf8(named) != path.text;
}

// Looks at one process that shows its page.
class PageCheck {
 public:
  PageCheck(const RunningProcess& _process, const ProcessConfiguration& _configuration, std::vector<Finding>& _findings)
      : name_(processText(_process)),
        status_(*_process.status),
        configuration_(_configuration.own),
        ofListener_(_configuration.ofListener),
        findings_(_findings) {}

  void run() {
    checkVersion();
    if (status_.setUp.result == status::Result::failed) {
      add("Q607", name_ + ": the set-up failed at " + momentText(status_.setUp.at) + ": " +
                      failureText(status_.setUp.error, status_.setUp.failure));
      return;
    }
    checkClasses();
    checkListener();
    checkConfigurationFile();
    for (const LogFileStatus& file : status_.files)
      checkFile(file);
  }

 private:
  void add(std::string_view _code, const std::string& _text, const std::string& _file = "") {
    findings_.push_back(findingOf(_code, {platform::nativePath(_file), 0, 0}, _text));
  }

  void checkVersion() {
    if (status_.libraryVersion.empty() || status_.libraryVersion == QMRK_LOG_VERSION_STRING) return;
    add("Q608", name_ + " has the library " + status_.libraryVersion + ", this is " + QMRK_LOG_VERSION_STRING,
        status_.program.text);
  }

  void checkClasses() {
    const ClassStatus& classes = status_.classes;
    if (classes.updateResult == status::Result::failed) {
      add("Q611", name_ + ": the class list was not applied at " + momentText(classes.updatedAt) + ": " +
                      failureText(classes.updateError, classes.updateFailure));
    } else if (isListOfFileKnown() && classes.hash != status::hashOf(configuration_->init.text)) {
      add("Q603", name_ + " applies the class list of " + momentText(classes.appliedAt) + ", not that of the file",
          configuration_->init.path);
    }
    if (classes.ownChange != status::Call::none) {
      add("Q612", name_ + " has switched classes itself at " + momentText(classes.ownChangeAt));
    }
  }

  // The list of another CA is another finding.
  bool isListOfFileKnown() const {
    return status_.classes.generation > 0 && configuration_ != nullptr && configuration_->init.isRead &&
           (status_.initPath.text.empty() || status_.initPath.text == validUtf8(configuration_->init.path));
  }

  void checkListener() {
    const ListenerStatus& listener = status_.listener;
    switch (listener.state) {
      case status::ListenerState::none:
        add("Q601", name_ + " has no listener");
        return;
      case status::ListenerState::ended:
        if (listener.threads == 0) add("Q602", name_ + ": its listener ended at " + momentText(listener.changedAt));
        return;
      case status::ListenerState::failed:
        add("Q602", name_ + ": its listener failed at " + momentText(listener.failedAt) + ": " + listener.failure.text);
        return;
      case status::ListenerState::waiting:
      case status::ListenerState::updating:
        break;
    }
    if (listener.ca.empty() || listener.ca == status_.caAsked) return;
    // Two names may lead to the same class list.
    if (configuration_ != nullptr && ofListener_ != nullptr && configuration_->init.path == ofListener_->init.path)
      return;
    add("Q604", name_ + " asked for " + status_.caAsked + ", its listener follows " + listener.ca);
  }

  void checkConfigurationFile() {
    if (configuration_ == nullptr) return;
    const std::size_t before = findings_.size();
    if (const std::optional<Finding> change = changedSinceSetUp(name_, status_, *configuration_)) {
      findings_.push_back(*change);
    }
    if (hasOtherFilter(status_, *configuration_) && !readsOtherFile(status_, *configuration_)) {
      add("Q613",
          name_ + " goes on with the filter \"" + status_.classes.filter.text + "\"; its file has another one now",
          configuration_->cfg.path);
    }
    if (findings_.size() == before) checkAge();
  }

  // What of it was changed is unknown, where it is none of what the page shows.
  void checkAge() {
    const toolsystem::PathFacts& file = configuration_->cfg.facts;
    if (hasLostCfg(status_, *configuration_) || !status_.setUp.at || file.writtenAt <= *status_.setUp.at) return;
    add("Q621",
        name_ + " goes on with what it read at " + momentText(status_.setUp.at) + "; the file was written at " +
            momentText(file.writtenAt),
        configuration_->cfg.path);
  }

  void checkFile(const LogFileStatus& _file) {
    const std::uint64_t lost = _file.lost + _file.dropped;
    const std::string count = std::to_string(lost) + (lost == 1 ? " message" : " messages");
    const std::string error = " (error " + std::to_string(_file.error) + " at " + momentText(_file.failedAt) + ")";
    if (_file.isFailing) {
      add("Q605", name_ + " cannot write its log" + error + "; " + count + " lost so far", _file.path.text);
    } else if (lost > 0) {
      add("Q606", name_ + " has lost " + count + (_file.failedAt ? error : ""), _file.path.text);
    }
  }

  std::string name_;
  const ProcessStatus& status_;
  const Configuration* configuration_;
  const Configuration* ofListener_;
  std::vector<Finding>& findings_;
};

}  // namespace

bool isSetUp(const ProcessStatus& _status) { return _status.setUp.result == status::Result::done; }

std::optional<Finding> changedSinceSetUp(const std::string& _name, const ProcessStatus& _status,
                                         const Configuration& _configuration) {
  // To restart it then would not help.
  if (hasLostCfg(_status, _configuration)) return std::nullopt;
  if (readsOtherFile(_status, _configuration)) {
    return findingOf(
        "Q613", {platform::nativePath(_status.cfgPath.text), 0, 0},
        _name + " was set up with this file; today it would be " + platform::nativePath(_configuration.cfg.path));
  }
  if (!logsElsewhere(_status, _configuration)) return std::nullopt;
  return findingOf("Q613", {platform::nativePath(_configuration.cfg.path), 0, 0},
                   _name + " goes on with its common log " + platform::nativePath(_status.commonLogPath.text) +
                       "; its file names " + platform::nativePath(_configuration.logs->commonLog) + " now");
}

bool hasOtherFilter(const ProcessStatus& _status, const Configuration& _configuration) {
  const std::string* const filter = _configuration.value(Quillmark_logging::COMMON_LOG_FILE_FILTER);
  const PageText& applied = _status.classes.filter;
  return isSetUp(_status) && filter != nullptr && !applied.isCut && validUtf8(*filter) != applied.text;
}

bool hasLostCfg(const ProcessStatus& _status, const Configuration& _configuration) {
  return isSetUp(_status) && (!_configuration.failure.empty() || !_configuration.cfg.isUsable());
}

std::string processText(const RunningProcess& _process) {
  return _process.application + " (pid " + std::to_string(_process.pid()) + ", user " + _process.facts.user + ")";
}

void checkProcess(const RunningProcess& _process, const ProcessConfiguration& _configuration,
                  std::vector<Finding>& _findings) {
  const std::string name = processText(_process);
  if (_process.facts.activity == toolsystem::Activity::stopped) {
    _findings.push_back(
        findingOf("Q609", {}, name + " is stopped",
                  "kill -CONT " + std::to_string(_process.pid()) + ", or end the debugger that stopped it"));
  }
  if (!_process.status) {
    _findings.push_back(findingOf("Q610", {}, name + " shows nothing of its logging"));
    return;
  }
  PageCheck(_process, _configuration, _findings).run();
}

}  // namespace qmrkctl
