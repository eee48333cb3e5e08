// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/signal_command.h"

#include <iostream>
#include <memory>
#include <string>

#include "platform/named_event.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/exit_code.h"

namespace qmrkctl {
namespace {

int failure(const std::string& _event, platform::ErrorCode _error) {
  switch (_error) {
    case platform::errorFileNotFound:
      std::cout << "nobody listens: no process holds the event \"" << _event << "\"\n";
      return exitNoListener;
    case platform::errorInvalidName:
    case platform::errorFilenameTooLong:
      std::cerr << "qmrkctl: \"" << _event << "\" cannot name an event (error " << _error << ")\n";
      return exitUsage;
    default:
      std::cerr << "qmrkctl: the event \"" << _event << "\" cannot be set (error " << _error << ")\n";
      return exitFailed;
  }
}

int signalEvent(const std::string& _event) {
  const platform::Handle event = platform::openEvent(_event);
  if (event == nullptr) return failure(_event, platform::lastError());
  const bool done = platform::setEvent(event);
  const platform::ErrorCode error = platform::lastError();
  platform::closeHandle(event);
  if (!done) return failure(_event, error);
  std::cout << "the event \"" << _event << "\" is set; there was a listener\n";
  return exitDone;
}

}  // namespace

void addSignalCommand(CLI::App& _program, int& _exitCode) {
  CLI::App* command = _program.add_subcommand("signal", "Set the event on which listeners apply their log levels anew");
  const auto event = std::make_shared<std::string>(Quillmark_logging::QMRK_LOG_EVENT);
  command->add_option("--event", *event, "Name of the event")->type_name("NAME")->capture_default_str();
  command->footer("Exit code: 0 the event was set, 1 no process holds it, 2 wrong usage, 3 the system refused.");
  command->callback([event, &_exitCode] { _exitCode = signalEvent(*event); });
}

}  // namespace qmrkctl
