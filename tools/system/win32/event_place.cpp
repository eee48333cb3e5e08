// SPDX-License-Identifier: MIT
#include "tools/system/event_place.h"

#include "platform/handle.h"
#include "platform/named_event.h"

namespace toolsystem {

std::vector<EventPlace> eventPlaces(const std::vector<ProcessFacts>& /*_processes*/, const EventScope& _scope) {
  std::vector<EventPlace> places;
  const auto add = [&places](const std::string& _text, const std::string& _prefix) {
    EventPlace place;
    place.text = _text;
    place.prefix = _prefix;
    // Processes of other sessions are not seen.
    if (_prefix != "Local\\") place.space = _prefix;
    places.push_back(place);
  };
  if (_scope.session) {
    add("session " + std::to_string(*_scope.session), "Session\\" + std::to_string(*_scope.session) + "\\");
    return places;
  }
  add("this session", "Local\\");
  add("all sessions", "Global\\");
  return places;
}

std::string distrustedFolder(const ProcessFacts& /*_process*/) { return ""; }

platform::ErrorCode setEventAt(const EventPlace& _place, const std::string& _event) {
  const platform::Handle event = platform::openEvent(_place.prefix + _event);
  if (event == nullptr) return platform::lastError();
  const bool done = platform::setEvent(event);
  const platform::ErrorCode error = done ? platform::noError : platform::lastError();
  platform::closeHandle(event);
  return error;
}

}  // namespace toolsystem
