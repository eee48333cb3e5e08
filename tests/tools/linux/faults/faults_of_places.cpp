// SPDX-License-Identifier: MIT
// Longer than the budget: one table of one meaning
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "tests/tools/linux/faults/fault_table.h"

namespace testsupport {
namespace {

namespace fs = std::filesystem;
using Installation = FaultInstallation;

constexpr unsigned int nobodyId = 65534;
constexpr unsigned int userWithoutEntry = 54321;

const FaultEffect noSetUp = {false, {}};
const FaultEffect noLine = {true, {}};
const FaultEffect usualLines = {true, {"Demo.App.error", "Demo.App.info", "Demo.Net.error"}};

void makeLogFolder(const Installation& _at, unsigned int _mode) {
  fs::create_directories(_at.logFolder());
  fs::permissions(_at.logFolder(), fs::perms(_mode));
}

void makeApplicationFolder(const Installation& _at, unsigned int _mode) {
  const fs::path folder = fs::path(_at.applicationLog()).parent_path();
  fs::create_directories(folder);
  fs::permissions(folder, fs::perms(_mode));
}

}  // namespace

// NOLINTNEXTLINE(readability-function-size): one table of one meaning.
std::vector<Fault> faultsOfPlaces() {
  return {
      {"the log folder cannot be created",
       "the set-up fails",
       [](Installation& _at) {
         fs::permissions(_at.data(), fs::perms(0755));
         _at.runAs(nobodyId);
       },
       noSetUp,
       {"Q501", "Logs/Common", 0, "let the user write"}},
      {"the user's data folder is missing, and nobody may create it in `/`",
       "the set-up fails",
       [](Installation& _at) {
         _at.environment("QMRK_APPDATA", "/qmrk-test-missing");
         _at.runAs(nobodyId);
       },
       noSetUp,
       {"Q501", "Logs/Common", 0, "let the user write"}},
      {"a drive in `COMMON_LOG_FILE_ROOT`, as in `C:\\Logs`",
       "the folder `C:` is not created: the set-up fails",
       [](Installation& _at) { _at.cfgLine(4, "COMMON_LOG_FILE_ROOT=C:\\Logs\n"); },
       noSetUp,
       {"Q501", "/C:/Logs", 0, "without drive"}},
      {"a folder above the log folder cannot be entered (mode 0600)",
       "the set-up fails",
       [](Installation& _at) {
         makeLogFolder(_at, 0777);
         const std::string above = _at.data() + "/Logs";
         fs::permissions(above, fs::perms(0600));
         if (::chown(above.c_str(), nobodyId, nobodyId) == 0) _at.runAs(nobodyId);
       },
       noSetUp,
       {"Q501", "Logs/Common", 0, "chmod u+x "}},
      {"`COMMON_LOG_FILE_ROOT` of more characters than a path may have",
       "the set-up fails",
       [](Installation& _at) {
         std::string root;
         for (int i = 0; i < 530; ++i)
           root += "abcdefg\\";
         _at.cfgLine(4, "COMMON_LOG_FILE_ROOT=" + root + "\n");
       },
       noSetUp,
       {"Q501", "qmrk_logging_CA12.cfg", 4, "shorter"}},
      {"the log folder cannot be written",
       "the set-up says true, every line is lost",
       [](Installation& _at) {
         makeLogFolder(_at, 0755);
         _at.runAs(nobodyId);
       },
       noLine,
       {"Q502", "common.log", 0, "give the file and its folder"}},
      {"the log folder cannot be entered (mode 0666)",
       "the set-up says true, every line is lost",
       [](Installation& _at) {
         makeLogFolder(_at, 0666);
         _at.runAs(nobodyId);
       },
       noLine,
       {"Q502", "common.log", 0, "chmod u+wx"}},
      {"the log folder is on a file system that is mounted read-only",
       "the set-up says true, every line is lost",
       [](Installation& _at) { _at.protectDisk(); },
       noLine,
       {"Q502", "common.log", 0, "remount,rw"},
       {},
       [](const Installation&) { return !exists("/dev/shm/Logs/Common/common.log"); }},
      {"the log belongs to root",
       "the set-up says true, every line is lost",
       [](Installation& _at) {
         makeLogFolder(_at, 0777);
         writeFile(_at.log(), "");
         _at.runAs(nobodyId);
       },
       noLine,
       {"Q502", "common.log", 0, "give the file and its folder"}},
      {"the log has no right to write (mode 0444)",
       "the set-up says true, every line is lost",
       [](Installation& _at) {
         makeLogFolder(_at, 0755);
         writeFile(_at.log(), "");
         fs::permissions(_at.log(), fs::perms(0444));
         if (::chown(_at.log().c_str(), nobodyId, nobodyId) == 0) _at.runAs(nobodyId);
       },
       noLine,
       {"Q502", "common.log", 0, "chmod u+w "}},
      {"the log folder belongs to another user",
       "lines are written; the other user can remove them",
       [](Installation& _at) {
         makeLogFolder(_at, 0777);
         if (::chown(_at.logFolder().c_str(), userWithoutEntry, userWithoutEntry) == 0) _at.runAs(nobodyId);
       },
       usualLines,
       {"Q503", "Logs/Common", 0, "chown"}},
      {"the log is a link in a folder that others may write",
       "the set-up says true, every line is lost",
       [](Installation& _at) {
         makeLogFolder(_at, 0777);
         fs::create_symlink(_at.data() + "/target.log", _at.log());
       },
       noLine,
       {"Q504", "common.log", 0, "chmod go-w"},
       {},
       [](const Installation& _at) { return !exists(_at.data() + "/target.log"); }},
      {"a folder in place of the log",
       "the set-up says true, every line is lost",
       [](Installation& _at) { fs::create_directories(_at.log()); },
       noLine,
       {"Q505", "common.log", 0, "remove what stands there"}},
      {"a pipe in place of the log",
       "the set-up says true, every line is lost",
       [](Installation& _at) {
         makeLogFolder(_at, 0755);
         ::mkfifo(_at.log().c_str(), 0644);
       },
       noLine,
       {"Q505", "common.log", 0, "remove what stands there"}},
      {"a link that leads nowhere in place of the log",
       "the set-up says true, every line is lost",
       [](Installation& _at) {
         makeLogFolder(_at, 0755);
         fs::create_symlink("/nowhere/at/all/common.log", _at.log());
       },
       noLine,
       {"Q505", "common.log", 0, "remove what stands there"}},
      {"a file in place of the log folder",
       "the set-up says true, every line is lost",
       [](Installation& _at) {
         fs::create_directories(_at.data() + "/Logs");
         writeFile(_at.logFolder(), "");
       },
       noLine,
       {"Q505", "/Logs/Common", 0, "remove what stands there"}},
      {"a file in place of a folder above the log",
       "the set-up fails",
       [](Installation& _at) { writeFile(_at.data() + "/Logs", ""); },
       noSetUp,
       {"Q505", "/Logs", 0, "remove what stands there"}},
      {"the disk is full",
       "the set-up says true, every line is lost",
       [](Installation& _at) { _at.fillDisk(); },
       noLine,
       {"Q506", "/dev/shm", 0, "make space"},
       {},
       [](const Installation&) { return FaultInstallation::classesIn("/dev/shm/Logs/Common/common.log").empty(); }},
      {"the disk is almost full",
       "lines are written until it is full",
       [](Installation& _at) { _at.almostFillDisk(); },
       usualLines,
       {"Q507", "", 0, "make space"}},
      {"the disk has no inode left",
       "the set-up says true, every line is lost",
       [](Installation& _at) { _at.exhaustInodes(); },
       noLine,
       {"Q506", "/dev/shm", 0, "nobody needs"},
       {},
       [](const Installation&) { return !exists("/dev/shm/Logs/Common/common.log"); }},
      {"a folder in place of `qmrk.info`",
       "problems leave no record",
       [](Installation& _at) {
         fs::create_directories(_at.logFolder() + "/qmrk.info");
         _at.environment("DEFAULT_CA_NR", "CA99");
       },
       usualLines,
       {"Q508", "qmrk.info", 0, "remove what stands there"},
       {},
       [](const Installation& _at) { return fs::is_empty(_at.logFolder() + "/qmrk.info"); }},
      {"a link that leads nowhere in place of `qmrk.info`",
       "problems leave no record",
       [](Installation& _at) {
         makeLogFolder(_at, 0755);
         fs::create_symlink("/nowhere/at/all/qmrk.info", _at.logFolder() + "/qmrk.info");
         _at.environment("DEFAULT_CA_NR", "CA99");
       },
       usualLines,
       {"Q508", "qmrk.info", 0, "remove the link"},
       {},
       [](const Installation&) { return !exists("/nowhere"); }},
      {"a file in place of `Application logs`",
       "the set-up says true, the lines of the application's own log are lost",
       [](Installation& _at) {
         makeLogFolder(_at, 0755);
         writeFile(_at.logFolder() + "/Application logs", "");
       },
       usualLines,
       {"Q509", "Application logs", 0, "remove"},
       {"--app", "app"}},
      {"the log of an application belongs to root",
       "the set-up says true, the lines of the application's own log are lost",
       [](Installation& _at) {
         makeLogFolder(_at, 0777);
         const std::string folder = fs::path(_at.applicationLog()).parent_path();
         fs::create_directory(folder);
         writeFile(_at.applicationLog(), "");
         if (::chown(folder.c_str(), nobodyId, nobodyId) == 0) _at.runAs(nobodyId);
       },
       usualLines,
       {"Q502", "app_log.txt", 0, "give the file"},
       {"--app", "app"},
       [](const Installation& _at) { return fs::file_size(_at.applicationLog()) == 0; }},
      {"a folder in place of the log of an application",
       "the set-up says true, the lines of the application's own log are lost",
       [](Installation& _at) { fs::create_directories(_at.applicationLog()); },
       usualLines,
       {"Q505", "app_log.txt", 0, "remove what stands there"},
       {"--app", "app"},
       [](const Installation& _at) { return fs::is_empty(_at.applicationLog()); }},
      {"a pipe in place of the log of an application",
       "the set-up says true, the lines of the application's own log are lost",
       [](Installation& _at) {
         makeApplicationFolder(_at, 0755);
         ::mkfifo(_at.applicationLog().c_str(), 0644);
       },
       usualLines,
       {"Q505", "app_log.txt", 0, "remove what stands there"},
       {"--app", "app"},
       [](const Installation& _at) { return fs::is_fifo(_at.applicationLog()); }},
      {"the log of an application is a link in a folder that others may write",
       "the set-up says true, the lines of the application's own log are lost",
       [](Installation& _at) {
         makeApplicationFolder(_at, 0777);
         fs::create_symlink(_at.data() + "/target.log", _at.applicationLog());
       },
       usualLines,
       {"Q504", "app_log.txt", 0, "chmod go-w"},
       {"--app", "app"},
       [](const Installation& _at) { return !exists(_at.data() + "/target.log"); }},
      {"a folder in place of a backup of an application's log",
       "once it has the last number, the rotation fails: every further line of that log is lost",
       [](Installation& _at) { fs::create_directories(_at.applicationLog() + ".1/content"); },
       usualLines,
       {"Q511", "app_log.txt.1", 0, "remove the folder"},
       {"--app", "app", "--lines", "500"},
       // What is full was not renamed.
       [](const Installation& _at) { return fs::file_size(_at.applicationLog()) >= 5000; }},
      {"a class list that everybody may write",
       "any user can switch classes of all others",
       [](Installation& _at) {
         fs::permissions(_at.initPath(), fs::perms(0666));
         _at.runAs(nobodyId);
       },
       usualLines,
       {"Q510", "qmrk_logging_CA12.init", 0, "chmod o-w"}},
      {"a folder above those of the configuration that everybody may write",
       "any user can put another class list in its place",
       [](Installation& _at) {
         const fs::path ofLists = fs::path(_at.initPath()).parent_path();
         fs::permissions(ofLists.parent_path().parent_path(), fs::perms(0777));
       },
       usualLines,
       {"Q510", "/Orvane", 0, "chmod o-w"}},
  };
}

std::vector<Fault> allFaults() {
  std::vector<Fault> all = faultsOfTexts();
  for (const auto& more :
       {faultsOfNames(), faultsOfFiles(), faultsOfPlaces(), faultsOfEnvironment(), faultsOfProcesses()})
    all.insert(all.end(), more.begin(), more.end());
  return all;
}

}  // namespace testsupport
