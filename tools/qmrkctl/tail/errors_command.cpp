// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>
#include <string>

#include "platform/clock.h"
#include "tools/logs/since.h"
#include "tools/qmrkctl/argument_check.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/tail/record_files.h"
#include "tools/qmrkctl/tail/viewpoints.h"
#include "tools/system/elevation.h"

namespace qmrkctl {
namespace {

constexpr std::size_t mostRecords = 10'000;

std::string headOf(const FoundRecord& _found, const std::string& _user) {
  const ErrorRecord& record = _found.record;
  std::string text = (record.time != 0 ? civilText(record.time) : std::string("without a time   "));
  text += "  " + std::string(recordKindName(record.kind));
  if (!record.ca.empty()) text += "  CA " + shown(record.ca);
  if (!record.caller.empty()) text += "  caller " + shown(record.caller);
  if (!_user.empty()) text += "  user " + shown(_user);
  return text;
}

void showRecord(const FoundRecord& _found, const RecordFile& _file, bool _withUser, Report& _report) {
  const ErrorRecord& record = _found.record;
  _report.line(headOf(_found, _withUser ? _file.user : ""));
  _report.line("  record: " + shown(record.text));
  if (!record.file.empty()) _report.line("  file: " + shown(record.file));
  _report.line("  meaning: " + shown(explanationOf(record)));
  _report.detail("  in: " + shown(_file.path) + ":" + std::to_string(_found.line));
}

Json jsonOfRecord(const FoundRecord& _found, const RecordFile& _file) {
  const ErrorRecord& record = _found.record;
  Json object = Json::object();
  if (record.time != 0) object["local_time"] = civilText(record.time);
  object["kind"] = recordKindName(record.kind);
  if (!record.ca.empty()) object["ca"] = record.ca;
  if (!record.caller.empty()) object["caller"] = record.caller;
  if (!record.file.empty()) object["file"] = record.file;
  object["text"] = record.text;
  object["meaning"] = explanationOf(record);
  object["user"] = _file.user;
  object["in"] = _file.path;
  object["line"] = _found.line;
  return object;
}

std::vector<RecordFile> filesOf(const std::vector<Viewpoint>& _viewpoints, const std::string& _ca) {
  std::vector<RecordFile> files;
  for (const Viewpoint& viewpoint : _viewpoints) {
    for (const RecordFile& file : recordFilesOf(viewpoint, _ca)) {
      const bool isKnown = std::ranges::any_of(files, [&file](const RecordFile& _f) { return _f.path == file.path; });
      if (!isKnown) files.push_back(file);
    }
  }
  return files;
}

int exitCodeOf(const RecordSearch& _search) {
  if (!_search.denied.empty()) return _search.records.empty() ? exitNoPermission : exitPartial;
  return _search.records.empty() ? exitOk : exitNegative;
}

int showErrors(const std::string& _since, const Options& _options, Report& _report) {
  std::optional<CivilTime> since;
  if (!_since.empty()) since = sinceTime(_since, platform::wallClockMilliseconds(), platform::toLocalTime);
  if (!_since.empty() && !since) {
    Report::message("\"" + shown(_since) + "\" is no time; write " + sinceForms);
    return exitUsage;
  }
  const ViewpointChoice choice = viewpointsOf(_options);
  if (choice.viewpoints.empty()) {
    Report::message(shown(choice.problem));
    return exitNotFound;
  }
  const std::vector<RecordFile> files = filesOf(choice.viewpoints, _options.ca);
  const RecordSearch search = readRecords(files, since, mostRecords);
  _report.result()["records"] = Json::array();
  for (const FoundRecord& found : search.records) {
    showRecord(found, files[found.file], choice.viewpoints.size() > 1, _report);
    if (_options.json) _report.result()["records"].push_back(jsonOfRecord(found, files[found.file]));
  }
  _report.result()["left_out"] = search.leftOut;
  if (search.leftOut > 0) _report.line(std::to_string(search.leftOut) + " earlier records are not shown");
  if (search.records.empty() && search.denied.empty()) _report.line("no error records");
  for (const std::size_t denied : search.denied) {
    Report::message(shown(files[denied].path) + " may not be read; " +
                    toolsystem::elevated("qmrkctl --user " + shown(files[denied].user) + " errors") + " may");
  }
  return exitCodeOf(search);
}

}  // namespace

void addErrorsCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* command = _program.add_subcommand(
      "errors", "Show what the library could not do: its records in the files qmrk.info, and what each means");
  const auto since = std::make_shared<std::string>();
  command->add_option("--since", *since, std::string("Only records since then: ") + sinceForms)
      ->type_name("TIME")
      ->check(checkNotEmpty);
  command->footer("Ends with 0 when there are none, with 1 when there are some.\nExample: qmrkctl errors --since 1d");
  command->callback([since, &_choice] {
    _choice = {"errors",
               [since](const Options& _options, Report& _report) { return showErrors(*since, _options, _report); }};
  });
}

}  // namespace qmrkctl
