// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/as_unprivileged_user.h"
#include "tests/support/child_process.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/linux/shared_memory_mount.h"
#include "tests/support/private_events.h"
#include "tests/tools/qmrkctl/linux/sleeping_listener.h"

namespace testsupport {

using Json = nlohmann::json;
using Names = std::vector<std::string>;

/// Another user without a name.
constexpr unsigned int other = 23456;

/// The real program on a real configuration of CA12, with a /dev/shm and process ids of the test's own.
class QmrkctlOnSandbox : public ::testing::Test {
 protected:
  void SetUp() override {
    usePrivateProcesses();
    mountSharedMemory("");
    sandbox_.writeDemoOfCa12("LOG_STATE=TRUE\nMILLISECOND_RESOLUTION=TRUE\n");
    sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
    list("Demo.App;\nDemo.Net.error;\n");
  }
  void TearDown() override { unmountSharedMemory(); }

  static ChildResult qmrkctl(const Names& _arguments) { return runProgram(QMRKCTL, _arguments); }

  static Json json(Names _arguments) {
    _arguments.insert(_arguments.begin(), "--json");
    const ChildResult result = qmrkctl(_arguments);
    return Json::parse(result.output, nullptr, false);
  }

  void list(const std::string& _text) const { sandbox_.writeInit("CA12", _text); }
  std::string list() const { return readFile(sandbox_.initPath("CA12")); }
  std::string beside(const std::string& _name) const { return sandbox_.initFolder() + "\\CA12." + _name; }

  SleepingListener::Settings follower(const std::string& _application, unsigned int _user = 0) const {
    SleepingListener::Settings settings;
    settings.userId = _user;
    settings.applications = {_application};
    settings.listPath = sandbox_.initPath("CA12");
    settings.logs = {"Demo.App", "Demo.Net", "Demo.Net.error"};
    return settings;
  }

  static std::string outcomeOf(const Json& _object, const SleepingListener& _listener) {
    for (const Json& answer : _object["result"]["answers"]) {
      if (answer["pid"] == _listener.pid()) return answer["outcome"];
    }
    return "<none>";
  }

  static bool contains(const std::string& _text, const std::string& _part) {
    return _text.find(_part) != std::string::npos;
  }

  ConfigSandbox sandbox_;
};

}  // namespace testsupport
