// SPDX-License-Identifier: MIT
#include <memory>
#include <string>

#include "platform/native_path.h"
#include "tools/qmrkctl/answer_report.h"
#include "tools/qmrkctl/asked_viewpoint.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/duration.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/file_refusal.h"
#include "tools/qmrkctl/lease_sweep.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/steering.h"
#include "tools/qmrkctl/utc_time.h"

namespace qmrkctl {
namespace {

int listLeases(const Options& _options, Report& _report) {
  int refusal = exitOk;
  const auto viewpoint = askedViewpoint(_options, refusal);
  if (!viewpoint) return refusal;
  const Clocks now = clocksNow();
  int exitCode = exitOk;
  Json all = Json::array();
  for (const ClassListPlace& place : listsWithLeases(*viewpoint)) {
    const auto state = readClassList(place);
    if (!state) return refuseUnread(place.reached, "qmrkctl leases list");
    if (state->hasDamagedLeases) {
      Report::message("cannot read all of " + shown(platform::nativePath(place.lease)) +
                      ": what it should switch off stays on until \"qmrkctl classes disable\"");
      exitCode = exitPartial;
    }
    for (const Lease& lease : state->leases) {
      std::string line = shown(place.ca) + " until " + utcText(lease.until) + " (" +
                         std::to_string(timeLeft(lease, now).count() / 1000) + " s left)";
      for (const std::string& name : lease.classes)
        line += " " + shown(name);
      if (!lease.who.empty()) line += ", by " + shown(lease.who);
      if (!lease.reason.empty()) line += ": " + shown(lease.reason);
      _report.line(line);
      all.push_back({{"ca", place.ca},
                     {"classes", lease.classes},
                     {"since", utcText(lease.since)},
                     {"until", utcText(lease.until)},
                     {"who", lease.who},
                     {"reason", lease.reason}});
    }
  }
  if (all.empty()) _report.line("no class is on for a time");
  _report.result() = {{"leases", all}};
  return exitCode;
}

int sweepAll(const std::string& _wait, const Options& _options, Report& _report) {
  int refusal = exitOk;
  const auto viewpoint = askedViewpoint(_options, refusal);
  if (!viewpoint) return refusal;
  Json all = Json::array();
  int exitCode = exitOk;
  for (const ClassListPlace& place : listsWithLeases(*viewpoint)) {
    const auto swept = sweepList(place, *parseDuration(_wait));
    if (!swept) continue;
    if (swept->failure) {
      Report::message(shown(swept->failure->text));
      exitCode = swept->failure->isDenied ? exitNoPermission : exitInternal;
    }
    std::string line = shown(place.ca) + ":";
    for (const std::string& name : swept->ended)
      line += " -" + shown(name);
    if (!swept->ended.empty()) _report.line(line);
    reportAcknowledgement(swept->acknowledgement, _report);
    all.push_back({{"ca", place.ca},
                   {"ended", swept->ended},
                   {"places", _report.result()["places"]},
                   {"answers", _report.result()["answers"]}});
  }
  _report.result() = {{"swept", all}};
  return exitCode;
}

}  // namespace

void addLeasesCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* const leases = _program.add_subcommand("leases", "Classes that are on for a time");
  leases->require_subcommand(0, 1);
  leases->callback([leases, &_choice] {
    if (leases->get_subcommands().empty()) _choice = {"leases", listLeases};
  });
  leases->footer("Example: qmrkctl leases list");
  CLI::App* const list = leases->add_subcommand("list", "Show them, with the time that is left");
  list->fallthrough();
  list->callback([&_choice] { _choice = {"leases", listLeases}; });
  CLI::App* const sweepCommand =
      leases->add_subcommand("sweep", "Switch off what is over, as every command does in passing");
  sweepCommand->fallthrough();
  const auto wait = std::make_shared<std::string>("2s");
  sweepCommand->add_option("--wait", *wait, "How long to wait for the answers of the applications")
      ->type_name("DURATION")
      ->capture_default_str()
      ->check([](const std::string& _text) { return parseDuration(_text) ? "" : _text + " " + durationHint; });
  sweepCommand->callback([wait, &_choice] {
    _choice = {"leases",
               [wait](const Options& _options, Report& _report) { return sweepAll(*wait, _options, _report); }, true};
  });
}

}  // namespace qmrkctl
