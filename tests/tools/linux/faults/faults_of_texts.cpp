// SPDX-License-Identifier: MIT
// Longer than the budget: one table of one meaning
#include "tests/tools/linux/faults/fault_table.h"

namespace testsupport {
namespace {

using Installation = FaultInstallation;

const std::string cfgName = "qmrk_logging_CA12.cfg";
const std::string initName = "qmrk_logging_CA12.init";
const FaultEffect setUpFails = {false, {}};
const FaultEffect nothingLogged = {true, {}};
const FaultEffect asIfSound = {true, {"Demo.App.error", "Demo.App.info", "Demo.Net.error"}};
const FaultEffect onlyApp = {true, {"Demo.App.error", "Demo.App.info"}};
const FaultEffect onlyNet = {true, {"Demo.Net.error"}};

// A line of the .cfg file that is written in another way.
std::function<void(Installation&)> cfgLine(int _line, const std::string& _text) {
  return [_line, _text](Installation& _at) { _at.cfgLine(_line, _text); };
}

std::function<void(Installation&)> init(const std::string& _text) {
  return [_text](Installation& _at) { _at.init(_text); };
}

std::string utf16(const std::string& _text) {
  std::string bytes = "\xFF\xFE";
  for (const char c : _text)
    bytes += {c, '\0'};
  return bytes;
}

bool hasApplicationLog(const Installation& _at, const std::string& _ending) {
  return exists(_at.applicationLog() + _ending);
}

const std::vector<std::string> manyLines = {"--app", "app", "--lines", "100"};

}  // namespace

// NOLINTNEXTLINE(readability-function-size): one table of one meaning.
std::vector<Fault> faultsOfBytes() {
  return {
      {"byte-order mark in front of the first key",
       "the key is not found: the set-up fails",
       [](Installation& _at) {
         _at.cfg(
             "\xEF\xBB\xBF"
             "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\n");
       },
       setUpFails,
       {"Q101", cfgName, 1, "without a byte-order mark"}},
      {"byte-order mark in front of a class list",
       "the first class is another one and stays off",
       init("\xEF\xBB\xBF"
            "Demo.App;\nDemo.Net.error;\n"),
       onlyNet,
       {"Q101", initName, 1, "byte-order mark"}},
      {"`.cfg` saved as UTF-16",
       "no key is found: the set-up fails",
       [](Installation& _at) { _at.cfg(utf16(_at.cfgText())); },
       setUpFails,
       {"Q102", cfgName, 1, "UTF-8"}},
      {"class list saved as UTF-16",
       "no class is found: all are off",
       init(utf16("Demo.App;\n")),
       nothingLogged,
       {"Q102", initName, 1, "UTF-8"}},
      {"zero byte behind a value",
       "the value is not `TRUE`: the set-up fails",
       cfgLine(2, std::string("LOG_STATE=TRUE\0\n", 16)),
       setUpFails,
       {"Q103", cfgName, 2, "delete the byte"}},
      {"line ends of CR alone",
       "the file is one line that never ends: the set-up fails",
       [](Installation& _at) { _at.cfg(replaced(_at.cfgText(), "\n", "\r")); },
       setUpFails,
       {"Q104", cfgName, 1, "LF or CR LF"}},
      {"no line end behind the last line",
       "the last key is not read: the set-up fails",
       [](Installation& _at) { _at.cfg("COMMON_LOG_FILE_NAME=common.log\nLOG_STATE=TRUE"); },
       setUpFails,
       {"Q105", cfgName, 2, "line feed"}},
      {"no line end behind `REDIRECT_CA_NR`",
       "`GE` is not redirected and has no `LOG_STATE`: the set-up fails",
       [](Installation& _at) { _at.generic("REDIRECT_CA_NR=CA12"); },
       setUpFails,
       {"Q105", "qmrk_logging_GE.cfg", 1, "line feed"}},
  };
}

// NOLINTNEXTLINE(readability-function-size): one table of one meaning.
std::vector<Fault> faultsOfKeys() {
  return {
      {"typing error in a key",
       "nothing reads the line: the set-up fails",
       cfgLine(2, "LOG_STAT=TRUE\n"),
       setUpFails,
       {"Q301", cfgName, 2, "LOG_STATE"}},
      {"a key in lower case",
       "nothing reads the line: the set-up fails",
       cfgLine(2, "log_state=TRUE\n"),
       setUpFails,
       {"Q301", cfgName, 2, "LOG_STATE"}},
      {"a blank in front of `=`",
       "the blank belongs to the key: the set-up fails",
       cfgLine(2, "LOG_STATE =TRUE\n"),
       setUpFails,
       {"Q302", cfgName, 2, "LOG_STATE=TRUE"}},
      {"`LOG_STATE=yes`",
       "everything but TRUE is off: the set-up fails",
       cfgLine(2, "LOG_STATE=yes\n"),
       setUpFails,
       {"Q303", cfgName, 2, "LOG_STATE=TRUE"}},
      {"`LOG_STATE=1`",
       "everything but TRUE is off: the set-up fails",
       cfgLine(2, "LOG_STATE=1\n"),
       setUpFails,
       {"Q303", cfgName, 2, "LOG_STATE=TRUE"}},
      {"an empty value",
       "the next line becomes the value: the set-up fails",
       [](Installation& _at) { _at.cfgLine(1, "CA_NR=\n"); },
       setUpFails,
       {"Q304", cfgName, 1, "delete the line"}},
      {"a line without `=`",
       "the line becomes part of the next key: the set-up fails",
       cfgLine(1, "the logs of the plant\n"),
       setUpFails,
       {"Q305", cfgName, 1, "#"}},
      {"a key twice",
       "the later value counts: the set-up fails",
       cfgLine(8, "LOG_STATE=FALSE\n"),
       setUpFails,
       {"Q306", cfgName, 8, "delete one"}},
      {"`#` in a value",
       "the name ends before it: the log is another file",
       cfgLine(3, "COMMON_LOG_FILE_NAME=common#1.log\n"),
       nothingLogged,
       {"Q307", cfgName, 3, "leave the \"#\" out"},
       {},
       [](const Installation& _at) { return exists(_at.logFolder() + "/common"); }},
      {"a line of `====`",
       "nothing below it is read: the set-up fails",
       cfgLine(1, "==========\n"),
       setUpFails,
       {"Q308", cfgName, 1, "#"}},
      {"`LOG_STATE` is missing",
       "logging is off: the set-up fails",
       cfgLine(2, ""),
       setUpFails,
       {"Q309", cfgName, 0, "LOG_STATE=TRUE"}},
      {"`COMMON_LOG_FILE_NAME` is missing",
       "the set-up fails",
       cfgLine(3, ""),
       setUpFails,
       {"Q310", cfgName, 0, "COMMON_LOG_FILE_NAME=common.log"}},
      {"`LOG_STATE=FALSE` from an earlier search",
       "logging is off: the set-up fails",
       cfgLine(2, "LOG_STATE=FALSE\n"),
       setUpFails,
       {"Q311", cfgName, 2, "LOG_STATE=TRUE"}},
      {"`COMMON_LOG_FILE_FILTER` is missing",
       "the set-up says true, no class writes to the common log",
       cfgLine(5, ""),
       nothingLogged,
       {"Q312", cfgName, 0, "COMMON_LOG_FILE_FILTER"}},
      {"`COMMON_LOG_FILE_NAME=..`",
       "the set-up says true, every line is lost",
       cfgLine(3, "COMMON_LOG_FILE_NAME=..\n"),
       nothingLogged,
       {"Q313", cfgName, 3, "name of a file"}},
      {"a name of 300 characters",
       "the set-up says true, every line is lost",
       cfgLine(3, "COMMON_LOG_FILE_NAME=" + std::string(300, 'n') + "\n"),
       nothingLogged,
       {"Q313", cfgName, 3, "at most 255"}},
      {"quotes around a value",
       "they belong to the name: the log is another file",
       cfgLine(3, "COMMON_LOG_FILE_NAME=\"common.log\"\n"),
       nothingLogged,
       {"Q326", cfgName, 3, "COMMON_LOG_FILE_NAME=common.log"},
       {},
       [](const Installation& _at) { return exists(_at.logFolder() + "/\"common.log\""); }},
      {"a path that leads out of the user's data",
       "the logs are written there",
       cfgLine(4, "COMMON_LOG_FILE_ROOT=..\\Elsewhere\n"),
       nothingLogged,
       {"Q321", cfgName, 4, "without"},
       {},
       [](const Installation& _at) { return exists(_at.data() + "/../Elsewhere/common.log"); }},
      {"a filter of blanks alone",
       "the set-up says true, no class writes to the common log",
       cfgLine(5, "COMMON_LOG_FILE_FILTER=  \n"),
       nothingLogged,
       {"Q312", cfgName, 5, "add COMMON_LOG_FILE_FILTER"}},
      {"a blank behind `=`",
       "the blank belongs to the value: the set-up fails",
       cfgLine(2, "LOG_STATE= TRUE\n"),
       setUpFails,
       {"Q322", cfgName, 2, "nothing around"}},
      {"a tab in a value",
       "it becomes eight blanks: the log has another name",
       cfgLine(3, "COMMON_LOG_FILE_NAME=common\t1.log\n"),
       nothingLogged,
       {"Q323", cfgName, 3, "without a tab"},
       {},
       [](const Installation& _at) { return exists(_at.logFolder() + "/common        1.log"); }},
      {"settings beside `REDIRECT_CA_NR`",
       "nothing else is read there: the set-up fails",
       [](Installation& _at) {
         _at.cfgLine(2, "");
         _at.generic("REDIRECT_CA_NR=CA12\nLOG_STATE=TRUE\n");
       },
       setUpFails,
       {"Q325", "qmrk_logging_GE.cfg", 2, "move the key"}},
      {"an empty `COMMON_LOG_FILE_ROOT`",
       "the logs go directly into the user's data",
       cfgLine(4, "COMMON_LOG_FILE_ROOT= \n"),
       nothingLogged,
       {"Q319", cfgName, 4, "delete the line"},
       {},
       [](const Installation& _at) { return exists(_at.data() + "/common.log"); }},
      {"an absolute `COMMON_LOG_FILE_ROOT`",
       "it is taken as a folder below the user's data",
       cfgLine(4, "COMMON_LOG_FILE_ROOT=/var/log/demo\n"),
       nothingLogged,
       {"Q320", cfgName, 4, "relative"},
       {},
       [](const Installation& _at) { return exists(_at.data() + "/var/log/demo/common.log"); }},
  };
}

// NOLINTNEXTLINE(readability-function-size): one table of one meaning.
std::vector<Fault> faultsOfLimits() {
  const auto rolls = [](const Installation& _at) { return hasApplicationLog(_at, ".2"); };
  const auto grows = [](const Installation& _at) {
    return !hasApplicationLog(_at, ".1") && readFile(_at.applicationLog()).size() > 5000;
  };
  const auto isEmptied = [](const Installation& _at) {
    return !hasApplicationLog(_at, ".1") && readFile(_at.applicationLog()).size() <= 5000;
  };
  return {
      {"`SPEC_LOG_FILE_LIMIT=0`",
       "a rotated log begins a new file after every message",
       cfgLine(7, "SPEC_LOG_FILE_LIMIT=0\n"),
       asIfSound,
       {"Q314", cfgName, 7, "above 1"},
       {"--app", "app"},
       rolls},
      {"`SPEC_LOG_FILE_LIMIT=abc`",
       "a rotated log begins a new file after every message",
       cfgLine(7, "SPEC_LOG_FILE_LIMIT=abc\n"),
       asIfSound,
       {"Q314", cfgName, 7, "above 1"},
       {"--app", "app"},
       rolls},
      {"`SPEC_LOG_FILE_LIMIT=1`",
       "there is no limit: the log grows",
       cfgLine(7, "SPEC_LOG_FILE_LIMIT=1\n"),
       asIfSound,
       {"Q315", cfgName, 7, "above 1"},
       manyLines,
       grows},
      {"`SPEC_LOG_FILE_LIMIT=10`, meant as MB",
       "it counts bytes: a new file after every message, and older lines are lost",
       cfgLine(7, "SPEC_LOG_FILE_LIMIT=10\n"),
       asIfSound,
       {"Q332", cfgName, 7, "number of bytes"},
       manyLines,
       [](const Installation& _at) {
         return hasApplicationLog(_at, ".1") && readFile(_at.applicationLog()).size() < 1000;
       }},
      {"`SPEC_NR_OF_LOG_FILES=1`",
       "a full log is emptied, and what was in it is lost",
       cfgLine(8, "SPEC_NR_OF_LOG_FILES=1\n"),
       asIfSound,
       {"Q316", cfgName, 8, "2 or more"},
       manyLines,
       isEmptied},
      {"`SPEC_LOG_FILE_LIMIT=10 MB`",
       "only the digits count: a new file every 10 bytes",
       cfgLine(7, "SPEC_LOG_FILE_LIMIT=10 MB\n"),
       asIfSound,
       {"Q317", cfgName, 7, "digits alone"},
       {"--app", "app"},
       rolls},
      {"`SPEC_LOG_FILE_LIMIT` is missing",
       "both are the defaults, 1024000 and 5",
       cfgLine(7, ""),
       asIfSound,
       {"Q318", cfgName, 0, "both keys"},
       manyLines,
       grows},
      {"a variable in a path",
       "nothing replaces it: the log is in a folder of that name",
       cfgLine(4, "COMMON_LOG_FILE_ROOT=%APPDATA%\\Logs\n"),
       nothingLogged,
       {"Q329", cfgName, 4, "the path itself"},
       {},
       [](const Installation& _at) { return exists(_at.data() + "/%APPDATA%/Logs/common.log"); }},
      {"a limit without `SPEC_LOG_ROTATION`",
       "it is not read: the log grows",
       cfgLine(6, ""),
       asIfSound,
       {"Q328", cfgName, 6, "SPEC_LOG_ROTATION=TRUE"},
       manyLines,
       grows},
      {"`SPEC_NR_OF_LOG_FILES=20000`",
       "each time a log is full, as many names are tried: the application stands still",
       cfgLine(8, "SPEC_NR_OF_LOG_FILES=20000\n"),
       asIfSound,
       {"Q327", cfgName, 8, "has room for"},
       manyLines,
       [](const Installation& _at) { return hasApplicationLog(_at, ".1"); }},
  };
}

// NOLINTNEXTLINE(readability-function-size): one table of one meaning.
std::vector<Fault> faultsOfClassLists() {
  return {
      {"no `;` at the end of the filter",
       "the last class does not write to the common log",
       cfgLine(5, "COMMON_LOG_FILE_FILTER=Demo.App;Demo.Net\n"),
       onlyApp,
       {"Q401", cfgName, 5, "Demo.Net;"}},
      {"a blank between the entries of the filter",
       "the blank belongs to the class, which does not write",
       cfgLine(5, "COMMON_LOG_FILE_FILTER=Demo.App; Demo.Net;\n"),
       onlyApp,
       {"Q402", cfgName, 5, "delete the blank"}},
      {"a blank between the entries of the class list",
       "the blank belongs to the class, which stays off",
       init("Demo.App; Demo.Net.error;\n"),
       onlyApp,
       {"Q402", initName, 1, "delete the blank"}},
      {"a comment in the class list",
       "the comment joins the next class, which stays off",
       init("# the errors\nDemo.App;\nDemo.Net.error;\n"),
       onlyNet,
       {"Q403", initName, 1, "delete the comment"}},
      {"a comment behind a class",
       "the comment joins the next class, which stays off",
       init("Demo.App; # all of it\nDemo.Net.error;\n"),
       onlyApp,
       {"Q403", initName, 1, "delete the comment"}},
      {"classes on lines of their own without `;`",
       "the lines are one class, which no application has",
       init("Demo.App\nDemo.Net.error\n"),
       nothingLogged,
       {"Q404", initName, 1, "end every line"}},
      {"a class that is on but not in the filter",
       "it does not reach the common log",
       cfgLine(5, "COMMON_LOG_FILE_FILTER=Demo.App;\n"),
       onlyApp,
       {"Q405", initName, 2, "COMMON_LOG_FILE_FILTER"}},
      {"a filter of nearly the classes of the list",
       "none of them reaches the common log",
       cfgLine(5, "COMMON_LOG_FILE_FILTER=Demo.Apl;Demo.Nte;\n"),
       nothingLogged,
       {"Q405", initName, 1, "Demo.App; in the filter"}},
      {"`::` between the parts of a class",
       "it selects nothing",
       init("Demo::App;\nDemo.Net.error;\n"),
       onlyNet,
       {"Q405", initName, 1, "Demo.App;"}},
      {"a class in another letter case",
       "it selects nothing",
       init("demo.app;\nDemo.Net.error;\n"),
       onlyNet,
       {"Q405", initName, 1, "Demo.App;"}},
      {"an entry that is empty",
       "it selects only the log without a name",
       init("Demo.App;;Demo.Net.error;\n"),
       asIfSound,
       {"Q407", initName, 1, "surplus"}},
      {"an empty class list", "all classes are off", init(""), nothingLogged, {"Q408", initName, 0, "add classes"}},
      {"entries with a comma between them",
       "they are one class, which no application has",
       init("Demo.App,Demo.Net.error;\n"),
       nothingLogged,
       {"Q410", initName, 1, "by \";\""}},
      {"two letters of a class swapped",
       "it selects nothing",
       init("Demo.App.inof;\nDemo.Net.error;\n"),
       onlyNet,
       {"Q409", initName, 1, "Demo.App.info;"}},
      {"quotes around the filter",
       "the first class does not write to the common log",
       cfgLine(5, "COMMON_LOG_FILE_FILTER=\"Demo.App;Demo.Net;\"\n"),
       onlyNet,
       {"Q410", cfgName, 5, "delete the quotes"}},
      {"an exclusion with `!`",
       "nothing is excluded",
       init("Demo.App;\nDemo.Net.error;\n!Demo.App.error;\n"),
       asIfSound,
       {"Q410", initName, 3, "delete it"}},
      {"a `;` of an East Asian keyboard",
       "the entries are one class, which no application has",
       init("Demo.App\xEF\xBC\x9B"
            "Demo.Net.error;\n"),
       nothingLogged,
       {"Q410", initName, 1, "by \";\""}},
      {"an entry that ends with a point",
       "no class has that name",
       init("Demo.App.;\nDemo.Net.error;\n"),
       onlyNet,
       {"Q410", initName, 1, "surplus"}},
      {"a blank behind the `;` of a line",
       "the blank belongs to the entry of the next line, which stays off",
       init("Demo.App; \nDemo.Net.error;\n"),
       onlyApp,
       {"Q402", initName, 1, "delete the blank"}},
  };
}

std::vector<Fault> faultsOfTexts() {
  std::vector<Fault> all = faultsOfBytes();
  for (const auto& more : {faultsOfKeys(), faultsOfLimits(), faultsOfClassLists()})
    all.insert(all.end(), more.begin(), more.end());
  return all;
}

}  // namespace testsupport
