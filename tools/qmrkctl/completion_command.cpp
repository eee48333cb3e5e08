// SPDX-License-Identifier: MIT
#include <memory>
#include <string>

#include "tools/qmrkctl/command_model.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/shell_completion.h"

namespace qmrkctl {
namespace {

int printCompletion(const CommandModel& _program, const std::string& _shell, Report& _report) {
  const std::string script = _shell == "bash"  ? bashCompletion(_program)
                             : _shell == "zsh" ? zshCompletion(_program)
                                               : fishCompletion(_program);
  _report.result() = {{"shell", _shell}, {"script", script}};
  _report.bytes(script);
  return exitOk;
}

}  // namespace

void addCompletionCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* const command = _program.add_subcommand("completion", "Print the script by which a shell completes words");
  const auto shell = std::make_shared<std::string>();
  command->add_option("shell", *shell, "bash, zsh or fish")
      ->required()
      ->check(CLI::IsMember({"bash", "zsh", "fish"}))
      ->type_name("SHELL");
  command->footer("Example: qmrkctl completion bash > ~/.local/share/bash-completion/completions/qmrkctl");
  command->callback([shell, &_program, &_choice] {
    const auto model = std::make_shared<CommandModel>(commandModel(_program));
    _choice = {"completion",
               [shell, model](const Options&, Report& _report) { return printCompletion(*model, *shell, _report); }};
  });
}

}  // namespace qmrkctl
