// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/finding_catalogue.h"

namespace qmrkctl {
namespace {

constexpr FindingKind keyTable[] = {
    {"Q301", Severity::error, "A key that nothing reads",
     "the line has no effect; what it should set keeps its default", "correct the key: letters count, upper case too",
     "LOG_STAT=TRUE"},
    {"Q302", Severity::error, "A blank stands beside a key", "the blank belongs to the key, which nothing reads",
     "write KEY=value with nothing around the \"=\" and nothing before the key", "LOG_STATE =TRUE"},
    {"Q303", Severity::error, "A switch is neither TRUE nor FALSE", "everything but TRUE, in any letter case, is off",
     "write TRUE or FALSE", "LOG_STATE=1; LOG_STATE=yes"},
    {"Q304", Severity::error, "An empty value swallows the next line",
     "the next line becomes part of the value and sets nothing itself", "give the key a value, or delete the line",
     "COMMON_LOG_FILE_ROOT="},
    {"Q305", Severity::error, "A line has no \"=\"", "the line becomes part of the next key, which nothing reads",
     "delete the line, complete it, or put a \"#\" before it", "--- logs ---"},
    {"Q306", Severity::warning, "A key occurs twice", "the later value counts", "delete one of the lines", ""},
    {"Q307", Severity::error, "A \"#\" cuts a value",
     "the value ends before the \"#\": it starts a comment wherever it stands",
     "leave the \"#\" out; there is no way to write one", "COMMON_LOG_FILE_NAME=log#1.txt"},
    {"Q308", Severity::error, "A line begins with \"=\" or \":\"",
     "an empty key never ends: nothing below this line is read", "put a \"#\" before the line, or delete it", "======"},
    {"Q309", Severity::error, "LOG_STATE is missing", "logging is off: initDefaultLogs fails and connects nothing",
     "add the line LOG_STATE=TRUE", ""},
    {"Q310", Severity::error, "COMMON_LOG_FILE_NAME is missing", "initDefaultLogs fails and leaves no record",
     "add the line COMMON_LOG_FILE_NAME=common.log", ""},
    {"Q311", Severity::note, "Logging is switched off", "initDefaultLogs fails and connects nothing",
     "write LOG_STATE=TRUE to switch it on", "LOG_STATE=FALSE"},
    {"Q312", Severity::warning, "COMMON_LOG_FILE_FILTER is missing", "no class writes to the common log",
     "add COMMON_LOG_FILE_FILTER with the classes that shall write there, each ended by \";\"", ""},
    {"Q313", Severity::error, "COMMON_LOG_FILE_NAME is no name of a file",
     "the common log cannot be opened: the set-up says true and every line is lost", "write the name of a file alone",
     "COMMON_LOG_FILE_NAME=logs\\common.log"},
    {"Q314", Severity::error, "SPEC_LOG_FILE_LIMIT is no size",
     "the limit becomes -1: a rotated log begins a new file after every message", "write a number of bytes above 1",
     "SPEC_LOG_FILE_LIMIT=0; SPEC_LOG_FILE_LIMIT=abc"},
    {"Q315", Severity::warning, "SPEC_LOG_FILE_LIMIT is 1", "1 means no limit: application logs grow for ever",
     "write a number of bytes above 1", "SPEC_LOG_FILE_LIMIT=1"},
    {"Q316", Severity::warning, "SPEC_NR_OF_LOG_FILES keeps no old files",
     "a full application log is emptied, and what was in it is lost", "write 2 or more", "SPEC_NR_OF_LOG_FILES=1"},
    {"Q317", Severity::warning, "A number has something behind it", "only the digits at the beginning count",
     "write digits alone, for bytes", "SPEC_LOG_FILE_LIMIT=10 MB"},
    {"Q318", Severity::warning, "One of the two keys of the rotation is missing",
     "without SPEC_LOG_FILE_LIMIT both are the defaults 1024000 and 5, without SPEC_NR_OF_LOG_FILES that one is 5",
     "set both keys", "SPEC_NR_OF_LOG_FILES=9 alone"},
    {"Q319", Severity::warning, "COMMON_LOG_FILE_ROOT is empty",
     "the logs go directly into the folder of the user's application data",
     "delete the line for the default, or write a folder", "COMMON_LOG_FILE_ROOT= (with a blank behind it)"},
    {"Q320", Severity::warning, "COMMON_LOG_FILE_ROOT is an absolute path",
     "it is taken as a folder below the user's application data all the same", "write a folder relative to that",
     "COMMON_LOG_FILE_ROOT=/var/log/demo"},
    {"Q322", Severity::error, "A value begins with a blank", "the blank belongs to the value",
     "write KEY=value with nothing around the \"=\"", "COMMON_LOG_FILE_NAME= common.log"},
    {"Q323", Severity::warning, "A tab stands in a value", "it becomes eight blanks",
     "write what is meant, without a tab", ""},
    {"Q324", Severity::note, "CA_NR names another CA than the file", "none: the library does not read CA_NR",
     "correct CA_NR: people read it", "CA_NR=CA12 in qmrk_logging_CA13.cfg"},
    {"Q325", Severity::warning, "A key in the generic file that is not read",
     "while the generic file has REDIRECT_CA_NR, nothing else in it is read", "move the key to the file of the CA",
     "LOG_STATE=TRUE in qmrk_logging_GE.cfg"},
};

}  // namespace

std::span<const FindingKind> keyKinds() { return keyTable; }

}  // namespace qmrkctl
