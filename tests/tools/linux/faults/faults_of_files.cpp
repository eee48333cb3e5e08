// SPDX-License-Identifier: MIT
#include <sys/stat.h>

#include <filesystem>

#include "tests/tools/linux/faults/fault_table.h"

namespace testsupport {
namespace {

namespace fs = std::filesystem;
using Installation = FaultInstallation;

constexpr unsigned int nobodysId = 65534;

const std::string cfgFile = "qmrk_logging_CA12.cfg";
const std::string initFile = "qmrk_logging_CA12.init";
const std::string genericFile = "qmrk_logging_GE.cfg";
const FaultEffect fails = {false, {}};
const FaultEffect soundLines = {true, {"Demo.App.error", "Demo.App.info", "Demo.Net.error"}};
const FaultEffect everyClass = {true, {"Demo.App.error", "Demo.App.info", "Demo.Net.error", "Demo.Net.info"}};

std::function<void(Installation&)> generic(const std::string& _text) {
  return [_text](Installation& _at) { _at.generic(_text); };
}

// What the library writes in place of the generic file.
bool isGenerated(const Installation& _at) {
  const std::string text = readFile(_at.genericPath());
  return text.find("auto generated") != std::string::npos && text.find("REDIRECT_CA_NR=CA12\n") != std::string::npos;
}

bool hasRecord(const Installation& _at) { return exists(_at.logFolder() + "/qmrk.info"); }

void makeUnreadable(const std::string& _path) { fs::permissions(_path, fs::perms(0600)); }

}  // namespace

// NOLINTNEXTLINE(readability-function-size): one table of one meaning.
std::vector<Fault> faultsOfRedirection() {
  return {
      {"the `.cfg` of the CA that is asked for is missing",
       "a record in `qmrk.info`, and the set-up takes `GE`",
       [](Installation& _at) { _at.environment("DEFAULT_CA_NR", "CA99"); },
       soundLines,
       {"Q201", "qmrk_logging_CA99.cfg", 0, "DEFAULT_CA_NR"},
       {},
       hasRecord},
      {"the generic `.cfg` is missing",
       "the library generates one that leads to the first CA of the folder",
       [](Installation& _at) { fs::remove(_at.genericPath()); },
       soundLines,
       {"Q202", genericFile, 0, "REDIRECT_CA_NR"},
       {},
       isGenerated},
      {"no `.cfg` at all",
       "the set-up fails",
       [](Installation& _at) {
         fs::remove(_at.genericPath());
         fs::remove(_at.cfgPath());
       },
       fails,
       {"Q203", genericFile, 0, "init-config"}},
      {"`REDIRECT_CA_NR` leads to a CA that is not there",
       "the library replaces the generic file",
       generic("CA_NR=GE\nREDIRECT_CA_NR=CA21\n"),
       soundLines,
       {"Q204", genericFile, 2, "installed CA"},
       {},
       isGenerated},
      {"a redirection to a redirection",
       "only the first step is taken",
       [](Installation& _at) { _at.cfgLine(1, "REDIRECT_CA_NR=CA13\n"); },
       soundLines,
       {"Q205", cfgFile, 1, "last CA"}},
      {"`REDIRECT_CA_NR` in the file of a CA",
       "it leads nowhere: that file counts",
       [](Installation& _at) {
         _at.sandbox().writeCfg("CA13", replaced(_at.cfgText(), "common.log", "other.log"));
         _at.sandbox().writeInit("CA13", "Demo.App;\n");
         _at.generic("REDIRECT_CA_NR=CA13\n");
         _at.cfgLine(1, "REDIRECT_CA_NR=CA13\n");
         _at.environment("DEFAULT_CA_NR", "CA12");
       },
       soundLines,
       {"Q331", cfgFile, 1, "delete the line"},
       {},
       [](const Installation& _at) { return !exists(_at.logFolder() + "/other.log"); }},
      {"`REDIRECT_CA_NR=GE`",
       "the generic file has no `LOG_STATE`: the set-up fails",
       generic("CA_NR=GE\nREDIRECT_CA_NR=GE\n"),
       fails,
       {"Q206", genericFile, 2, "installed"}},
      {"`REDIRECT_CA_NR` in lower case",
       "the file is not found: the library replaces the generic file",
       generic("CA_NR=GE\nREDIRECT_CA_NR=ca12\n"),
       soundLines,
       {"Q207", genericFile, 2, "REDIRECT_CA_NR=CA12"},
       {},
       isGenerated},
      {"the name of the `.cfg` in lower case",
       "the file is not found, nor one to redirect to: the set-up fails",
       [](Installation& _at) { fs::rename(_at.cfgPath(), replaced(_at.cfgPath(), "CA12", "ca12")); },
       fails,
       {"Q208", cfgFile, 0, "rename"}},
      {"the name of the class list in lower case",
       "the file is not found: all classes stay on",
       [](Installation& _at) { fs::rename(_at.initPath(), replaced(_at.initPath(), "CA12", "ca12")); },
       everyClass,
       {"Q208", initFile, 0, "rename"}},
      {"`GE` without `REDIRECT_CA_NR`",
       "the text of the `.cfg` is the class list: only classes behind the first `;` of the filter are on",
       [](Installation& _at) {
         _at.generic(_at.cfgText());
         fs::remove(_at.cfgPath());
       },
       {true, {"Demo.Net.error", "Demo.Net.info"}},
       {"Q209", genericFile, 0, "REDIRECT_CA_NR"}},
      {"`REDIRECT_CA_NR` behind a `#`",
       "the generic file has no `LOG_STATE`: the set-up fails",
       [](Installation& _at) { _at.generic("CA_NR=GE\n#REDIRECT_CA_NR=CA12\n"); },
       fails,
       {"Q209", genericFile, 0, "add the line REDIRECT_CA_NR=CA12"}},
  };
}

// NOLINTNEXTLINE(readability-function-size): one table of one meaning.
std::vector<Fault> faultsOfUnreadableFiles() {
  return {
      {"the class list is missing",
       "all classes stay on; a record in `qmrk.info`",
       [](Installation& _at) { fs::remove(_at.initPath()); },
       everyClass,
       {"Q210", initFile, 0, "create the file"},
       {},
       hasRecord},
      {"the class list in the folder of the `.cfg` files",
       "it is not found: all classes stay on",
       [](Installation& _at) { fs::rename(_at.initPath(), fs::path(_at.cfgPath()).parent_path() / initFile); },
       everyClass,
       {"Q210", initFile, 0, "move it to"}},
      {"a class list that an editor saved as `.init.txt`",
       "it is not found: all classes stay on",
       [](Installation& _at) { fs::rename(_at.initPath(), _at.initPath() + ".txt"); },
       everyClass,
       {"Q210", initFile, 0, "move it to"}},
      {"a `.cfg` that an editor saved as `.cfg.txt`",
       "the set-up fails",
       [](Installation& _at) { fs::rename(_at.cfgPath(), _at.cfgPath() + ".txt"); },
       fails,
       {"Q204", genericFile, 2, "move it to"}},
      {"a `.cfg` that the user may not read",
       "the set-up fails",
       [](Installation& _at) {
         makeUnreadable(_at.cfgPath());
         _at.runAs(nobodysId);
       },
       fails,
       {"Q211", cfgFile, 0, "0644"}},
      {"a class list that the user may not read",
       "all classes stay on",
       [](Installation& _at) {
         makeUnreadable(_at.initPath());
         _at.runAs(nobodysId);
       },
       everyClass,
       {"Q212", initFile, 0, "0644"}},
      {"a folder of the `.cfg` files that the user may not enter",
       "the set-up fails",
       [](Installation& _at) {
         fs::permissions(fs::path(_at.cfgPath()).parent_path(), fs::perms(0700));
         _at.runAs(nobodysId);
       },
       fails,
       {"Q211", "qmrk_logging_GE.cfg", 0, "enter the folder"}},
      {"a folder of the class lists that the user may not enter",
       "all classes stay on",
       [](Installation& _at) {
         fs::permissions(fs::path(_at.initPath()).parent_path(), fs::perms(0700));
         _at.runAs(nobodysId);
       },
       everyClass,
       {"Q212", initFile, 0, "enter the folder"}},
      {"a folder in place of the class list",
       "all classes stay on",
       [](Installation& _at) {
         fs::remove(_at.initPath());
         fs::create_directory(_at.initPath());
       },
       everyClass,
       {"Q213", initFile, 0, "regular file"}},
      {"a pipe in place of the `.cfg`",
       "no key is found: the set-up fails",
       [](Installation& _at) {
         fs::remove(_at.cfgPath());
         ::mkfifo(_at.cfgPath().c_str(), 0644);
       },
       fails,
       {"Q213", cfgFile, 0, "regular file"}},
      {"a link to `/dev/null` in place of the class list",
       "all classes stay on",
       [](Installation& _at) {
         fs::remove(_at.initPath());
         fs::create_symlink("/dev/null", _at.initPath());
       },
       everyClass,
       {"Q213", initFile, 0, "regular file"},
       {},
       // That everybody may write to the device is no fault.
       [](const Installation& _at) { return _at.qmrkctl({"check"}).output.find("Q510") == std::string::npos; }},
      {"a link that leads nowhere in place of the class list",
       "all classes stay on",
       [](Installation& _at) {
         fs::remove(_at.initPath());
         fs::create_symlink("/nowhere/at/all", _at.initPath());
       },
       everyClass,
       {"Q213", initFile, 0, "regular file"}},
      {"a link that leads nowhere in place of the `.cfg`",
       "the file is not found, nor one to redirect to: the set-up fails",
       [](Installation& _at) {
         fs::remove(_at.cfgPath());
         fs::create_symlink("/nowhere/at/all", _at.cfgPath());
       },
       fails,
       {"Q213", cfgFile, 0, "regular file"}},
      {"only a copy of a `.cfg`, `qmrk_logging_CA12.cfg.bak`",
       "a generic file is generated that leads to CA12, which is missing: the set-up fails",
       [](Installation& _at) {
         fs::rename(_at.cfgPath(), _at.cfgPath() + ".bak");
         fs::remove(_at.genericPath());
       },
       fails,
       {"Q203", genericFile, 0, "install the files"}},
      {"a `.cfg` above 64 MiB",
       "it is not read: the set-up fails",
       [](Installation& _at) { fs::resize_file(_at.cfgPath(), 64U * 1024 * 1024 + 1); },
       fails,
       {"Q214", cfgFile, 0, "copy"}},
      {"a class list above 64 MiB",
       "it is not read: all classes stay on",
       [](Installation& _at) { fs::resize_file(_at.initPath(), 64U * 1024 * 1024 + 1); },
       everyClass,
       {"Q214", initFile, 0, "copy"}},
  };
}

std::vector<Fault> faultsOfFiles() {
  std::vector<Fault> all = faultsOfRedirection();
  const std::vector<Fault> more = faultsOfUnreadableFiles();
  all.insert(all.end(), more.begin(), more.end());
  return all;
}

}  // namespace testsupport
