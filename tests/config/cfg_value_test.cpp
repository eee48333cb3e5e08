// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "config/cfg_data_manager.h"
#include "config/cfg_lookup.h"
#include "quillmark_logging_names.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"
#include "tests/support/golden.h"
#include "tests/trace/traced_console.h"

namespace {

using testsupport::matchesGolden;
using testsupport::TracedConsole;

class CfgValue : public testing::Test {
 protected:
  // The value of a key in a file of this content, or "(none)".
  std::string valueIn(const std::string& _content, const std::string& _key) {
    sandbox_.writeCfg("CA12", _content);
    std::string value = "(none)";
    const bool found = store_->getCfgValue(sandbox_.cfgPath("CA12"), _key, value);
    EXPECT_EQ(found, value != "(none)");
    return value;
  }

  bool flagOf(const std::string& _line) {
    sandbox_.writeCfg("CA12", _line + "\n");
    return store_->getCfgFlag("FLAG", "CA12");
  }

  testsupport::ConfigSandbox sandbox_;
  CfgDataManager* store_ = CfgDataManager::getInstance(false);
};

TEST_F(CfgValue, LosesTrailingBlanksAndTabs) {
  EXPECT_EQ(valueIn("KEY=value   \n", "KEY"), "value");
  EXPECT_EQ(valueIn("KEY=value\t\n", "KEY"), "value");
  EXPECT_EQ(valueIn("KEY=a\tb\n", "KEY"), "a        b");
}

TEST_F(CfgValue, KeepsBlanksAroundTheSeparatorInKeyAndValue) {
  EXPECT_EQ(valueIn("KEY = value\n", "KEY "), " value");
  EXPECT_EQ(valueIn("KEY = value\n", "KEY"), "(none)");
}

TEST_F(CfgValue, LosesAComment) {
  EXPECT_EQ(valueIn("KEY=value # note\n", "KEY"), "value");
  EXPECT_EQ(valueIn("KEY=value // note\n", "KEY"), "value");
}

TEST_F(CfgValue, ComesOutEmptyWhenItConsistsOfBlanks) { EXPECT_EQ(valueIn("KEY=   \n", "KEY"), ""); }

TEST_F(CfgValue, ComesFromNoFileThatFailsInItsMiddle) {
  sandbox_.writeCfg("CA12", "KEY=first\n" + std::string(200'000, '\n') + "KEY=last\n");
  const testsupport::FaultPlan failure(platform::Call::read, 2, platform::errorAccessDenied);
  std::string value = "untouched";
  const TracedConsole console;
  EXPECT_FALSE(CfgDataManager::getInstance(true)->getCfgValue(sandbox_.cfgPath("CA12"), "KEY", value));
  EXPECT_EQ(value, "untouched");
  EXPECT_NE(console.text().find("<!= CfgDataManager::getCfgValue() ERROR: Failed to open file \"" +
                                sandbox_.cfgPath("CA12") + "\"\r\n"),
            std::string::npos);
}

TEST_F(CfgValue, ComesFromTheLastOfRepeatedKeys) { EXPECT_EQ(valueIn("KEY=1\nKEY=2\n", "KEY"), "2"); }

TEST_F(CfgValue, SwallowsTheNextLineWhenItIsEmpty) {
  EXPECT_EQ(valueIn("A=\nB=2\n", "A"), "\nB=2");
  EXPECT_EQ(valueIn("A=\nB=2\n", "B"), "(none)");
}

TEST_F(CfgValue, RespectsTheLetterCaseOfKeys) {
  EXPECT_EQ(valueIn("CA_NR=GE\n", "ca_nr"), "(none)");
  EXPECT_EQ(valueIn("CA_NR=GE\n", "CA_NR"), "GE");
}

TEST_F(CfgValue, FailsInAFileWithoutPairs) {
  EXPECT_EQ(valueIn("", "KEY"), "(none)");
  EXPECT_EQ(valueIn("# KEY=1\n// KEY=2\n", "KEY"), "(none)");
  EXPECT_EQ(valueIn("KEY=1", "KEY"), "(none)");
}

TEST_F(CfgValue, ReadsCrLfAsLf) {
  EXPECT_EQ(valueIn("A=1\r\nB=x \r\n# note\r\n// note\r\nC=3\r\n", "A"), "1");
  EXPECT_EQ(valueIn("A=1\r\nB=x \r\n", "B"), "x");
  EXPECT_EQ(valueIn("A=1\r\n# note\r\n// note\r\nC=3\r\n", "C"), "3");
  EXPECT_EQ(valueIn("A=\r\nB=2\r\n", "A"), "\nB=2");
}

TEST_F(CfgValue, ReadsALongFileWhole) {
  EXPECT_EQ(valueIn("# " + std::string(200000, 'x') + "\nKEY=" + std::string(100000, 'y') + "\n", "KEY"),
            std::string(100000, 'y'));
}

TEST_F(CfgValue, StaysUntouchedWhenTheFileIsMissing) {
  std::string value = "preset";
  EXPECT_FALSE(store_->getCfgValue(sandbox_.cfgPath("CA77"), "KEY", value));
  EXPECT_EQ(value, "preset");
}

TEST_F(CfgValue, StaysUntouchedWhenTheFileIsUnreadable) {
  sandbox_.writeCfg("CA12", "KEY=1\n");
  testsupport::denyAccess(sandbox_.cfgPath("CA12"));
  std::string value = "preset";
  const testsupport::AsUnprivilegedUser user;
  EXPECT_FALSE(store_->getCfgValue(sandbox_.cfgPath("CA12"), "KEY", value));
  EXPECT_EQ(value, "preset");
}

TEST_F(CfgValue, FollowsAnEditOfTheFile) {
  EXPECT_EQ(valueIn("KEY=1\n", "KEY"), "1");
  EXPECT_EQ(valueIn("KEY=2\n", "KEY"), "2");
}

TEST_F(CfgValue, AddsToTheMapOfTheCaller) {
  CfgDataManager::CfgMap map = {{"A", "old"}, {"B", "kept"}};
  std::string text = "A=new\n";
  EXPECT_TRUE(store_->cfgDataStrToMap(map, text));
  EXPECT_EQ(map, (CfgDataManager::CfgMap{{"A", "new"}, {"B", "kept"}}));
  std::string empty;
  EXPECT_TRUE(store_->cfgDataStrToMap(map, empty));
}

TEST_F(CfgValue, ExpandsTabsInTheTextOfTheCaller) {
  CfgDataManager::CfgMap map;
  std::string text = "A=\t1\n";
  store_->cfgDataStrToMap(map, text);
  EXPECT_EQ(text, "A=        1\n");
}

TEST_F(CfgValue, RemoveTrailingSpacesCutsBlanksOnly) {
  std::string text = " a b\t  ";
  EXPECT_TRUE(store_->removeTrailingSpaces(text));
  EXPECT_EQ(text, " a b\t");
  EXPECT_FALSE(store_->removeTrailingSpaces(text));
  std::string blanks = "   ";
  EXPECT_TRUE(store_->removeTrailingSpaces(blanks));
  EXPECT_EQ(blanks, "");
  EXPECT_FALSE(store_->removeTrailingSpaces(blanks));
}

TEST_F(CfgValue, SwitchesAFlagOnByTrueInAnyLetterCase) {
  EXPECT_TRUE(flagOf("FLAG=TRUE"));
  EXPECT_TRUE(flagOf("FLAG=true"));
  EXPECT_TRUE(flagOf("FLAG=True  "));
}

TEST_F(CfgValue, SwitchesAFlagOffByAnythingElse) {
  EXPECT_FALSE(flagOf("FLAG=1"));
  EXPECT_FALSE(flagOf("FLAG=yes"));
  EXPECT_FALSE(flagOf("FLAG= TRUE"));
  EXPECT_FALSE(flagOf("FLAG=TRUEX"));
  EXPECT_FALSE(flagOf("flag=TRUE"));
  EXPECT_FALSE(flagOf("FLAG="));
  EXPECT_FALSE(store_->getCfgFlag("FLAG", "CA77"));
  EXPECT_FALSE(store_->getCfgFlag("FLAG", ""));
}

TEST_F(CfgValue, ConvertsToUpperCaseByteByByte) {
  EXPECT_EQ(store_->toUpperCopy("ca12_\xE4x"), "CA12_\xE4X");
  std::string text = "True";
  store_->toUpper(text);
  EXPECT_EQ(text, "TRUE");
}

// ---- The lookup by CA ----

TEST_F(CfgValue, AcceptsACaInAnyLetterCase) {
  sandbox_.writeCfg("CA12", "KEY=1\n");
  std::string value = "preset";
  EXPECT_TRUE(Quillmark_logging::getCfgValue("KEY", value, "ca12"));
  EXPECT_EQ(value, "1");
}

TEST_F(CfgValue, StaysUntouchedWhenTheCaHasNoPath) {
  std::string value = "preset";
  EXPECT_FALSE(Quillmark_logging::getCfgValue("KEY", value, ""));
  EXPECT_EQ(value, "preset");
}

// ---- Traces ----

class CfgValueTrace : public CfgValue {
 protected:
  testing::AssertionResult lookupMatches(const std::string& _ca, const std::string& _golden) {
    const TracedConsole console;
    std::string value;
    Quillmark_logging::getCfgValue("KEY", value, _ca);
    return matchesGolden(sandbox_.masked(console.text()), _golden);
  }
};

TEST_F(CfgValueTrace, ShowsAKeyThatIsFound) {
  sandbox_.writeCfg("CA12", "# settings\r\nA=\t1\r\nKEY=value  \r\nKEY=later\r\n");
  EXPECT_TRUE(lookupMatches("ca12", "config_lookup_found.txt"));
}

TEST_F(CfgValueTrace, ShowsAMissingKey) {
  sandbox_.writeCfg("CA12", "A=1\n");
  EXPECT_TRUE(lookupMatches("CA12", "config_lookup_missing_key.txt"));
}

TEST_F(CfgValueTrace, ShowsAnEmptyFile) {
  sandbox_.writeCfg("CA12", "");
  EXPECT_TRUE(lookupMatches("CA12", "config_lookup_empty_file.txt"));
}

TEST_F(CfgValueTrace, ShowsAMissingFile) { EXPECT_TRUE(lookupMatches("CA12", "config_lookup_missing_file.txt")); }

TEST_F(CfgValueTrace, ShowsAnEmptyCa) { EXPECT_TRUE(lookupMatches("", "config_lookup_empty_ca.txt")); }

TEST_F(CfgValueTrace, ShowsTheLookupOfAFlag) {
  sandbox_.writeCfg("CA12", "FLAG=true\n");
  const TracedConsole console;
  EXPECT_TRUE(CfgDataManager::getInstance(true)->getCfgFlag("FLAG", "CA12"));
  EXPECT_TRUE(matchesGolden(sandbox_.masked(console.text()), "config_flag.txt"));
}

TEST_F(CfgValueTrace, FollowsTheFlagOfTheLatestGetInstance) {
  const TracedConsole console;
  CfgDataManager* const store = CfgDataManager::getInstance(true);
  EXPECT_EQ(console.text(),
            "==> CfgDataManager::getInstance()\r\n<== CfgDataManager::getInstance() Instance returned.\r\n");
  EXPECT_EQ(CfgDataManager::getInstance(false), store);
  std::string text = "x ";
  store->removeTrailingSpaces(text);
  EXPECT_EQ(console.text(),
            "==> CfgDataManager::getInstance()\r\n<== CfgDataManager::getInstance() Instance returned.\r\n");
}

TEST_F(CfgValueTrace, FollowsItsOwnSwitchInAFreeFunction) {
  sandbox_.writeCfg("CA12", "KEY=1\n");
  const TracedConsole console;
  Quillmark_logging::setLoadTimeTrace(false);
  std::string value;
  EXPECT_TRUE(Quillmark_logging::getCfgValue("KEY", value, "CA12"));
  EXPECT_EQ(console.text(),
            "==> Quillmark_logging::getCfgValue() _key=KEY, _ca=CA12\r\n"
            "<== Quillmark_logging::getCfgValue() Match found; _key=KEY, _value=1\r\n");
}

}  // namespace
