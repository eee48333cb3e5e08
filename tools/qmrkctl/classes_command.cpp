// SPDX-License-Identifier: MIT
#include <memory>
#include <string>

#include "tools/qmrkctl/change_kind.h"
#include "tools/qmrkctl/class_change.h"
#include "tools/qmrkctl/class_list_text.h"
#include "tools/qmrkctl/class_overview.h"
#include "tools/qmrkctl/class_trial.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/duration.h"

namespace qmrkctl {
namespace {

// What the command line says, as texts.
struct ChangeOptions {
  ChangeRequest request;
  std::string duration;
  std::string wait = "2s";

  ChangeRequest whole() const {
    ChangeRequest all = request;
    if (!duration.empty()) all.duration = parseDuration(duration);
    all.wait = *parseDuration(wait);
    return all;
  }
};

std::string checkDuration(const std::string& _text) {
  const auto duration = parseDuration(_text);
  return duration && duration->count() > 0 ? "" : _text + " " + durationHint;
}

std::string checkWait(const std::string& _text) { return parseDuration(_text) ? "" : _text + " " + durationHint; }

std::string checkName(const std::string& _text) {
  return isClassName(_text) ? "" : "a class is a name without \";\", line ends and blanks around it";
}

void addNames(CLI::App& _command, ChangeRequest& _request) {
  _command.add_option("NAME", _request.names, "Classes, as they stand in the list")->required()->check(checkName);
}

void addWaiting(CLI::App& _command, ChangeOptions& _options) {
  _command.add_option("--reason", _options.request.reason, "Why, for the history")->type_name("TEXT");
  _command.add_option("--wait", _options.wait, "How long to wait for the answers of the applications")
      ->type_name("DURATION")
      ->capture_default_str()
      ->check(checkWait);
  _command.add_flag("--force", _options.request.isForced, "Write the list whatever is wrong with it");
}

struct Kind {
  ChangeKind kind;
  const char* help;
  const char* footer;
};

constexpr Kind kinds[] = {
    {ChangeKind::enable, "Switch classes on",
     "Example: qmrkctl classes enable Demo.Net --for 20m --reason \"slow start\""},
    {ChangeKind::disable, "Switch classes off", "Example: qmrkctl classes disable Demo.Net"},
    {ChangeKind::only, "Switch these classes on and all others off", "Example: qmrkctl classes only Demo.App.error"},
    {ChangeKind::set, "Replace the whole list", "Example: qmrkctl classes set \"Demo.App;Demo.Net.error;\""},
    {ChangeKind::clear, "Switch everything off", "Example: qmrkctl classes clear --dry-run"},
};

void addChange(CLI::App& _classes, const Kind& _kind, Choice& _choice) {
  CLI::App* const command = _classes.add_subcommand(std::string(changeName(_kind.kind)), _kind.help);
  const auto options = std::make_shared<ChangeOptions>();
  options->request.kind = _kind.kind;
  const bool hasNames = _kind.kind != ChangeKind::set && _kind.kind != ChangeKind::clear;
  if (hasNames) addNames(*command, options->request);
  if (_kind.kind == ChangeKind::set) {
    command->add_option("LIST", options->request.list, "The text of the list")
        ->required()
        ->check([](const auto& _text) { return _text.empty() ? "an empty list is written by \"classes clear\"" : ""; });
  }
  if (_kind.kind != ChangeKind::disable && _kind.kind != ChangeKind::clear) {
    command->add_option("--for", options->duration, "Switch off again, after so long, what this switches on")
        ->type_name("DURATION")
        ->check(checkDuration);
  }
  addWaiting(*command, *options);
  command->add_flag("--dry-run", options->request.isDryRun, "Only show what would change");
  command->add_flag("--no-signal", options->request.isSilent, "Write the list, and let nobody apply it yet");
  command->footer(_kind.footer);
  command->callback([options, &_choice] {
    _choice = {"classes", [options](const Options& _common, Report& _report) {
                 return changeClasses(options->whole(), _common, _report);
               }};
  });
}

void addTrial(CLI::App& _classes, Choice& _choice) {
  CLI::App* const command = _classes.add_subcommand("try", "Switch classes on for a while and measure what they log");
  const auto options = std::make_shared<ChangeOptions>();
  addNames(*command, options->request);
  command->add_option("--for", options->duration, "How long")->type_name("DURATION")->required()->check(checkDuration);
  addWaiting(*command, *options);
  command->footer(
      "Ctrl-C ends it early; the classes go off again in every case.\n"
      "Example: qmrkctl classes try Demo.Net --for 30s");
  command->callback([options, &_choice] {
    _choice = {"classes", [options](const Options& _common, Report& _report) {
                 return tryClasses(options->whole(), _common, _report);
               }};
  });
}

}  // namespace

void addClassesCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* const classes = _program.add_subcommand("classes", "Show and switch log classes in running applications");
  classes->require_subcommand(1);
  classes->fallthrough();
  CLI::App* const list = classes->add_subcommand("list", "All classes: list, filter, running applications, log");
  list->callback([&_choice] { _choice = {"classes", listClasses}; });
  list->footer("Example: qmrkctl classes list --ca CA12");
  for (const Kind& kind : kinds)
    addChange(*classes, kind, _choice);
  addTrial(*classes, _choice);
  for (CLI::App* const command : classes->get_subcommands({}))
    command->fallthrough();
}

}  // namespace qmrkctl
