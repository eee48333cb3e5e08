// SPDX-License-Identifier: MIT
#include <algorithm>
#include <filesystem>

#include "tests/tools/linux/faults/fault_table.h"

namespace testsupport {
namespace {

namespace fs = std::filesystem;
using Installation = FaultInstallation;

const std::string cfgOfName = "qmrk_logging_CA12.cfg";
constexpr const char* endings[] = {"", ".1", ".2", ".3", ".4"};
const FaultEffect notInCommonLog = {true, {}};

std::function<void(Installation&)> commonLogNamed(const std::string& _name) {
  return [_name](Installation& _at) { _at.cfgLine(3, "COMMON_LOG_FILE_NAME=" + _name + "\n"); };
}

bool has(const std::string& _file, const std::string& _part) {
  return readFile(_file).find(_part) != std::string::npos;
}

}  // namespace

// NOLINTNEXTLINE(readability-function-size): one table of one meaning.
std::vector<Fault> faultsOfNames() {
  return {
      {"`COMMON_LOG_FILE_NAME=qmrk.info`",
       "lines and error records are in one file",
       [](Installation& _at) {
         commonLogNamed("qmrk.info")(_at);
         _at.environment("DEFAULT_CA_NR", "CA99");
       },
       notInCommonLog,
       {"Q330", cfgOfName, 3, "another name"},
       {},
       [](const Installation& _at) {
         const std::string records = _at.logFolder() + "/qmrk.info";
         return has(records, "[Demo.App.info]") && has(records, "configuration file for CA99");
       }},
      {"`COMMON_LOG_FILE_NAME=Application logs`",
       "the set-up says true, the lines of the application's own log are lost",
       commonLogNamed("Application logs"),
       notInCommonLog,
       {"Q330", cfgOfName, 3, "another name"},
       {"--app", "app"},
       [](const Installation& _at) { return fs::is_regular_file(_at.logFolder() + "/Application logs"); }},
      {"the name of an application's log as that of the common log",
       "it is rotated with that one: the oldest lines of the common log are lost",
       commonLogNamed("Application logs\\app_log.txt"),
       notInCommonLog,
       {"Q330", cfgOfName, 3, "another name"},
       {"--app", "app", "--lines", "100"},
       [](const Installation& _at) {
         const auto isLeft = [&_at](const char* _ending) {
           const std::string file = _at.applicationLog() + _ending;
           return fs::exists(file) && has(file, " line 1 of 100\n");
         };
         return fs::exists(_at.applicationLog() + ".1") && std::ranges::none_of(endings, isLeft);
       }},
      {"a file in place of a folder in `COMMON_LOG_FILE_NAME`",
       "the set-up says true, every line is lost",
       [](Installation& _at) {
         commonLogNamed("plant\\common.log")(_at);
         fs::create_directories(_at.logFolder());
         writeFile(_at.logFolder() + "/plant", "");
       },
       notInCommonLog,
       {"Q505", "Logs/Common/plant", 0, "remove what stands there"},
       {},
       [](const Installation& _at) { return fs::is_regular_file(_at.logFolder() + "/plant"); }},
  };
}

}  // namespace testsupport
