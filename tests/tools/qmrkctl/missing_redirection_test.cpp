// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <string>

#include "tests/support/config_sandbox.h"
#include "tools/qmrkctl/configuration.h"

namespace {

using namespace qmrkctl;
using testing::AllOf;
using testing::HasSubstr;

constexpr char wholeSettings[] = "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=c.log\nCOMMON_LOG_FILE_FILTER=A;B;\n";

// To add the keys that are missing there would lead to no class list.
TEST(MissingRedirection, NamesTheCaToWhichAnEmptyGenericFileIsToLead) {
  const testsupport::ConfigSandbox sandbox;
  sandbox.writeCfg("GE", "");
  const auto found = [](const std::string& _ca) {
    const Viewpoint own = ownViewpoint();
    std::string text;
    for (const Finding& finding : checkConfiguration(own, readConfiguration(own, _ca)))
      text += std::string(severityName(finding.severity)) + " " + finding.code + ": " + finding.fix + "\n";
    return text;
  };
  EXPECT_THAT(found(""), AllOf(HasSubstr("warning Q209"), HasSubstr("Q309"))) << "there is no CA";
  sandbox.writeCfg("CA1", wholeSettings);
  sandbox.writeInit("CA1", "A;\n");
  const std::string missing = "error Q209: add the line REDIRECT_CA_NR=CA1\n";
  EXPECT_EQ(found(""), missing);
  EXPECT_EQ(found("CA1"), missing);
  sandbox.writeCfg("GE", "REDIRECT_CA=CA1\n");
  EXPECT_THAT(found(""), AllOf(HasSubstr("warning Q209: add the line REDIRECT_CA_NR=CA1\n"), HasSubstr("Q301")));
  sandbox.writeCfg("GE", wholeSettings);
  sandbox.writeCfg("CA2", wholeSettings);
  EXPECT_EQ(found(""), "warning Q209: add the line REDIRECT_CA_NR=CA1 or REDIRECT_CA_NR=CA2\n");
}

}  // namespace
