// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/finding_catalogue.h"

namespace qmrkctl {
namespace {

constexpr FindingKind redirectionTable[] = {
    {"Q201", Severity::error, "The .cfg file of the CA is missing",
     "the set-up writes a record to qmrk.info and falls back to \"GE\"",
     "install the file, or correct the CA that the application or DEFAULT_CA_NR names",
     "DEFAULT_CA_NR=CA13 where only CA12 is installed"},
    {"Q202", Severity::warning, "The generic .cfg file is missing",
     "the next set-up writes a record to qmrk.info and generates one that redirects to the first CA of the folder",
     "create qmrk_logging_GE.cfg with the line REDIRECT_CA_NR=<the CA that is installed>", ""},
    {"Q203", Severity::error, "There is no configuration, and none can be generated",
     "the set-up fails: nothing is logged", "install the files of a CA: \"qmrkctl init-config --ca CA12 --install\"",
     "an empty folder; a folder in which the user may not write"},
    {"Q204", Severity::error, "REDIRECT_CA_NR leads to a file that is missing",
     "the set-up writes a record to qmrk.info and replaces the generic file by one that redirects to the first CA of "
     "the folder, or fails where it cannot",
     "write the name of an installed CA, or install its .cfg file", "REDIRECT_CA_NR=CA21 where only CA12 is installed"},
    {"Q205", Severity::warning, "A redirection leads to a file that redirects too",
     "only the first step is taken: this key is not read", "let the generic file name the last CA of the chain",
     "REDIRECT_CA_NR=CA13 in qmrk_logging_CA12.cfg"},
    {"Q206", Severity::warning, "The generic file redirects to itself",
     "the generic file itself is the .cfg file, and qmrk_logging_GE.init the class list",
     "name the CA that is installed", "REDIRECT_CA_NR=GE"},
    {"Q207", Severity::error, "REDIRECT_CA_NR has another letter case than the name of the file",
     "the value is used as it is written, so the file is not found: the set-up writes a record to qmrk.info and "
     "replaces the generic file, or fails where it cannot",
     "write the value as it stands in the name of the file", "REDIRECT_CA_NR=ca12 for qmrk_logging_CA12.cfg"},
    {"Q208", Severity::error, "The name of a file has another letter case",
     "the file is not found: the CA stands in upper case in the name, all else as shown", "rename the file",
     "qmrk_logging_ca12.cfg"},
    {"Q209", Severity::warning, "The generic file has no REDIRECT_CA_NR",
     "the text of the generic .cfg file is taken as the class list of \"GE\": classes that stand behind the first "
     "\";\" of "
     "its filter are on, all others off",
     "add the line REDIRECT_CA_NR=<the CA that is installed>", ""},
    {"Q210", Severity::error, "The class list is missing",
     "no class is switched on or off: all classes stay as they are, on at the start of an application; a record goes "
     "to qmrk.info",
     "create the file; an empty one switches all classes off", ""},
    {"Q211", Severity::error, "A .cfg file cannot be read", "the set-up fails; a record goes to qmrk.info",
     "let every user read the file (mode 0644) and enter its folders", "mode 0600, owner root"},
    {"Q212", Severity::error, "The class list cannot be read",
     "no class is switched on or off: all classes stay as they are, on at the start of an application; a record goes "
     "to qmrk.info",
     "let every user read the file (mode 0644) and enter its folders", "mode 0600, owner root"},
    {"Q213", Severity::error, "Something else stands in place of a file", "it is not read", "put a regular file there",
     "a folder, a pipe, a link whose target is missing"},
    {"Q214", Severity::error, "A file is larger than 64 MiB", "it is taken for a mistake and not read",
     "restore the file from a copy", "a log that was copied over it"},
};

}  // namespace

std::span<const FindingKind> redirectionKinds() { return redirectionTable; }

}  // namespace qmrkctl
