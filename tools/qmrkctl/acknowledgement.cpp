// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/acknowledgement.h"

#include <algorithm>
#include <map>
#include <set>

#include "tools/qmrkctl/class_switches.h"
#include "tools/status/page_watch.h"
#include "tools/status/process_finder.h"
#include "tools/system/end_request.h"

namespace qmrkctl {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;
using std::chrono::milliseconds;

constexpr microseconds firstPause(500);
constexpr microseconds longestPause(20'000);
constexpr milliseconds eagerTime(60);
constexpr milliseconds betweenLooks(30);
// A setting that was absorbed is repeated soon; where processes are only slow, less and less often.
constexpr milliseconds firstReminder(8);

double millisecondsSince(Clock::time_point _begin) {
  return std::chrono::duration<double, std::milli>(Clock::now() - _begin).count();
}

// Whether the process has tried to apply a list since the page was read.
bool hasTried(const ProcessStatus& _before, const ProcessStatus& _now) {
  return _now.classes.generation != _before.classes.generation || _now.classes.updatedAt != _before.classes.updatedAt;
}

// One process that is waited for.
struct Pending {
  const Addressee* addressee;
  Answer* answer;
  std::optional<PageWatch> page;
  bool isDone = false;
};

class Wait {
 public:
  Wait(const std::vector<Addressee>& _addressees, Acknowledgement& _result) : result_(_result) {
    result_.answers.resize(_addressees.size());
    for (std::size_t i = 0; i < _addressees.size(); ++i) {
      result_.answers[i].process = _addressees[i].process;
      pending_.push_back({&_addressees[i], &result_.answers[i], watchOf(_addressees[i].process)});
    }
  }

  void set(const std::string& _event) {
    begin_ = Clock::now();
    for (PlaceResult& each : result_.places)
      each.error = toolsystem::setEventAt(each.place, _event);
  }

  // Those for whom no waiting helps.
  void finishHopeless(const std::string& _event) {
    for (Pending& each : pending_) {
      const PlaceResult* const place = placeOf(each);
      if (place != nullptr && place->error != platform::noError && place->error != platform::errorFileNotFound) {
        finish(each, Outcome::unreached, "its event cannot be set (error " + std::to_string(place->error) + ")");
      } else if (!listensTo(each.addressee->process, _event)) {
        finish(each, Outcome::notListening, reasonForSilence(each.addressee->process, _event));
      } else if (!each.addressee->process.status) {
        finish(each, Outcome::unseen, "it shows no status page that can be read");
      }
    }
  }

  // Those pages that were written since the last look.
  void readNewPages() {
    for (Pending& each : pending_) {
      if (each.isDone || !each.page) continue;
      if (const std::optional<ProcessStatus> page = each.page->newStatus()) judge(each, *page);
    }
  }

  // All pages, one that was removed and made again among them.
  void readAllPages() {
    std::map<std::string, std::vector<FoundProcess>> pages;
    for (Pending& each : pending_) {
      if (each.isDone) continue;
      const toolsystem::ProcessFacts& facts = each.addressee->process.facts;
      auto [found, isNew] = pages.try_emplace(facts.space);
      if (isNew) found->second = findProcesses({facts.root, facts.pageUserId});
      for (const FoundProcess& page : found->second) {
        if (page.processId == facts.pid && page.status) judge(each, *page.status);
      }
    }
  }

  // Sets the event again for those who have applied another list.
  void remind(const std::string& _event) {
    std::set<std::string> spaces;
    for (const Pending& each : pending_) {
      if (each.isDone || !each.addressee->hash || !each.answer->process.status) continue;
      const ProcessStatus& page = *each.answer->process.status;
      const bool hasOther = page.classes.hash != *each.addressee->hash;
      if (hasOther && page.listener.state == status::ListenerState::waiting) {
        spaces.insert(each.addressee->process.facts.space);
      }
    }
    for (const PlaceResult& each : result_.places) {
      if (spaces.count(each.place.space) != 0) toolsystem::setEventAt(each.place, _event);
    }
  }

  // @return whether anybody is left who can answer.
  bool isWorthWaiting() {
    bool isAnybodyLeft = false;
    for (Pending& each : pending_) {
      if (each.isDone) continue;
      const toolsystem::Activity activity = toolsystem::activityOf(each.addressee->process.pid());
      if (activity == toolsystem::Activity::ended) finish(each, Outcome::ended, "it ended before it answered");
      each.answer->outcome = activity == toolsystem::Activity::stopped ? Outcome::stopped : each.answer->outcome;
      isAnybodyLeft = isAnybodyLeft || activity == toolsystem::Activity::running;
    }
    return isAnybodyLeft;
  }

  bool isComplete() const {
    return std::all_of(pending_.begin(), pending_.end(), [](const Pending& _each) { return _each.isDone; });
  }

  // What is left when the time is over.
  void giveUp() {
    for (Pending& each : pending_) {
      if (each.isDone) continue;
      const bool isStopped = toolsystem::activityOf(each.addressee->process.pid()) == toolsystem::Activity::stopped;
      finish(each, isStopped ? Outcome::stopped : Outcome::silent,
             isStopped ? "it is stopped, and will follow when it goes on" : "it did not answer in time");
    }
  }

  Clock::time_point begin() const { return begin_; }

 private:
  static std::optional<PageWatch> watchOf(const RunningProcess& _process) {
    if (!_process.status) return std::nullopt;
    return PageWatch({_process.facts.root, _process.facts.pageUserId}, *_process.status);
  }

  static std::string reasonForSilence(const RunningProcess& _process, const std::string& _event) {
    if (!_process.status) return "no thread of it waits for the event";
    const ListenerStatus& listener = _process.status->listener;
    if (listener.state == status::ListenerState::failed) return "its listener failed: " + listener.failure.text;
    if (listener.state == status::ListenerState::ended) return "its listener has ended";
    if (!listener.event.empty() && listener.event != _event) return "it listens to the event " + listener.event;
    return "it has no listener";
  }

  const PlaceResult* placeOf(const Pending& _each) const {
    const auto found = std::find_if(result_.places.begin(), result_.places.end(), [&_each](const PlaceResult& _place) {
      return _place.place.space == _each.addressee->process.facts.space;
    });
    return found != result_.places.end() ? &*found : nullptr;
  }

  void judge(Pending& _each, const ProcessStatus& _page) {
    const ProcessStatus& before = *_each.addressee->process.status;
    _each.answer->process.status = _page;
    if (!hasTried(before, _page)) return;
    // A listener that turns to another list has that one's text.
    const bool isOtherList = _page.initPath.text != before.initPath.text;
    const bool isExpected = !_each.addressee->hash || isOtherList || _page.classes.hash == *_each.addressee->hash;
    if (_page.classes.updateResult == status::Result::failed) {
      finish(_each, Outcome::failed, _page.classes.updateError.text);
    } else if (isExpected) {
      const ClassSwitches switches = switchesBetween(before.classes, _page.classes);
      _each.answer->switchedOn = switches.on;
      _each.answer->switchedOff = switches.off;
      finish(_each, Outcome::applied, "");
    }
  }

  void finish(Pending& _each, Outcome _outcome, const std::string& _reason) {
    if (_each.isDone) return;
    _each.isDone = true;
    _each.answer->outcome = _outcome;
    _each.answer->reason = _reason;
    _each.answer->milliseconds = millisecondsSince(begin_);
  }

  Acknowledgement& result_;
  std::vector<Pending> pending_;
  Clock::time_point begin_;
};

void waitForAll(Wait& _wait, const std::string& _event, milliseconds _longest, Acknowledgement& _result) {
  microseconds pause = firstPause;
  Clock::time_point nextLook = _wait.begin();
  milliseconds reminder = firstReminder;
  Clock::time_point nextSetting = _wait.begin() + reminder;
  while (!_wait.isComplete()) {
    const Clock::time_point now = Clock::now();
    if (now - _wait.begin() > _longest) break;
    _wait.readNewPages();
    if (now >= nextLook) {
      if (now > _wait.begin() + betweenLooks) _wait.readAllPages();
      if (!_wait.isWorthWaiting()) break;
      nextLook = now + betweenLooks;
    }
    if (now >= nextSetting) {
      _wait.remind(_event);
      reminder *= 2;
      nextSetting = now + reminder;
    }
    if (_wait.isComplete()) break;
    if (now - _wait.begin() > eagerTime) pause = std::min(pause * 2, longestPause);
    if (!toolsystem::sleepUnlessEnded(pause)) {
      _result.wasInterrupted = true;
      break;
    }
  }
  _wait.giveUp();
}

}  // namespace

Acknowledgement signalAndAwait(const std::vector<toolsystem::EventPlace>& _places, const std::string& _event,
                               const std::vector<Addressee>& _addressees, std::chrono::milliseconds _wait) {
  Acknowledgement result;
  for (const toolsystem::EventPlace& place : _places) {
    PlaceResult each{place};
    each.reached = static_cast<int>(std::count_if(_addressees.begin(), _addressees.end(), [&](const Addressee& _one) {
      return _one.process.facts.space == place.space && listensTo(_one.process, _event);
    }));
    result.places.push_back(each);
  }
  Wait wait(_addressees, result);
  wait.set(_event);
  wait.finishHopeless(_event);
  waitForAll(wait, _event, _wait, result);
  return result;
}

std::string_view outcomeName(Outcome _outcome) {
  switch (_outcome) {
    case Outcome::applied:
      return "applied";
    case Outcome::failed:
      return "failed";
    case Outcome::notListening:
      return "not listening";
    case Outcome::stopped:
      return "stopped";
    case Outcome::ended:
      return "ended";
    case Outcome::silent:
      return "no answer";
    case Outcome::unseen:
      return "unseen";
    case Outcome::unreached:
      return "denied";
  }
  return "unseen";
}

}  // namespace qmrkctl
