// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/qmrkctl/running_processes.h"
#include "tools/system/event_place.h"

namespace qmrkctl {

enum class Outcome {
  applied,       ///< the list that was expected
  failed,        ///< it tried to; the reason says why it could not
  notListening,  ///< no thread of it waits for the event
  stopped,       ///< by SIGSTOP or a debugger; it will follow when it goes on
  ended,         ///< before it answered
  silent,        ///< no answer in time
  unseen,        ///< the event was set, but its page cannot be read, so what it did is not known
  unreached,     ///< the event could not be set for it
};

/// What became of one process.
struct Answer {
  RunningProcess process;  ///< with the latest page that was read
  Outcome outcome = Outcome::silent;
  double milliseconds = 0;              ///< from the setting of the event until the answer was seen
  std::vector<std::string> switchedOn;  ///< logs of the process that are on since
  std::vector<std::string> switchedOff;
  std::string reason;  ///< for people; empty when there is nothing to add
};

/// A process that is to apply its class list again.
struct Addressee {
  RunningProcess process;
  /// Hash of the list that it is to have then; none: any will do.
  std::optional<std::uint64_t> hash;
};

struct PlaceResult {
  toolsystem::EventPlace place;
  platform::ErrorCode error = platform::noError;
  int reached = 0;  ///< processes that are known to listen there
};

struct Acknowledgement {
  std::vector<PlaceResult> places;
  std::vector<Answer> answers;  ///< one for each addressee, in their order
  bool wasInterrupted = false;
};

/// Sets the event in all places and waits for the addressees, at most so long. Returns as soon as nothing more is to be
/// expected: a process that is stopped, does not listen or has no page keeps nobody waiting. A listener that had read
/// the list before it was written absorbs the setting, so the event is set again until it has the expected list.
Acknowledgement signalAndAwait(const std::vector<toolsystem::EventPlace>& _places, const std::string& _event,
                               const std::vector<Addressee>& _addressees, std::chrono::milliseconds _wait);

/// "applied", "failed", "not listening" ... as it is shown.
std::string_view outcomeName(Outcome _outcome);

}  // namespace qmrkctl
