// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "tools/qmrkctl/acknowledgement.h"
#include "tools/qmrkctl/command_report.h"
#include "tools/qmrkctl/json.h"

namespace qmrkctl {

/// "user root: reached 2", "user app: denied", "user other: none".
std::string placeLine(const PlaceResult& _place);

/// The line of a process: pid, application, user, outcome, changes, milliseconds.
std::string answerLine(const Answer& _answer);

Json placeJson(const PlaceResult& _place);
Json answerJson(const Answer& _answer);

/// Prints the places and the answers, and adds both to the result as "places" and "answers".
void reportAcknowledgement(const Acknowledgement& _acknowledgement, Report& _report);

/// The exit code for the answers.
/// @param _isEverybodyNeeded whether a process counts as missing that does not listen or whose answer cannot be seen.
int exitCodeOf(const Acknowledgement& _acknowledgement, bool _isEverybodyNeeded);

}  // namespace qmrkctl
