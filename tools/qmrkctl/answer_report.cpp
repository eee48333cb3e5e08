// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/answer_report.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <string_view>

#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/shown_text.h"

namespace qmrkctl {
namespace {

constexpr std::size_t mostNamesShown = 8;

std::string millisecondsText(double _milliseconds) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.1f ms", _milliseconds);
  return text.data();
}

void addNames(const std::vector<std::string>& _names, char _sign, std::string& _line) {
  for (std::size_t i = 0; i < std::min(_names.size(), mostNamesShown); ++i) {
    _line += std::string(" ") + _sign + shown(_names[i]);
  }
  if (_names.size() > mostNamesShown) {
    _line += std::string(" ") + _sign + "(" + std::to_string(_names.size() - mostNamesShown) + " more)";
  }
}

std::string_view placeState(const PlaceResult& _place) {
  if (_place.error == platform::noError) return "reached";
  if (_place.error == platform::errorFileNotFound) return "none";
  return _place.error == platform::errorAccessDenied ? "denied" : "failed";
}

struct Count {
  int good = 0;
  int late = 0;
  int denied = 0;
  int other = 0;
};

void countAnswer(const Answer& _answer, bool _isEverybodyNeeded, Count& _count) {
  switch (_answer.outcome) {
    case Outcome::applied:
      ++_count.good;
      break;
    case Outcome::stopped:
    case Outcome::silent:
      ++_count.late;
      break;
    case Outcome::unreached:
      ++_count.denied;
      break;
    case Outcome::failed:
      ++_count.other;
      break;
    case Outcome::notListening:
    case Outcome::unseen:
      _count.other += _isEverybodyNeeded ? 1 : 0;
      break;
    case Outcome::ended:
      break;
  }
}

}  // namespace

std::string placeLine(const PlaceResult& _place) {
  const std::string_view state = placeState(_place);
  std::string line = shown(_place.place.text) + ": " + std::string(state);
  if (state == "reached" && _place.reached > 0) line += " " + std::to_string(_place.reached);
  if (state == "failed") line += " (error " + std::to_string(_place.error) + ")";
  return line;
}

std::string answerLine(const Answer& _answer) {
  const RunningProcess& process = _answer.process;
  std::string line = std::to_string(process.pid()) + " " + shown(process.application) + " " +
                     shown(process.facts.user) + " " + std::string(outcomeName(_answer.outcome));
  addNames(_answer.switchedOn, '+', line);
  addNames(_answer.switchedOff, '-', line);
  if (_answer.outcome == Outcome::applied && _answer.switchedOn.empty() && _answer.switchedOff.empty()) {
    line += " (no change)";
  }
  if (!_answer.reason.empty()) line += ": " + shown(_answer.reason);
  if (_answer.outcome == Outcome::applied || _answer.outcome == Outcome::failed) {
    line += ", " + millisecondsText(_answer.milliseconds);
  }
  return line;
}

Json placeJson(const PlaceResult& _place) {
  Json object = {{"place", _place.place.text}, {"state", placeState(_place)}, {"reached", _place.reached}};
  if (_place.error != platform::noError) object["error"] = _place.error;
  return object;
}

Json answerJson(const Answer& _answer) {
  Json object = {{"pid", _answer.process.pid()},
                 {"application", _answer.process.application},
                 {"user", _answer.process.facts.user},
                 {"outcome", outcomeName(_answer.outcome)},
                 {"on", _answer.switchedOn},
                 {"off", _answer.switchedOff},
                 {"milliseconds", _answer.milliseconds}};
  if (!_answer.reason.empty()) object["reason"] = _answer.reason;
  return object;
}

void reportAcknowledgement(const Acknowledgement& _acknowledgement, Report& _report) {
  Json places = Json::array();
  for (const PlaceResult& place : _acknowledgement.places) {
    _report.line(placeLine(place));
    places.push_back(placeJson(place));
  }
  Json answers = Json::array();
  for (const Answer& answer : _acknowledgement.answers) {
    const bool isGood = answer.outcome == Outcome::applied;
    _report.line(_report.painted(answerLine(answer), isGood ? Style::good : Style::doubtful));
    answers.push_back(answerJson(answer));
  }
  _report.result()["places"] = places;
  _report.result()["answers"] = answers;
}

int exitCodeOf(const Acknowledgement& _acknowledgement, bool _isEverybodyNeeded) {
  if (_acknowledgement.wasInterrupted) return exitInterrupted;
  Count count;
  for (const Answer& answer : _acknowledgement.answers)
    countAnswer(answer, _isEverybodyNeeded, count);
  if (count.late + count.denied + count.other == 0) return exitOk;
  if (count.good > 0 || count.other > 0) return exitPartial;
  return count.late > 0 ? exitTimeout : exitNoPermission;
}

}  // namespace qmrkctl
