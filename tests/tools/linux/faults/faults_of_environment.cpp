// SPDX-License-Identifier: MIT
#include "tests/tools/linux/faults/fault_table.h"

namespace testsupport {
namespace {

constexpr unsigned int homelessUser = 65534;
constexpr unsigned int unnamedUser = 54321;

const FaultEffect noLogs = {false, {}};
const FaultEffect linesAsEver = {true, {"Demo.App.error", "Demo.App.info", "Demo.Net.error"}};
const FaultEffect everyLine = {true, {"Demo.App.error", "Demo.App.info", "Demo.Net.error", "Demo.Net.info"}};

}  // namespace

// NOLINTNEXTLINE(readability-function-size): one table of one meaning.
std::vector<Fault> faultsOfEnvironment() {
  return {
      {"an override that is no absolute path",
       "it is ignored: no class list is found, all classes stay on",
       [](FaultInstallation& _at) { _at.environment("QMRK_COMMON_APPDATA", "appdata"); },
       everyLine,
       {"Q701", "", 0, "absolute path"}},
      {"`HOME` unset",
       "the home of the password entry counts; that of this user cannot be created: the set-up fails",
       [](FaultInstallation& _at) {
         _at.environment("QMRK_APPDATA", "");
         _at.environment("HOME", "");
         _at.runAs(homelessUser);
       },
       noLogs,
       {"Q702", "", 0, "set HOME"}},
      {"`HOME` unset, a user without password entry",
       "there is no folder for logs: the set-up fails",
       [](FaultInstallation& _at) {
         _at.environment("QMRK_APPDATA", "");
         _at.environment("HOME", "");
         _at.runAs(unnamedUser);
       },
       noLogs,
       {"Q703", "", 0, "set HOME"}},
      {"`DEFAULT_CA` in place of `DEFAULT_CA_NR`",
       "it is ignored: the set-up takes the CA to which `GE` leads",
       [](FaultInstallation& _at) {
         _at.sandbox().writeCfg("CA13", replaced(_at.cfgText(), "CA12", "CA13"));
         _at.sandbox().writeInit("CA13", "Demo.Net.info;\n");
         _at.environment("DEFAULT_CA", "CA13");
       },
       linesAsEver,
       {"Q708", "", 0, "rename it to DEFAULT_CA_NR"}},
      {"`DEFAULT_CA_NR` above 255 characters",
       "it counts as empty: the set-up fails",
       [](FaultInstallation& _at) { _at.environment("DEFAULT_CA_NR", std::string(300, 'C')); },
       noLogs,
       {"Q704", "", 0, "CA alone"}},
  };
}

}  // namespace testsupport
