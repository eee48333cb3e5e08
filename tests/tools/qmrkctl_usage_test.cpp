// SPDX-License-Identifier: MIT
// What qmrkctl says about a command line that it does not understand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "tests/support/child_process.h"
#include "tests/support/config_sandbox.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using Names = std::vector<std::string>;

class QmrkctlUsage : public ::testing::Test {
 protected:
  /// Runs the program, and expects it to refuse its usage.
  static std::string refusal(const Names& _arguments) {
    const testsupport::ChildResult result = testsupport::runProgram(QMRKCTL, _arguments);
    EXPECT_EQ(result.exitCode, 2) << result.output;
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, HasSubstr("Run with --help for more information."));
    return result.errors;
  }

  testsupport::ConfigSandbox sandbox_;
};

TEST_F(QmrkctlUsage, NamesACommandThatDoesNotExist) {
  EXPECT_THAT(refusal({"nosuch"}), HasSubstr("qmrkctl: there is no command \"nosuch\"\n"));
  EXPECT_THAT(refusal({"--json", "doctr", "--strict"}), HasSubstr("no command \"doctr\"; did you mean \"doctor\"?\n"));
  EXPECT_THAT(refusal({"classes", "enabel", "Demo.App"}), HasSubstr("\"enabel\"; did you mean \"enable\"?\n"));
  EXPECT_THAT(refusal({}), HasSubstr("A subcommand is required"));
}

TEST_F(QmrkctlUsage, NamesAnOptionThatDoesNotExist) {
  EXPECT_THAT(refusal({"doctor", "--jsn"}), HasSubstr("there is no option \"--jsn\"; did you mean \"--json\"?\n"));
  EXPECT_THAT(refusal({"tail", "--sinc=10m"}), HasSubstr("option \"--sinc\"; did you mean \"--since\"?\n"));
  EXPECT_THAT(refusal({"--all-user", "signal"}), HasSubstr("did you mean \"--all-users\"?\n"));
  EXPECT_THAT(refusal({"doctor", "--frobnicate"}), HasSubstr("there is no option \"--frobnicate\"\n"));
  EXPECT_THAT(refusal({"doctor", "junk"}), HasSubstr("The following argument was not expected: junk"));
}

TEST_F(QmrkctlUsage, ShowsNoControlCharactersOfAnArgument) {
  for (const Names& arguments : {Names{"a\x1b[31m"}, Names{"doctor", "a\x1b[31m"}, Names{"doctor", "--a\x1b[31m"}})
    EXPECT_THAT(refusal(arguments), Not(HasSubstr("\x1b")));
}

TEST_F(QmrkctlUsage, EndsWithTheObjectOfItsCommandIfOneIsAskedFor) {
  const std::vector<std::pair<std::string, Names>> all = {
      {"why", {"--json", "why"}},
      {"why", {"why", "--json"}},
      {"classes", {"classes", "try", "Demo.App", "--for", "soon", "--json"}},
      {"doctor", {"--json", "doctor", "--frobnicate"}},
      {"apps", {"--json", "--pid", "one", "apps"}},
      {"completion", {"--json", "completion", "nosh"}},
  };
  for (const auto& [command, arguments] : all) {
    const testsupport::ChildResult result = testsupport::runProgram(QMRKCTL, arguments);
    EXPECT_EQ(result.exitCode, 2) << result.output;
    EXPECT_THAT(result.errors, HasSubstr("Run with --help for more information."));
    const auto object = nlohmann::json::parse(result.output);
    EXPECT_EQ(object["schema"], "qmrkctl." + command + "/1");
    EXPECT_EQ(object["ok"], false);
    EXPECT_EQ(object["result"], nlohmann::json::object());
  }
}

TEST_F(QmrkctlUsage, RefusesAnEmptyArgumentInPlaceOfNone) {
  sandbox_.writeDemoOfCa12("LOG_STATE=TRUE\n");
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  const std::vector<Names> all = {{"check", ""},
                                  {"explain", ""},
                                  {"schema", ""},
                                  {"init-config", ""},
                                  {"bundle", "--out", ""},
                                  {"show", "--diff", ""},
                                  {"errors", "--since", ""},
                                  {"tail", "--since", ""},
                                  {"tail", "--class", ""},
                                  {"mark", ""},
                                  {"--ca", "", "doctor"},
                                  {"--app", "", "signal"},
                                  {"--user", "", "where"}};
  for (Names arguments : all) {
    const std::string name = ::testing::PrintToString(arguments);
    if (arguments.front() == "init-config") arguments.insert(arguments.begin(), {"--ca", "CA5"});
    EXPECT_THAT(refusal(arguments), HasSubstr("it is empty")) << name;
  }
}

}  // namespace
