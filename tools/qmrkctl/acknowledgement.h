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
  applied,       ///< it has the expected list
  failed,        ///< it tried but could not; the reason says why
  notListening,  ///< none of its threads waits for the event
  stopped,       ///< by SIGSTOP or a debugger; it will follow when it continues
  ended,         ///< before it answered
  silent,        ///< no answer in time
  unseen,        ///< the event was set, but its page cannot be read, so the outcome is unknown
  unreached,     ///< the event could not be set for it
};

/// The outcome for one process.
struct Answer {
  RunningProcess process;  ///< with its latest page
  Outcome outcome = Outcome::silent;
  double milliseconds = 0;              ///< from setting the event to seeing the answer
  std::vector<std::string> switchedOn;  ///< logs of the process
  std::vector<std::string> switchedOff;
  std::string reason;  ///< for people; empty if there is nothing to add
};

/// A process that shall apply its class list again.
struct Addressee {
  RunningProcess process;
  /// The hash of the list that it shall have then; no value: any.
  std::optional<std::uint64_t> hash;
};

struct PlaceResult {
  toolsystem::EventPlace place;
  platform::ErrorCode error = platform::noError;
  int reached = 0;  ///< processes known to listen there
};

struct Acknowledgement {
  std::vector<PlaceResult> places;
  std::vector<Answer> answers;  ///< one per addressee, in their order
  bool wasInterrupted = false;
};

/// Sets the event in all places and waits at most _wait for the addressees. Returns as soon as no further answer can
/// come: it does not wait for a process that is stopped, does not listen or has no page. A listener that had just read
/// the old list absorbs the setting, so the event is set again until the listener has the expected list. An end request
/// (end_request.h) ends the wait.
Acknowledgement signalAndAwait(const std::vector<toolsystem::EventPlace>& _places, const std::string& _event,
                               const std::vector<Addressee>& _addressees, std::chrono::milliseconds _wait);

/// The outcome as it is shown: "applied", "failed", "not listening" ...
std::string_view outcomeName(Outcome _outcome);

}  // namespace qmrkctl
