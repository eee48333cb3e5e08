// SPDX-License-Identifier: MIT
#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <regex>
#include <thread>

#include "tests/tools/linux/faults/fault_table.h"

namespace testsupport {
namespace {

using Installation = FaultInstallation;

// LogTest, run for a moment beside the application at fault, logs as ever.
const FaultEffect soundApplication = {true, {"Demo.App.error", "Demo.App.info", "Demo.Net.error"}};
const FaultEffect onlyDemoNet = {true, {"Demo.Net.error", "Demo.Net.info"}};

constexpr char logsIntoOther[] = "--ca CA12 --classes 'Demo.App.other;'";

// A class whose lines count the rounds of an application: in each one it logs a line into every one of its classes, in
// their order, and then sleeps for 100 ms.
constexpr char beat[] = "Demo.Net.error.beat";

std::ptrdiff_t linesOf(const std::string& _class, const Installation& _at) {
  const std::string text = readFile(_at.log());
  const std::string name = "[" + _class + "]";
  std::ptrdiff_t lines = 0;
  for (std::size_t place = text.find(name); place != std::string::npos; place = text.find(name, place + 1))
    ++lines;
  return lines;
}

std::ptrdiff_t linesOfOther(const Installation& _at) { return linesOf("Demo.App.other", _at); }

// Whether so many lines of the class come.
bool logs(const std::string& _class, std::ptrdiff_t _more, const Installation& _at) {
  const std::ptrdiff_t before = linesOf(_class, _at);
  for (int look = 0; look < 3000; ++look) {
    if (linesOf(_class, _at) >= before + _more) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}

bool goesOn(const Installation& _at) { return logs("Demo.App.other", 1, _at); }

constexpr char rotatesItsLog[] = "--ca CA12 --app app --classes 'Demo.App.other;'";

// Whether a backup was not full. Looks for at most 30 s.
bool hasShortBackup(const Installation& _at) {
  for (int look = 0; look < 3000; ++look) {
    for (const char* const number : {".1", ".2"}) {
      std::error_code error;
      const std::uintmax_t size = std::filesystem::file_size(_at.applicationLog() + number, error);
      if (!error && size < 1000) return true;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}

// Waits at most 30 s until an application has lost a line: its listener listens before its first one.
void waitForALoss(const Installation& _at) {
  const std::regex loss("\"lost\": [1-9]");
  for (int look = 0; look < 3000 && !std::regex_search(_at.qmrkctl({"apps", "--json"}).output, loss); ++look)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

// The application follows the list, and nobody tells it that it has changed.
void editUnnoticed(Installation& _at) {
  _at.start(logsIntoOther);
  _at.init("Demo.Net;\n");
}

}  // namespace

// NOLINTNEXTLINE(readability-function-size): one table of one meaning.
std::vector<Fault> faultsOfProcesses() {
  return {
      {"a class list that was edited without setting the event",
       "running applications keep the former one",
       editUnnoticed,
       onlyDemoNet,
       {"Q603", "qmrk_logging_CA12.init", 0, "qmrkctl signal"},
       {},
       goesOn,
       {"doctor"}},
      {"a class that was switched on without setting the event",
       "it stays off in running applications",
       editUnnoticed,
       onlyDemoNet,
       {"Q603", "qmrk_logging_CA12.init", 0, "qmrkctl signal"},
       {},
       goesOn,
       {"why", "Demo.Net.info"}},
      {"an application that names a CA, without `DEFAULT_CA_NR`",
       "a change of its own class list does not reach it",
       [](Installation& _at) {
         _at.sandbox().writeCfg("CA13", replaced(_at.cfgText(), "CA12", "CA13"));
         _at.sandbox().writeInit("CA13", "Demo.App;\n");
         _at.start("--ca CA13 --classes 'Demo.App.other;'");
       },
       soundApplication,
       {"Q604", "", 0, "DEFAULT_CA_NR set to the CA"},
       {},
       [](const Installation& _at) {
         _at.sandbox().writeInit("CA13", "Demo.Net;\n");
         return _at.qmrkctl({"signal", "--wait", "60s"}).exitCode == 0 && goesOn(_at);
       },
       {"doctor"}},
      {"a filter that was changed while an application runs",
       "the application goes on with the former one",
       [](Installation& _at) {
         _at.start(logsIntoOther);
         _at.cfgLine(5, "COMMON_LOG_FILE_FILTER=Demo.Net;\n");
       },
       {true, {"Demo.Net.error"}},
       {"Q613", "qmrk_logging_CA12.cfg", 0, "restart"},
       {},
       goesOn,
       {"doctor", "--strict"}},
      {"a class that was added to the filter while an application runs",
       "it does not reach the common log before the next start",
       [](Installation& _at) {
         _at.cfgLine(5, "COMMON_LOG_FILE_FILTER=Demo.Net;\n");
         _at.start("--ca CA12 --classes 'Demo.App.other;" + std::string(beat) + ";'");
         _at.cfgLine(5, "COMMON_LOG_FILE_FILTER=Demo.App;Demo.Net;\n");
       },
       soundApplication,
       {"Q613", "qmrk_logging_CA12.cfg", 0, "restart"},
       {},
       [](const Installation& _at) {
         const bool hasApplied = _at.qmrkctl({"signal", "--wait", "60s"}).exitCode == 0;
         return hasApplied && logs(beat, 3, _at) && linesOfOther(_at) == 0;
       },
       {"why", "Demo.App.other"}},
      {"`COMMON_LOG_FILE_NAME` that was changed while an application runs",
       "the application goes on with the former log",
       [](Installation& _at) {
         _at.start(logsIntoOther);
         _at.cfgLine(3, "COMMON_LOG_FILE_NAME=other.log\n");
       },
       {true, {}},
       {"Q613", "qmrk_logging_CA12.cfg", 0, "restart"},
       {},
       goesOn,
       {"doctor", "--strict"}},
      {"an application that was stopped",
       "it logs nothing and follows no change until it goes on",
       [](Installation& _at) {
         _at.start("--ca CA12 --classes '" + std::string(beat) + ";'");
         _at.start(logsIntoOther);
         _at.signal(SIGSTOP);
       },
       soundApplication,
       {"Q609", "", 0, "kill -CONT"},
       {},
       [](const Installation& _at) {
         const std::ptrdiff_t before = linesOfOther(_at);
         // Another application logs five times meanwhile.
         const bool isSilent = logs(beat, 5, _at) && linesOfOther(_at) == before;
         _at.signal(SIGCONT);
         return isSilent && goesOn(_at);
       },
       {"doctor", "--strict"}},
      {"the library was replaced while an application runs",
       "the application goes on with the former one",
       [](Installation& _at) {
         _at.runAs(0);
         _at.start(logsIntoOther);
         _at.replaceLibrary();
       },
       soundApplication,
       {"Q617", "", 0, "restart"},
       {},
       goesOn,
       {"doctor", "--strict"}},
      {"`/dev/shm/qmrk-UID` that others may enter",
       "running applications keep the former class list",
       [](Installation& _at) {
         editUnnoticed(_at);
         std::filesystem::permissions("/dev/shm/qmrk-0", std::filesystem::perms(0755));
       },
       onlyDemoNet,
       {"Q620", "", 0, "remove /dev/shm/qmrk-0, then restart"},
       {},
       [](const Installation& _at) { return _at.qmrkctl({"signal"}).exitCode != 0 && goesOn(_at); },
       {"doctor"}},
      {"two applications that rotate the same log",
       "each renames the file of the other one: backups hold few lines, and old lines are lost",
       [](Installation& _at) {
         _at.cfgLine(7, "SPEC_LOG_FILE_LIMIT=1000\n");
         _at.start(rotatesItsLog);
         _at.start(rotatesItsLog);
       },
       soundApplication,
       {"Q618", "app_log.txt", 0, "a log of its own"},
       {},
       hasShortBackup,
       {"doctor"}},
      {"the log that an application rotates is deleted",
       "it does not come back: its lines are lost",
       [](Installation& _at) {
         _at.start(rotatesItsLog);
         std::filesystem::remove(_at.applicationLog());
       },
       soundApplication,
       {"Q619", "app_log.txt", 0, "restart"},
       {},
       [](const Installation& _at) { return goesOn(_at) && !exists(_at.applicationLog()); },
       {"doctor"}},
      {"the log that an application rotates is renamed by somebody else",
       "its lines go to the renamed file",
       [](Installation& _at) {
         _at.start(rotatesItsLog);
         std::filesystem::rename(_at.applicationLog(), _at.applicationLog() + ".old");
       },
       soundApplication,
       {"Q619", "app_log.txt", 0, "restart"},
       {},
       [](const Installation& _at) { return goesOn(_at) && !exists(_at.applicationLog()); },
       {"doctor"}},
      {"a log that may not grow (`ulimit -f`)",
       "the application loses every further line",
       [](Installation& _at) {
         makeFolders(_at.logFolder());
         writeFile(_at.log(), std::string(65536, 'x') + "\n");
         _at.start(logsIntoOther, "ulimit -f 128; ");
         waitForALoss(_at);
       },
       soundApplication,
       {"Q605", "common.log", 0, "disk is full or rights"},
       {},
       [](const Installation& _at) { return linesOfOther(_at) == 0; },
       {"doctor"}},
  };
}

}  // namespace testsupport
