// SPDX-License-Identifier: MIT
// From the setting of the event in one process to the first line of a class that this switches on in another, as it
// arrives back through the standard output of that process. usage: listener_latency_bench FOLDER [ROUNDS]
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"
#include "platform/named_event.h"
#include "quillmark_logging.h"
#include "quillmark_logging_names.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr char onLine[] = "switched on";
constexpr char offLine[] = "switched off";

void writeFile(const std::filesystem::path& _path, const std::string& _text) {
  std::filesystem::create_directories(_path.parent_path());
  std::ofstream(_path) << _text;
}

// The configuration of a family that has one class to switch.
class Configuration {
 public:
  explicit Configuration(const std::filesystem::path& _folder)
      : classes_(_folder / "init/Orvane/qmrk/logging/qmrk_logging_CA12.init") {
    const auto cfg = _folder / "cfg/Orvane Shared/qmrk/logging/cfg";
    writeFile(cfg / "qmrk_logging_GE.cfg", "REDIRECT_CA_NR=CA12\n");
    writeFile(cfg / "qmrk_logging_CA12.cfg",
              "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.txt\nCOMMON_LOG_FILE_FILTER=Bench.other;\n");
    switchClass(false);
    ::setenv("QMRK_APPDATA", (_folder / "logs").c_str(), 1);
    ::setenv("QMRK_COMMON_PROGRAM_FILES", (_folder / "cfg").c_str(), 1);
    ::setenv("QMRK_COMMON_APPDATA", (_folder / "init").c_str(), 1);
  }

  void switchClass(bool _on) const { writeFile(classes_, _on ? "Bench.late;" : "Bench.other;"); }

 private:
  std::filesystem::path classes_;
};

// An application that logs often: it must not take the processor that its listener needs.
void rest() { std::this_thread::sleep_for(std::chrono::microseconds(20)); }

// The other process: logs a line as soon as the class is on, and tells when it is off.
[[noreturn]] void listen() {
  if (!Quillmark_logging::initDefaultLogs("listener_latency_bench", true)) {
    ::_exit(1);
  }
  const LogEventHandler handler;
  const boost::logging::logger late("Bench.late");
  for (;;) {
    std::cout << offLine << std::endl;
    while (!late.is_enabled()) {
      rest();
    }
    QMRK_LOG(late) << onLine;
    while (late.is_enabled()) {
      rest();
    }
  }
}

pid_t startListener(int& _output) {
  int pipe[2];
  if (::pipe(pipe) != 0) {
    return -1;
  }
  const pid_t child = ::fork();
  if (child == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::dup2(pipe[1], STDOUT_FILENO);
    listen();
  }
  ::close(pipe[1]);
  _output = pipe[0];
  return child;
}

bool waitForLine(int _output, const std::string& _wanted) {
  std::string text;
  char bytes[512];
  while (text.find(_wanted + "\n") == std::string::npos) {
    const ssize_t got = ::read(_output, bytes, sizeof bytes);
    if (got <= 0) {
      return false;
    }
    text.append(bytes, static_cast<std::size_t>(got));
  }
  return true;
}

// The listener resets the event when it has made its update.
void waitForReset(platform::Handle _event) {
  while (platform::waitForEvent(_event, 0) == platform::waitObject) {
    std::this_thread::yield();
  }
}

// The listener creates the event on a thread of its own. Null when it has none after some seconds.
platform::Handle openEvent() {
  platform::Handle handle = platform::openEvent(Quillmark_logging::QMRK_LOG_EVENT);
  for (const auto end = Clock::now() + std::chrono::seconds(5); handle == nullptr && Clock::now() < end; rest()) {
    handle = platform::openEvent(Quillmark_logging::QMRK_LOG_EVENT);
  }
  return handle;
}

std::vector<double> measure(const Configuration& _configuration, int _output, int _rounds) {
  std::vector<double> microseconds;
  if (!waitForLine(_output, offLine)) return microseconds;
  const platform::Handle handle = openEvent();
  if (handle == nullptr) return microseconds;
  while (static_cast<int>(microseconds.size()) < _rounds) {
    waitForReset(handle);
    _configuration.switchClass(true);
    const auto start = Clock::now();
    platform::setEvent(handle);
    if (!waitForLine(_output, onLine)) break;
    microseconds.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
    waitForReset(handle);
    _configuration.switchClass(false);
    platform::setEvent(handle);
    if (!waitForLine(_output, offLine)) break;
  }
  std::sort(microseconds.begin(), microseconds.end());
  return microseconds;
}

}  // namespace

int main(int _argc, char** _argv) {
  const int rounds = _argc > 2 ? std::atoi(_argv[2]) : 1000;
  if (_argc < 2 || rounds < 1) {
    std::cerr << "usage: listener_latency_bench FOLDER [ROUNDS]\n";
    return 2;
  }
  const Configuration configuration(_argv[1]);
  int output = -1;
  const pid_t child = startListener(output);
  const std::vector<double> microseconds = measure(configuration, output, rounds);
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  if (static_cast<int>(microseconds.size()) != rounds) {
    std::cerr << "listener_latency_bench: the listener has ended, or has no event\n";
    return 1;
  }
  std::cout << "p50_us " << microseconds[microseconds.size() / 2] << "\np99_us "
            << microseconds[microseconds.size() * 99 / 100] << std::endl;
  return 0;
}
