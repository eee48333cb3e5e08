// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/configuration.h"

#include <gtest/gtest.h>

#include "tests/support/config_sandbox.h"

namespace {

using namespace qmrkctl;

class ConfigurationTest : public ::testing::Test {
 protected:
  static Configuration read(const std::string& _ca = "") { return readConfiguration(ownViewpoint(), _ca); }

  testsupport::ConfigSandbox sandbox_;
};

TEST_F(ConfigurationTest, FollowsTheRedirectionOfTheGenericFile) {
  sandbox_.writeDemoOfCa12("LOG_STATE=true\n");
  sandbox_.writeCfg("GE", "# generic\nREDIRECT_CA_NR=CA12\n");
  const Configuration found = read();
  EXPECT_EQ(found.caAsked, "GE");
  EXPECT_EQ(found.origin, CaOrigin::builtIn);
  EXPECT_EQ(found.caInEffect, "GE");
  EXPECT_EQ(found.caOfFiles, "CA12");
  EXPECT_TRUE(found.isRedirected);
  EXPECT_EQ(found.cfg.path, sandbox_.cfgPath("CA12"));
  EXPECT_EQ(found.cfg.rule, "REDIRECT_CA_NR in line 2 of qmrk_logging_GE.cfg");
  EXPECT_EQ(found.init.path, sandbox_.initPath("CA12"));
  EXPECT_EQ(found.init.text, "Demo.App;\nDemo.Net.error;\n");
  EXPECT_TRUE(found.isOn("LOG_STATE"));
  EXPECT_EQ(found.failure, "");
  ASSERT_TRUE(found.logs);
  EXPECT_EQ(found.logs->commonLog, sandbox_.appData() + "\\Logs\\Common\\common.log");
}

TEST_F(ConfigurationTest, UsesTheNamedCaInUpperCase) {
  sandbox_.writeDemoOfCa12("LOG_STATE=TRUE\n");
  const Configuration found = read("ca12");
  EXPECT_EQ(found.origin, CaOrigin::option);
  EXPECT_EQ(found.caInEffect, "CA12");
  EXPECT_EQ(found.cfg.path, sandbox_.cfgPath("CA12"));
  EXPECT_FALSE(found.isFallenBack);
}

TEST_F(ConfigurationTest, UsesTheCaOfTheEnvironment) {
  sandbox_.writeDemoOfCa12("");
  testsupport::setEnvironment("DEFAULT_CA_NR", "CA12");
  const Configuration found = read();
  EXPECT_EQ(found.origin, CaOrigin::environment);
  EXPECT_EQ(found.caOfFiles, "CA12");
}

TEST_F(ConfigurationTest, KnowsTheFoldersWhereTheEnvironmentNamesNoCa) {
  testsupport::setEnvironment("DEFAULT_CA_NR", std::string(256, 'C'));
  const Configuration found = read();
  EXPECT_EQ(found.caAsked, "");
  EXPECT_NE(found.failure, "");
  EXPECT_EQ(found.userBase, sandbox_.appData());
}

TEST_F(ConfigurationTest, NamesNoCaInLowerCaseToWhichTheGenericFileLeads) {
  for (const std::string ca : {"CA12", "plant", "other"})
    sandbox_.writeCfg(ca, "LOG_STATE=TRUE\n");
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=plant\n");
  EXPECT_EQ(casToName(ownViewpoint()), (std::vector<std::string>{"CA12", "GE", "other"}));
}

TEST_F(ConfigurationTest, FallsBackToTheGenericFile) {
  sandbox_.writeDemoOfCa12("LOG_STATE=TRUE\n");
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  const Configuration found = read("CA99");
  EXPECT_TRUE(found.isFallenBack);
  EXPECT_EQ(found.asked.path, sandbox_.cfgPath("CA99"));
  EXPECT_EQ(found.caInEffect, "GE");
  EXPECT_EQ(found.caOfFiles, "CA12");
}

TEST_F(ConfigurationTest, SaysWhatTheLibraryWouldGenerate) {
  sandbox_.writeDemoOfCa12("LOG_STATE=TRUE\n");
  const Configuration found = read();
  EXPECT_TRUE(found.wouldBeGenerated);
  EXPECT_EQ(found.caOfFiles, "CA12");
  EXPECT_EQ(found.cfg.path, sandbox_.cfgPath("CA12"));
  EXPECT_EQ(found.failure, "");
  EXPECT_FALSE(testsupport::exists(sandbox_.cfgPath("GE")));
}

TEST_F(ConfigurationTest, SaysThatTheLibraryCanGenerateNothing) {
  EXPECT_NE(read().failure.find("none can be generated"), std::string::npos);
}

TEST_F(ConfigurationTest, ReadsTheClassListOfAGenericCaWithoutRedirectionFromItsCfgFile) {
  sandbox_.writeCfg("GE", "LOG_STATE=TRUE\n");
  const Configuration found = read();
  EXPECT_EQ(found.cfg.path, sandbox_.cfgPath("GE"));
  EXPECT_EQ(found.init.path, sandbox_.cfgPath("GE"));
}

TEST_F(ConfigurationTest, KnowsThePlaceOfEachSettingAndWhichOfTwoCounts) {
  sandbox_.writeCfg("CA1", "A=1\n\n  B:two  \nA=3\n");
  const Configuration found = read("CA1");
  ASSERT_EQ(found.cfg.settings.size(), 3U);
  EXPECT_TRUE(found.cfg.settings[0].isReplaced);
  EXPECT_EQ(found.cfg.settings[1].key, "  B");
  EXPECT_EQ(found.cfg.settings[1].value, "two");
  EXPECT_EQ(found.cfg.settings[1].keyPlace.line, 3);
  EXPECT_EQ(found.cfg.settings[1].valuePlace.column, 5);
  EXPECT_EQ(*found.value("A"), "3");
  EXPECT_EQ(found.cfg.setting("A")->keyPlace.line, 4);
}

TEST_F(ConfigurationTest, ListsTheInstalledCas) {
  sandbox_.writeCfg("GE", "A=1\n");
  sandbox_.writeCfg("CA1", "A=1\n");
  testsupport::writeFile(sandbox_.cfgFolder() + "\\other.cfg", "");
  EXPECT_EQ(installedCas(ownViewpoint()), (std::vector<std::string>{"CA1", "GE"}));
}

}  // namespace
