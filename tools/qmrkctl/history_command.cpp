// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/native_path.h"
#include "platform/text_file.h"
#include "tools/qmrkctl/asked_viewpoint.h"
#include "tools/qmrkctl/ca_choice.h"
#include "tools/qmrkctl/class_list_text.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/file_refusal.h"
#include "tools/qmrkctl/history.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/steering.h"
#include "tools/system/path_facts.h"

namespace qmrkctl {
namespace {

std::string textAt(const Json& _record, const char* _key) {
  return _record.contains(_key) && _record[_key].is_string() ? _record[_key].get<std::string>() : "";
}

// Records may be written by anybody who may write the list.
std::string recordLine(const Json& _record) {
  std::string line = shown(textAt(_record, "time"));
  if (_record.contains("who") && _record["who"].is_object()) {
    line += " " + shown(textAt(_record["who"], "user"));
    const std::string sudo = textAt(_record["who"], "sudoUser");
    if (!sudo.empty()) line += " (sudo by " + shown(sudo) + ")";
  }
  line += " " + shown(textAt(_record, "command"));
  const std::vector<std::string> before = classesIn(textAt(_record, "before"));
  const std::vector<std::string> after = classesIn(textAt(_record, "after"));
  for (const std::string& name : classesMissingIn(after, before))
    line += " +" + shown(name);
  for (const std::string& name : classesMissingIn(before, after))
    line += " -" + shown(name);
  if (!textAt(_record, "for").empty()) line += ", for " + shown(textAt(_record, "for"));
  if (_record.contains("answers") && _record["answers"].is_array() && !_record["answers"].empty()) {
    const Json& answers = _record["answers"];
    const auto applied = std::count_if(answers.begin(), answers.end(), [](const Json& _answer) {
      return _answer.is_object() && textAt(_answer, "outcome") == "applied";
    });
    line += ", applied by " + std::to_string(applied) + " of " + std::to_string(answers.size());
  }
  if (!textAt(_record, "reason").empty()) line += ": " + shown(textAt(_record, "reason"));
  return line;
}

int showHistory(std::size_t _most, const Options& _options, Report& _report) {
  int refusal = exitOk;
  const auto viewpoint = askedViewpoint(_options, refusal);
  if (!viewpoint) return refusal;
  const Configuration configuration = readConfiguration(*viewpoint, _options.ca);
  const auto place = classListPlace(*viewpoint, configuration);
  if (!place) {
    Report::message("the CA has no class list of its own");
    return exitNotFound;
  }
  tellOtherCa(configuration);
  const std::string path = platform::nativePath(place->history);
  const toolsystem::PathFacts facts = toolsystem::factsOf(path);
  std::string text;
  platform::TextReader file(place->history);
  if ((facts.kind != toolsystem::PathKind::missing || facts.isHidden) && !file.readAll(text)) {
    return refuseUnread(path, "qmrkctl history");
  }
  History history = parseHistory(text);
  const bool isEmpty = history.records.empty();
  if (history.records.size() > _most) {
    history.records.erase(history.records.begin(), history.records.end() - static_cast<std::ptrdiff_t>(_most));
  }
  for (const Json& record : history.records)
    _report.line(recordLine(record));
  if (isEmpty) _report.line("no change is recorded for " + shown(place->ca));
  if (history.unreadableLines > 0) {
    _report.line(std::to_string(history.unreadableLines) + " lines cannot be read");
  }
  _report.result() = {
      {"ca", place->ca}, {"file", path}, {"records", history.records}, {"unreadableLines", history.unreadableLines}};
  return exitOk;
}

}  // namespace

void addHistoryCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* const command = _program.add_subcommand("history", "Who changed the class list, when and why");
  const auto most = std::make_shared<std::size_t>(50);
  command->add_option("-n", *most, "How many changes, the latest")
      ->type_name("N")
      ->capture_default_str()
      ->check(CLI::Range(std::uint64_t{0}, std::uint64_t{1'000'000'000}));
  command->footer("Example: qmrkctl history -n 10 --ca CA12");
  command->callback([most, &_choice] {
    _choice = {"history",
               [most](const Options& _options, Report& _report) { return showHistory(*most, _options, _report); }};
  });
}

}  // namespace qmrkctl
