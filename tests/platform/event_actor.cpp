// SPDX-License-Identifier: MIT
// A process that uses named events as a test tells it. Each line of the standard input is a command, each is answered
// by a line. It ends with its input.
#include <chrono>
#include <cstdint>
#include <iostream>
#include <sstream>
#include <string>

#include "platform/named_event.h"
#include "tests/support/as_unprivileged_user.h"

namespace {

using platform::Handle;

constexpr int opensPerReport = 50;
// Who has to wait longer for one that creates, opens or leaves an event goes on without it.
constexpr std::chrono::milliseconds longestTurn{100};

std::string origin(Handle _event) {
  if (_event == nullptr) return "failed " + std::to_string(platform::lastError());
  return platform::lastError() == platform::errorAlreadyExists ? "existing" : "created";
}

// The moment is one of the steady clock, which all processes share, so that several of them can act at once.
void spinUntil(std::int64_t _nanoseconds) {
  const std::chrono::steady_clock::time_point moment{std::chrono::nanoseconds(_nanoseconds)};
  while (std::chrono::steady_clock::now() < moment) {
  }
}

const char* asText(bool _done) { return _done ? "true" : "false"; }

// Waits for ever, again and again.
int waitLoop(Handle _event) {
  while (platform::waitForEvent(_event, platform::waitForever) == platform::waitObject) {
    std::cout << "woken" << std::endl;
  }
  std::cout << "wait failed" << std::endl;
  return 1;
}

// Creates the event or opens it.
// @return how; with " late" behind it when that took so long that others need not have waited for their turn meanwhile.
std::string createInTime(const std::string& _name, Handle& _event) {
  const auto begin = std::chrono::steady_clock::now();
  _event = platform::createEvent(_name);
  const std::string how = origin(_event);
  return std::chrono::steady_clock::now() - begin < longestTurn ? how : how + " late";
}

// Opens and closes the event for ever. Only who has created it, in time, sets it after a look: whoever creates it and
// finds it set has found the state of an event that is gone.
int churn(const std::string& _name) {
  for (int opens = 1;; ++opens) {
    Handle event = nullptr;
    const std::string how = createInTime(_name, event);
    if (event == nullptr) {
      std::cout << how << std::endl;
      return 1;
    }
    if (how == "created") {
      if (platform::waitForEvent(event, 0) != platform::waitTimeout) {
        std::cout << "stale state" << std::endl;
        return 1;
      }
      platform::setEvent(event);
    }
    platform::closeHandle(event);
    if (opens % opensPerReport == 0) std::cout << opensPerReport << std::endl;
  }
}

std::string answer(const std::string& _command, std::istream& _arguments, Handle& _event) {
  std::string name;
  std::int64_t number = 0;
  if (_command == "create" || _command == "open") {
    _arguments >> name;
    _event = _command == "create" ? platform::createEvent(name) : platform::openEvent(name);
    return origin(_event);
  }
  if (_command == "createAt") {
    _arguments >> name >> number;
    spinUntil(number);
    return createInTime(name, _event);
  }
  if (_command == "wait") {
    _arguments >> number;
    return std::to_string(platform::waitForEvent(_event, static_cast<std::uint32_t>(number)));
  }
  if (_command == "set") return asText(platform::setEvent(_event));
  if (_command == "reset") return asText(platform::resetEvent(_event));
  if (_command == "close") return asText(platform::closeHandle(_event));
  if (_command == "becomeNobody") {
    // Not given back.
    static_cast<void>(new testsupport::AsUnprivilegedUser);
    return "done";
  }
  return "unknown command";
}

}  // namespace

int main() {
  Handle event = nullptr;
  std::string line;
  while (std::getline(std::cin, line)) {
    std::istringstream arguments(line);
    std::string command;
    arguments >> command;
    if (command == "waitLoop") return waitLoop(event);
    if (command == "churn") {
      std::string name;
      arguments >> name;
      return churn(name);
    }
    std::cout << answer(command, arguments, event) << std::endl;
  }
  return 0;
}
