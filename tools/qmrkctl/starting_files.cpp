// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/starting_files.h"

#include "config/cfg_data_manager.h"
#include "quillmark_logging_names.h"

namespace qmrkctl {
namespace {

namespace names = Quillmark_logging;

constexpr char cfgEnding[] = R"(
# Whether applications log at all. Everything but TRUE is off, and then the set-up of an application fails.
LOG_STATE=TRUE

# The common log, and its folder below the application data of each user.
COMMON_LOG_FILE_NAME=common.log
COMMON_LOG_FILE_ROOT=Orvane\Quillmark\Logging

# The classes that write to the common log; each entry ends with ";", the last one too. "*" stands for any characters,
# and "Demo" selects "Demo.App.error" too.
COMMON_LOG_FILE_FILTER=*;

# Time stamps with milliseconds.
MILLISECOND_RESOLUTION=TRUE

# Logs of single applications: full at so many bytes, then rotated, with so many files in all.
SPEC_LOG_ROTATION=TRUE
SPEC_LOG_FILE_LIMIT=1024000
SPEC_NR_OF_LOG_FILES=5

# Read for GE while the library is loaded: threads of their own that write the files; the library's trace of its set-up.
TS_APPENDERS=FALSE
QMRK_TRACE=FALSE
)";

constexpr char rules[] =
    "# A line is KEY=value with nothing around the \"=\", and ends with a line feed; \"#\" starts a comment anywhere.\n"
    "# \"qmrkctl check\" says what is wrong here.\n";

}  // namespace

std::string startingCfg(const std::string& _ca) {
  return "# The configuration of the customer adaptation " + _ca + ".\n" + rules +
         "#\n# The classes that are on stand in qmrk_logging_" + _ca +
         ".init, each ended by \";\". That file is a class list and\n"
         "# nothing else: no comments, no blanks. \"qmrkctl classes\" changes it while applications run.\n\n" +
         names::CA_NR + "=" + _ca + "\n" + cfgEnding;
}

std::string startingGeneric(const std::string& _ca) {
  return std::string("# The generic configuration, for applications that name no customer adaptation.\n") + rules +
         "\n" + names::CA_NR + "=" + names::GENERIC_CA + "\n\n" +
         "# The customer adaptation that is installed here: its files answer every request for GE.\n" +
         names::REDIRECT_CA_NR + "=" + _ca + "\n";
}

std::string startingInit() { return "*;\n"; }

bool isNameOfCa(const std::string& _text) {
  constexpr char allowed[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-";
  constexpr std::size_t longest = 64;
  return !_text.empty() && _text.size() <= longest && _text.find_first_not_of(allowed) == std::string::npos &&
         CfgDataManager::getInstance(false)->toUpperCopy(_text) != names::GENERIC_CA;
}

}  // namespace qmrkctl
