// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/commands.h"

#include <string>

#include "tools/qmrkctl/argument_check.h"

namespace qmrkctl {
namespace {

ColorMode colorMode(const std::string& _name) {
  if (_name == "always") return ColorMode::always;
  return _name == "never" ? ColorMode::never : ColorMode::automatic;
}

// The options of a command may stand behind the commands below it, too.
void handDownOptions(CLI::App& _command) {
  for (CLI::App* const below : _command.get_subcommands({})) {
    below->fallthrough();
    handDownOptions(*below);
  }
}

}  // namespace

void addOptions(CLI::App& _program, Options& _options) {
  CLI::Option* const ca = _program.add_option("--ca", _options.ca, "Customer adaptation, instead of the default one");
  ca->type_name("CA")->check(checkNotEmpty);
  CLI::Option* const user =
      _program.add_option("--user", _options.user, "As that user sees it, or his processes")->type_name("USER");
  user->check(checkNotEmpty);
  CLI::Option* const all = _program.add_flag("--all-users", _options.allUsers, "The processes of every user");
  CLI::Option* const pid = _program.add_option("--pid", _options.pid, "That process")->type_name("PID");
  CLI::Option* const app = _program.add_option("--app", _options.app, "The processes of that application");
  app->type_name("NAME")->check(checkNotEmpty);
  user->excludes(all, pid);
  all->excludes(pid);
  pid->excludes(app);
  _program.add_flag("--json", _options.json, "The result as one object of JSON");
  _program
      .add_option_function<std::string>(
          "--color", [&_options](const std::string& _mode) { _options.color = colorMode(_mode); },
          "Colours: auto (on a terminal, unless NO_COLOR is set), always, never")
      ->check(CLI::IsMember({"auto", "always", "never"}))
      ->type_name("WHEN");
  CLI::Option* const quiet = _program.add_flag_callback(
      "-q,--quiet", [&_options] { _options.verbosity = Verbosity::quiet; }, "No result in text, only the exit code");
  _program
      .add_flag_callback(
          "-v,--verbose", [&_options] { _options.verbosity = Verbosity::verbose; }, "More of the details")
      ->excludes(quiet);
}

void addCommands(CLI::App& _program, Choice& _choice) {
  constexpr AddCommand all[] = {
      addAppsCommand,   addBundleCommand, addCheckCommand,   addClassesCommand, addCompletionCommand,
      addDoctorCommand, addErrorsCommand, addExplainCommand, addHistoryCommand, addInitConfigCommand,
      addLeasesCommand, addMarkCommand,   addSchemaCommand,  addShowCommand,    addSignalCommand,
      addTailCommand,   addWhereCommand,  addWhyCommand,
  };
  for (const AddCommand add : all)
    add(_program, _choice);
  _program.require_subcommand(1);
  handDownOptions(_program);
}

}  // namespace qmrkctl
