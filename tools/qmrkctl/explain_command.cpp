// SPDX-License-Identifier: MIT
#include <cctype>
#include <memory>
#include <string>

#include "tools/qmrkctl/argument_check.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/finding_catalogue.h"
#include "tools/qmrkctl/shown_text.h"

namespace qmrkctl {
namespace {

// "q301" and "301" mean Q301 too.
std::string codeOf(const std::string& _text) {
  const bool isNumber = !_text.empty() && std::isdigit(static_cast<unsigned char>(_text.front())) != 0;
  return _text.starts_with('q') ? "Q" + _text.substr(1) : isNumber ? "Q" + _text : _text;
}

Json kindJson(const FindingKind& _kind) {
  return {{"code", _kind.code},       {"severity", severityName(_kind.severity)},
          {"meaning", _kind.meaning}, {"effect", _kind.effect},
          {"fix", _kind.fix},         {"example", _kind.example}};
}

std::string heading(const FindingKind& _kind) {
  return std::string(_kind.code) + " " + std::string(severityName(_kind.severity)) + ": " + std::string(_kind.meaning);
}

void explain(const FindingKind& _kind, Report& _report) {
  _report.line(_report.painted(heading(_kind), Style::strong));
  _report.line("  effect: " + std::string(_kind.effect));
  _report.line("  fix: " + std::string(_kind.fix));
  if (!_kind.example.empty()) _report.line("  example: " + std::string(_kind.example));
}

int explainCode(const std::string& _code, Report& _report) {
  Json kinds = Json::array();
  if (_code.empty()) {
    for (const FindingKind& kind : findingCatalogue()) {
      _report.line(heading(kind));
      kinds.push_back(kindJson(kind));
    }
  } else if (const FindingKind* const kind = findingKind(codeOf(_code))) {
    explain(*kind, _report);
    kinds.push_back(kindJson(*kind));
  } else {
    Report::message("no finding has the code \"" + shown(_code) + "\"; \"qmrkctl explain\" lists all");
    return exitNotFound;
  }
  _report.result() = {{"codes", kinds}};
  return exitOk;
}

}  // namespace

void addExplainCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* const command = _program.add_subcommand("explain", "Say what a code of a finding means and what to do");
  const auto code = std::make_shared<std::string>();
  command->add_option("code", *code, "The code, like Q301; without it all are listed")
      ->type_name("CODE")
      ->check(checkNotEmpty);
  command->footer("Example: qmrkctl explain Q301");
  command->callback([code, &_choice] {
    _choice = {"explain", [code](const Options&, Report& _report) { return explainCode(*code, _report); }};
  });
}

}  // namespace qmrkctl
