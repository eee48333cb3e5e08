// SPDX-License-Identifier: MIT
#include <algorithm>
#include <deque>
#include <memory>
#include <string>

#include "platform/clock.h"
#include "tools/logs/log_line.h"
#include "tools/logs/merged_logs.h"
#include "tools/logs/since.h"
#include "tools/qmrkctl/argument_check.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/tail/log_choice.h"
#include "tools/system/elevation.h"
#include "tools/system/interruption.h"

namespace qmrkctl {
namespace {

using toolsystem::OpenResult;

constexpr std::uint64_t defaultLines = 10;
constexpr int pollMilliseconds = 150;
// A fragment is shown when nothing has come behind it for a second.
constexpr int idleRefreshes = 7;

struct TailOptions {
  bool follows = false;
  std::uint64_t lines = defaultLines;
  bool hasLines = false;
  std::vector<std::string> classes;
  std::string since;
};

// Brings lines into the form of the result.
class TailWriter {
 public:
  TailWriter(const std::vector<ChosenLog>& _logs, Report& _report) : logs_(_logs), report_(_report) {
    for (const ChosenLog& log : logs_)
      width_ = std::max(width_, shown(log.user).size());
    report_.result()["lines"] = Json::array();
  }

  void write(const MergedLine& _line, bool _asJson) {
    if (_asJson) {
      report_.result()["lines"].push_back(jsonOf(_line));
      return;
    }
    report_.line(column(_line) + report_.painted(shown(_line.text), styleOf(_line)));
  }

 private:
  std::string column(const MergedLine& _line) const {
    if (logs_.size() < 2) return "";
    std::string user = shown(logs_[_line.log].user);
    user.resize(std::max(width_, user.size()), ' ');
    return report_.painted(user, Style::strong) + "  ";
  }

  static Style styleOf(const MergedLine& _line) {
    switch (gravityOf(_line.logClass)) {
      case Gravity::error:
        return Style::bad;
      case Gravity::warning:
        return Style::doubtful;
      case Gravity::detail:
        return Style::faint;
      case Gravity::normal:
        break;
    }
    return Style::plain;
  }

  Json jsonOf(const MergedLine& _line) const {
    Json object = {{"user", logs_[_line.log].user}, {"log", logs_[_line.log].path}};
    if (!_line.logClass.empty()) object["class"] = _line.logClass;
    if (_line.time != 0) object["local_time"] = civilText(_line.time);
    object["text"] = _line.text;
    return object;
  }

