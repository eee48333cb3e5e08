// SPDX-License-Identifier: MIT
#include <array>
#include <cstdio>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/argument_check.h"
#include "tools/qmrkctl/asked_viewpoint.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/steering.h"
#include "tools/system/appended_line.h"

namespace qmrkctl {
namespace {

constexpr const char* markName = "qmrkctl.mark";

// Who must own a log, by its path as this program reaches it.
using Logs = std::map<std::string, std::optional<std::uint32_t>>;

void addLog(const std::string& _path, std::uint32_t _owner, Logs& _logs) {
  // Windows has no such owners.
  const bool isOwned = _owner != status::noUserId;
  _logs.emplace(_path, isOwned ? std::optional<std::uint32_t>(_owner) : std::nullopt);
}

void addLogOf(const RunningProcess& _process, const PageText& _path, Logs& _logs) {
  if (_path.isCut || _path.bytes.empty()) return;
  // A link in place of a log is not followed.
  const std::string root = toolsystem::fileSystemOfProcess(static_cast<int>(_process.pid()));
  addLog(root + platform::nativePath(_path.bytes), _process.facts.userId, _logs);
}

// The log that the options mean even if no application that writes it runs any more.
std::string logWithoutProcess(const LogPlaces& _places, const Options& _options) {
  if (_options.app.empty()) return _places.commonLog;
  return _places.applicationFolder + "\\" + _options.app + Quillmark_logging::APPL_SPEC_LOG_FILE_SUFFIX;
}

Logs findLogs(const Viewpoint& _viewpoint, const Configuration& _configuration, const Options& _options) {
  Logs logs;
  for (const RunningProcess& process : runningProcesses(steeredProcesses(_options)).found) {
    if (!process.status) continue;
    addLogOf(process, process.status->commonLogPath, logs);
    for (const LogFileStatus& file : process.status->files)
      addLogOf(process, file.path, logs);
  }
  const std::string other =
      _configuration.logs && !_options.pid ? logWithoutProcess(*_configuration.logs, _options) : "";
  if (!other.empty()) addLog(reachedPath(_viewpoint, other), _viewpoint.account.uid, logs);
  return logs;
}

std::string stamp(bool _withMilliseconds) {
  const platform::LocalTime now = platform::localTime();
  std::array<char, 96> text{};
  std::snprintf(text.data(), text.size(), "%04d%02d%02d %02d:%02d:%02d", now.year, now.month, now.day, now.hour,
                now.minute, now.second);
  std::string stamp = text.data();
  if (!_withMilliseconds) return stamp;
  std::snprintf(text.data(), text.size(), ".%03d", now.millisecond);
  return stamp + text.data();
}

bool hasEnded(const Options& _options) {
  return !_options.app.empty() && runningProcesses(queryOf(_options)).found.empty();
}

// An application that has ended has left its log with the user.
std::optional<Viewpoint> viewpointOf(const Options& _options, int& _refusal) {
  Options options = _options;
  if (hasEnded(_options)) options.app.clear();
  return askedViewpoint(options, _refusal);
}

int tellThatThereIsNoLog(const Options& _options, Report& _report) {
  _report.line("there is no log yet");
  if (hasEnded(_options)) Report::message("no running application is called \"" + shown(_options.app) + "\"");
  return exitNotFound;
}

int markLogs(const std::string& _text, const Options& _options, Report& _report) {
  int refusal = exitOk;
  const auto viewpoint = viewpointOf(_options, refusal);
  if (!viewpoint) return refusal;
  const Configuration configuration = readConfiguration(*viewpoint, _options.ca);
  // One line, whatever was given.
  const std::string line = "[" + std::string(markName) + "] " +
                           stamp(configuration.isOn(Quillmark_logging::MILLISECOND_RESOLUTION)) + " " + shown(_text) +
                           "\n";
  Json marked = Json::array();
  Json failed = Json::array();
  bool isDenied = false;
  for (const auto& [path, owner] : findLogs(*viewpoint, configuration, _options)) {
    const auto failure = toolsystem::appendToLog(path, line, owner);
    if (!failure) {
      _report.line("marked " + shown(path));
      marked.push_back(path);
    } else if (!failure->isMissing) {
      _report.line("not marked: " + shown(failure->text));
      failed.push_back({{"file", path}, {"text", failure->text}});
      isDenied = isDenied || failure->isDenied;
    }
  }
  _report.result() = {{"line", line.substr(0, line.size() - 1)}, {"marked", marked}, {"failed", failed}};
  if (marked.empty() && failed.empty()) return tellThatThereIsNoLog(_options, _report);
  if (!marked.empty()) return failed.empty() ? exitOk : exitPartial;
  if (isDenied) Report::message("\"sudo qmrkctl mark\" may write there");
  return isDenied ? exitNoPermission : exitNegative;
}

}  // namespace

void addMarkCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* const command = _program.add_subcommand("mark", "Append a line to every log, to find a moment again");
  const auto text = std::make_shared<std::string>();
  command->add_option("TEXT", *text, "The text of the line")->required()->check(checkNotEmpty);
  command->footer("Example: qmrkctl mark \"pump switched on\"");
  command->callback([text, &_choice] {
    _choice = {"mark", [text](const Options& _options, Report& _report) { return markLogs(*text, _options, _report); }};
  });
}

}  // namespace qmrkctl
