// SPDX-License-Identifier: MIT
#include <memory>
#include <string>

#include "platform/named_event.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/shown_text.h"

namespace qmrkctl {
namespace {

int failure(const std::string& _event, platform::ErrorCode _error, Report& _report) {
  switch (_error) {
    case platform::errorFileNotFound:
      _report.line("nobody listens: no process holds the event \"" + shown(_event) + "\"");
      return exitNegative;
    case platform::errorInvalidName:
    case platform::errorFilenameTooLong:
      Report::message("\"" + shown(_event) + "\" cannot name an event (error " + std::to_string(_error) + ")");
      return exitUsage;
    default:
      Report::message("the event \"" + shown(_event) + "\" cannot be set (error " + std::to_string(_error) + ")");
      return _error == platform::errorAccessDenied ? exitNoPermission : exitInternal;
  }
}

int signalEvent(const std::string& _event, Report& _report) {
  const platform::Handle event = platform::openEvent(_event);
  if (event == nullptr) return failure(_event, platform::lastError(), _report);
  const bool done = platform::setEvent(event);
  const platform::ErrorCode error = platform::lastError();
  platform::closeHandle(event);
  if (!done) return failure(_event, error, _report);
  _report.line("the event \"" + shown(_event) + "\" is set; there was a listener");
  return exitOk;
}

}  // namespace

void addSignalCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* command =
      _program.add_subcommand("signal", "Set the event on which listeners apply their log levels again");
  const auto event = std::make_shared<std::string>(Quillmark_logging::QMRK_LOG_EVENT);
  command->add_option("--event", *event, "Name of the event")->type_name("NAME")->capture_default_str();
  command->callback([event, &_choice] {
    _choice = {"signal", [event](const Options&, Report& _report) { return signalEvent(*event, _report); }};
  });
}

}  // namespace qmrkctl