  const std::vector<ChosenLog>& logs_;
  Report& report_;
  std::size_t width_ = 0;
};

// What cannot be read is told; the exit code tells whether anything can.
int reportOpened(const LogChoice& _choice, const std::vector<OpenResult>& _results, bool _follows) {
  int exitCode = exitOk;
  bool isAnyOpen = false;
  for (std::size_t i = 0; i < _results.size(); ++i) {
    const ChosenLog& log = _choice.logs[i];
    if (_results[i] == OpenResult::opened) {
      isAnyOpen = true;
    } else if (_results[i] == OpenResult::denied) {
      exitCode = exitNoPermission;
      Report::message(shown(log.path) + " may not be read; " +
                      toolsystem::elevated("qmrkctl --user " + shown(log.user) + " tail") + " may");
    } else if (_results[i] == OpenResult::unreadable) {
      exitCode = exitNegative;
      Report::message(shown(log.path) + " is no file that can be read");
    } else if (_follows) {
      Report::message("waiting for " + shown(log.path));
    } else {
      exitCode = exitNotFound;
      Report::message(_choice.problem.empty() ? "there is no log " + shown(log.path) + " yet" : shown(_choice.problem));
    }
  }
  return isAnyOpen && exitCode != exitOk ? exitPartial : exitCode;
}

int follow(MergedLogs& _logs, TailWriter& _writer, const Report& _report) {
  MergedLine line;
  while (_report.isWritable()) {
    switch (toolsystem::pauseFor(pollMilliseconds)) {
      case toolsystem::Pause::interrupted:
        return exitInterrupted;
      case toolsystem::Pause::readerGone:
        return exitOk;
      case toolsystem::Pause::over:
        break;
    }
    _logs.refresh();
    while (_report.isWritable() && (_logs.next(line) || _logs.takeFragment(line, idleRefreshes)))
      _writer.write(line, false);
  }
  return exitOk;
}

// Without a limit the lines go through; else the last ones are known when all have been seen.
void writeLast(MergedLogs& _logs, std::uint64_t _lines, bool _withFragments, TailWriter& _writer,
               const std::pair<const Options&, const Report&>& _context) {
  const auto& [options, report] = _context;
  std::deque<MergedLine> last;
  MergedLine line;
  while (report.isWritable() && (_logs.next(line) || (_withFragments && _logs.takeFragment(line, 0)))) {
    if (_lines == BackwardScan::allLines) {
      _writer.write(line, options.json);
      continue;
    }
    last.push_back(std::move(line));
    if (last.size() > _lines) last.pop_front();
  }
  for (const MergedLine& each : last)
    _writer.write(each, options.json);
}

bool queryOf(const TailOptions& _tail, MessageQuery& _query) {
  for (const std::string& list : _tail.classes) {
    for (const std::string& pattern : patternsOf(list))
      _query.classes.push_back(pattern);
  }
  if (_tail.since.empty()) return true;
  _query.since = sinceTime(_tail.since, platform::wallClockMilliseconds(), platform::toLocalTime);
  return _query.since.has_value();
}

int tail(const TailOptions& _tail, const Options& _options, Report& _report) {
  MessageQuery query;
  if (!queryOf(_tail, query)) {
    Report::message("\"" + shown(_tail.since) + "\" is no time; write " + sinceForms);
    return exitUsage;
  }
  if (_tail.follows && _options.json) {
    Report::message("--follow has no end, and --json gives one object at the end: use one of them");
    return exitUsage;
  }
  const LogChoice choice = chooseLogs(_options);
  if (choice.logs.empty()) {
    Report::message(shown(choice.problem));
    return exitNotFound;
  }
  std::vector<std::string> paths;
  std::ranges::transform(choice.logs, std::back_inserter(paths), &ChosenLog::path);
  MergedLogs logs(paths, query);
  const std::uint64_t lines = query.since && !_tail.hasLines ? BackwardScan::allLines : _tail.lines;
  if (_tail.follows) toolsystem::catchInterruption();
  const int exitCode = reportOpened(choice, logs.begin(lines), _tail.follows);
  TailWriter writer(choice.logs, _report);
  writeLast(logs, lines, !_tail.follows, writer, {_options, _report});
  return _tail.follows && exitCode == exitOk ? follow(logs, writer, _report) : exitCode;
}

}  // namespace

void addTailCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* command = _program.add_subcommand(
      "tail", "Show the last lines of the common log, or with --app NAME of the log of an application");
  const auto tailOptions = std::make_shared<TailOptions>();
  command->add_flag("-f,--follow", tailOptions->follows, "Go on with each new line, until Ctrl-C");
  CLI::Option* const lines = command->add_option("-n,--lines", tailOptions->lines, "So many lines; 10 without --since")
                                 ->type_name("N")
                                 ->check(CLI::Range(std::uint64_t{0}, std::uint64_t{1'000'000'000}));
  command
      ->add_option("--class", tailOptions->classes,
                   "Only classes that a pattern selects, as in a class list: \"Demo.Net\", \"*.error\", \"A;B\"")
      ->allow_extra_args(false)
      ->type_name("PATTERN")
      ->check(checkNotEmpty);
  command->add_option("--since", tailOptions->since, std::string("Only messages since then: ") + sinceForms)
      ->type_name("TIME")
      ->check(checkNotEmpty);
  command->footer(
      "Backups of a rotated log come before it, as one stream. Times are those of the log.\n"
      "Example: qmrkctl tail -f --class \"*.error\" --since 10m");
  command->callback([tailOptions, lines, &_choice] {
    tailOptions->hasLines = lines->count() > 0;
    _choice = {"tail", [tailOptions](const Options& _options, Report& _report) {
                 return tail(*tailOptions, _options, _report);
               }};
  });
}

}  // namespace qmrkctl
