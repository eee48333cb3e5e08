// SPDX-License-Identifier: MIT
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "boost/logging/logging.hpp"

// logging_application MODE FILE [ARGUMENTS]: logs to the file in one of the ways below.

namespace {

namespace bl = boost::logging;

/// Logs while the static objects are made, before anything is set up, and while they are destroyed.
class StaticObject {
 public:
  explicit StaticObject(const char* _name) : name_(_name), log_("App.static") { log("made"); }
  ~StaticObject() { log("destroyed"); }
  StaticObject(const StaticObject&) = delete;
  StaticObject& operator=(const StaticObject&) = delete;

 private:
  void log(const char* _what) const {
    try {
      QMRK_LOG(log_) << name_ << ' ' << _what;
    } catch (...) {
      std::abort();
    }
  }

  const char* name_;
  bl::logger log_;
};

const StaticObject first("first");
const StaticObject second("second");

void connect(const bl::appender& _appender) {
  bl::default_log_manager& manager = bl::get_default_log_manager();
  bl::add_appender(manager, "*", _appender, "A", 100);
  bl::add_modifier(manager, "*", &bl::append_enter, "M", 100);
  bl::flush_log_cache();
}

void logLines(const std::string& _prefix, int _count) {
  const bl::logger log("App.lines");
  for (int i = 0; i < _count; ++i)
    QMRK_LOG(log) << _prefix << i;
}

int plain(const std::string& _file, char** /*_arguments*/) {
  QMRK_LOG(bl::logger("App")) << "before set-up";
  connect(bl::write_to_file(_file, false));
  QMRK_LOG(bl::logger("App")) << "after set-up";
  return 0;
}

bool setUp(const std::string& _file) {
  connect(bl::write_to_file(_file, false));
  return true;
}

// The set-up is made by an operand of a statement.
int within(const std::string& _file, char** /*_arguments*/) {
  const bl::logger log("App");
  QMRK_LOG(log) << "set up: " << setUp(_file);
  return 0;
}

// LINES, INTERVAL: through a ts_appender; ends right afterwards.
int threadSafe(const std::string& _file, char** _arguments) {
  connect(bl::ts_appender(bl::write_to_file(_file, false), std::atoi(_arguments[1])));
  logLines("", std::atoi(_arguments[0]));
  return 0;
}

// The same, ended by exit() in another function.
int threadSafeExit(const std::string& _file, char** _arguments) {
  threadSafe(_file, _arguments);
  std::exit(7);
}

// LINES: they are logged while the wrapped appender is inside a message of its own, in which it then calls exit().
int exitInside(const std::string& _file, char** _arguments) {
  static std::atomic<bool> isInside{false};
  static std::atomic<bool> allAreLogged{false};
  static std::atomic<int> written{0};
  const bl::write_to_file file(_file, false);
  connect(bl::ts_appender(
      [file](const std::string& _log, const std::string& _text) {
        if (_text == "last\n") {
          isInside = true;
          while (!allAreLogged)
            std::this_thread::yield();
          std::exit(9);
        }
        file(_log, _text);
        written += static_cast<int>(std::count(_text.begin(), _text.end(), '\n'));
      },
      0));
  // What the static objects have logged is not to be in the batch of the last message.
  while (written < 2)
    std::this_thread::yield();
  bl::logger("App").write("last");
  while (!isInside)
    std::this_thread::yield();
  logLines("", std::atoi(_arguments[0]));
  allAreLogged = true;
  while (true)
    std::this_thread::sleep_for(std::chrono::hours(1));
}

// The wrapped appender calls exit() with a lock that it takes in every call.
int exitLocked(const std::string& _file, char** /*_arguments*/) {
  static std::mutex lock;
  const bl::write_to_file file(_file, false);
  connect(bl::ts_appender(
      [file](const std::string& _log, const std::string& _text) {
        const std::lock_guard<std::mutex> inside(lock);
        file(_log, _text);
        if (_text.find("last") != std::string::npos) std::exit(9);
      },
      0));
  bl::logger("App").write("last");
  while (true)
    std::this_thread::sleep_for(std::chrono::hours(1));
}

// The process ends while the writer thread destroys the wrapped appender, which takes its time and then logs itself.
int slowEnd(const std::string& _file, char** /*_arguments*/) {
  struct Slow {
    explicit Slow(const std::string& _path) : file(_path, false) {}
    ~Slow() {
      std::this_thread::sleep_for(std::chrono::milliseconds(300));
      file("", "destroyed\n");
    }
    bl::write_to_file file;
  };
  const bl::ts_appender appender([slow = std::make_shared<Slow>(_file)](
                                     const std::string& _log, const std::string& _text) { slow->file(_log, _text); },
                                 0);
  appender("", "logged\n");
  return 0;
}

// The process ends while the wrapped appender, which is none of the manager's, is in the middle of a message.
int inAppender(const std::string& _file, char** /*_arguments*/) {
  static std::atomic<bool> isInside{false};
  static std::atomic<bool> endHasBegun{false};
  const bl::write_to_file file(_file, false);
  connect(bl::ts_appender(
      [file](const std::string& _log, const std::string& _text) {
        isInside = true;
        while (!endHasBegun)
          std::this_thread::yield();
        file(_log, _text);
      },
      0));
  while (!isInside)
    std::this_thread::yield();
  logLines("", 100);
  return std::atexit([] { endHasBegun = true; });
}

// The wrapped appender never returns; the process has to end all the same.
int stuck(const std::string& /*_file*/, char** /*_arguments*/) {
  connect(bl::ts_appender(
      [](const std::string&, const std::string&) {
        while (true)
          std::this_thread::sleep_for(std::chrono::hours(1));
      },
      0));
  logLines("", 10);
  return 0;
}

// NUMBER, LINES: lines of a kind that shows whether they are whole.
int append(const std::string& _file, char** _arguments) {
  connect(bl::write_to_file(_file, false));
  const std::string number = _arguments[0];
  logLines("process " + number + " " + std::string(40, static_cast<char>('a' + std::stoi(number))) + " line ",
           std::atoi(_arguments[1]));
  bl::enable_logs(bl::get_default_log_manager(), "*", bl::level_off);
  return 0;
}

}  // namespace

int main(int _count, char** _arguments) {
  const std::map<std::string, std::function<int(const std::string&, char**)>> modes{{"plain", &plain},
                                                                                    {"within", &within},
                                                                                    {"ts", &threadSafe},
                                                                                    {"ts-exit", &threadSafeExit},
                                                                                    {"exit-inside", &exitInside},
                                                                                    {"exit-locked", &exitLocked},
                                                                                    {"slow-end", &slowEnd},
                                                                                    {"in-appender", &inAppender},
                                                                                    {"stuck", &stuck},
                                                                                    {"append", &append}};
  if (_count < 3 || modes.count(_arguments[1]) == 0) {
    std::cerr << "usage: logging_application MODE FILE [ARGUMENTS]\n";
    return 2;
  }
  return modes.at(_arguments[1])(_arguments[2], _arguments + 3);
}
