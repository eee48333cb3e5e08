// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>
#include <string>

#include "quillmark_logging_names.h"
#include "tools/qmrkctl/acknowledgement.h"
#include "tools/qmrkctl/answer_report.h"
#include "tools/qmrkctl/asked_viewpoint.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/duration.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/steering.h"
#include "tools/system/end_request.h"

namespace qmrkctl {
namespace {

struct SignalOptions {
  std::string event = Quillmark_logging::QMRK_LOG_EVENT;
  std::optional<int> session;
  std::string wait = "2s";
};

std::vector<Addressee> addresseesOf(const std::vector<RunningProcess>& _processes) {
  std::vector<Addressee> addressees;
  addressees.reserve(_processes.size());
  for (const RunningProcess& process : _processes)
    addressees.push_back({process, hashOfList(process)});
  return addressees;
}

bool isReached(const PlaceResult& _place) { return _place.error == platform::noError; }

bool isDenied(const PlaceResult& _place) { return _place.error == platform::errorAccessDenied; }

int refuseName(const std::string& _event, platform::ErrorCode _error) {
  Report::message("\"" + shown(_event) + "\" cannot name an event (error " + std::to_string(_error) + ")");
  return exitUsage;
}

// What is said where no event could be set.
int tellNobody(const std::string& _event, const Acknowledgement& _result, std::size_t _ofOthers, Report& _report) {
  const auto& places = _result.places;
  const auto denied = std::find_if(places.begin(), places.end(), isDenied);
  if (denied != places.end()) {
    Report::message("the event \"" + shown(_event) + "\" of " + shown(denied->place.text) +
                    " cannot be set (error 5); \"sudo qmrkctl signal --all-users\" may set it");
    return exitNoPermission;
  }
  const auto failed = std::find_if(places.begin(), places.end(), [](const PlaceResult& _place) {
    return !isReached(_place) && _place.error != platform::errorFileNotFound;
  });
  if (failed != places.end()) {
    Report::message("the event \"" + shown(_event) + "\" cannot be set (error " + std::to_string(failed->error) + ")");
    return exitInternal;
  }
  if (_ofOthers > 0) {
    _report.line("none of these processes holds the event \"" + shown(_event) + "\", but " + std::to_string(_ofOthers) +
                 " of other users may");
    Report::message("\"sudo qmrkctl signal --all-users\" reaches them");
    return exitNoPermission;
  }
  _report.line("nobody listens: no process holds the event \"" + shown(_event) + "\"");
  return exitNegative;
}

int signalEvent(const SignalOptions& _signal, const Options& _options, Report& _report) {
  if (refusesUser(_options)) return exitNotFound;
  const ProcessQuery query = steeredProcesses(_options);
  const RunningProcesses processes = runningProcesses(query);
  if (processes.found.empty() && (query.pid || !query.application.empty())) {
    if (_options.pid && isHiddenProcess(*_options.pid)) return refuseHiddenProcess(*_options.pid);
    Report::message("no such process has the library loaded, as far as can be seen");
    return exitNotFound;
  }
  toolsystem::catchEndRequests();
  const Acknowledgement result = signalAndAwait(placesOf(query, processes.found, _signal.session), _signal.event,
                                                addresseesOf(processes.found), *parseDuration(_signal.wait));
  for (const PlaceResult& place : result.places) {
    if (place.error == platform::errorInvalidName || place.error == platform::errorFilenameTooLong) {
      return refuseName(_signal.event, place.error);
    }
  }
  _report.result() = {{"event", _signal.event}, {"ofOthers", processes.ofOthers}};
  reportAcknowledgement(result, _report);
  if (std::none_of(result.places.begin(), result.places.end(), isReached)) {
    return tellNobody(_signal.event, result, processes.ofOthers, _report);
  }
  if (processes.ofOthers > 0) {
    _report.line(std::to_string(processes.ofOthers) + " more of other users; sudo qmrkctl signal --all-users");
  }
  const int exitCode = exitCodeOf(result, false);
  const bool isAnyDenied = std::any_of(result.places.begin(), result.places.end(), isDenied);
  return exitCode == exitOk && isAnyDenied ? exitPartial : exitCode;
}

}  // namespace

void addSignalCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* command = _program.add_subcommand("signal", "Make running applications apply their class lists again");
  const auto signal = std::make_shared<SignalOptions>();
  command->add_option("--event", signal->event, "Name of the event")->type_name("NAME")->capture_default_str();
  command->add_option("--session", signal->session, "That session only (Windows)")->type_name("N");
  command->add_option("--wait", signal->wait, "How long to wait for their answers")
      ->type_name("DURATION")
      ->capture_default_str()
      ->check([](const std::string& _text) { return parseDuration(_text) ? "" : _text + " " + durationHint; });
  command->footer(
      "As root the applications of all users are meant, else those of the running user.\n"
      "Example: sudo qmrkctl signal");
  command->callback([signal, &_choice] {
    _choice = {"signal",
               [signal](const Options& _options, Report& _report) { return signalEvent(*signal, _options, _report); }};
  });
}

}  // namespace qmrkctl
