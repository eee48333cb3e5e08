// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/finding_catalogue.h"

namespace qmrkctl {
namespace {

constexpr FindingKind processTable[] = {
    {"Q601", Severity::note, "An application does not listen", "a changed class list reaches it at its next start only",
     "give the application a LogEventHandler, or restart it after a change", "no listener was ever started"},
    {"Q602", Severity::error, "The listener of an application has ended or failed",
     "a changed class list does not reach the application any more", "restart the application",
     "the thread of a LogEventHandler is gone"},
    {"Q603", Severity::error, "An application does not apply the class list of its file",
     "other classes are on than the file says", "qmrkctl signal", "the file was edited and the event was not set"},
    {"Q604", Severity::error, "The listener of an application follows another CA",
     "a change of the class list of its own CA does not reach it",
     "start the application with DEFAULT_CA_NR set to the CA that it names in initDefaultLogs",
     "initDefaultLogs(\"app\", \"CA12\", false), and DEFAULT_CA_NR is unset"},
    {"Q605", Severity::error, "An application cannot write a log", "its messages are lost",
     "see the error; usually the disk is full or rights are missing", ""},
    {"Q606", Severity::warning, "An application has lost messages", "the log has gaps",
     "see when that was and why; a restart sets the count to 0", "the disk was full for a while"},
    {"Q607", Severity::error, "The set-up of an application has failed", "it writes no log",
     "remove the reason and restart the application", "initDefaultLogs returned false"},
    {"Q608", Severity::warning, "An application runs with another version of the library",
     "what this program says about it may be incomplete", "restart the application after an update", ""},
    {"Q609", Severity::warning, "A process is stopped", "it logs nothing and hears of no change of the class list",
     "kill -CONT PID, or end the debugger that stopped it", "SIGSTOP"},
    {"Q610", Severity::note, "A process shows nothing of its logging",
     "it is not known what it applies and where it logs",
     "an application shows it from its first set-up call on, and again after qmrkctl signal where its folder was "
     "removed; another user's is shown to root",
     "the library is loaded, and initDefaultLogs was not called"},
    {"Q611", Severity::error, "An application could not apply its class list",
     "the classes stay as they were; at its start all of them are on", "remove the reason, then qmrkctl signal",
     "the .init file was removed while it ran"},
    {"Q612", Severity::note, "An application has switched classes itself",
     "other classes may be on than the file says, until the list is applied again", "qmrkctl signal",
     "enableAllLogs was called"},
    {"Q613", Severity::warning, "An application was set up with another configuration than there is now",
     "it logs by the files of its start", "restart the application", "the .cfg of its CA was installed later"},
    {"Q614", Severity::warning, "Recent error records", "see \"qmrkctl errors\"",
     "qmrkctl errors explains each; older ones than a day do not count", ""},
    {"Q615", Severity::error, "A process does not have the library", "it does not log through it",
     "look at another process: qmrkctl apps", "doctor --pid of another program"},
    {"Q616", Severity::error, "A class is not on", "its lines go nowhere", "qmrkctl classes enable CLASS", ""},
    {"Q617", Severity::warning, "The library of an application was replaced while it runs",
     "it goes on with the former one until it is started again", "restart the application",
     "a package was upgraded, its services were not restarted"},
    {"Q618", Severity::error, "Applications rotate the same log",
     "each of them renames the file while the others write it: old lines are lost before their time",
     "give each a log of its own (createApplicationSpecificLogFile), or SPEC_LOG_ROTATION=FALSE; then restart them",
     "an application was started twice"},
    {"Q619", Severity::error, "The log that an application rotates was deleted or renamed",
     "its lines go to the former file, which is gone or has another name",
     "restart the application, and leave the rotation to SPEC_LOG_ROTATION alone", "rm, mv, logrotate"},
    {"Q620", Severity::error, "The folder of the events of an application is not its user's alone",
     "a changed class list reaches the application at its next start only, and it shows nothing of its logging",
     "remove the folder, then restart the application", "/dev/shm/qmrk-1000 with mode 0755"},
    {"Q621", Severity::note, "The .cfg file of an application was written since its set-up",
     "keys that were changed meanwhile count at the next set-up", "restart the application if they are to count now",
     "another SPEC_LOG_FILE_LIMIT"},
    {"Q705", Severity::note, "An application has another DEFAULT_CA_NR than this session",
     "commands without --pid look at another configuration than the application has", "ask with --pid",
     "the variable is set in the unit of a service"},
    {"Q706", Severity::warning, "An application ignores the variables that move folders",
     "QMRK_APPDATA and the like do not count where a program has more rights than its caller: it uses the default "
     "folders",
     "start it as its user, without set-user-id and capabilities of its file", "a program with set-user-id"},
    {"Q707", Severity::note, "An application has other folders than this session",
     "commands without --pid look at other files than the application has", "ask with --pid",
     "QMRK_APPDATA is set in the unit of a service"},
};

}  // namespace

std::span<const FindingKind> processKinds() { return processTable; }

}  // namespace qmrkctl
