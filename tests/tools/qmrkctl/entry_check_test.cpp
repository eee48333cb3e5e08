// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/check/entry_check.h"

#include <gtest/gtest.h>

#include "tests/support/config_sandbox.h"
#include "tests/support/temporary_folder.h"

namespace qmrkctl {
namespace {

TEST(EntryCheck, SaysHowToWriteWhatNoClassListHas) {
  const auto fixIn = [](const std::string& _text) {
    const testsupport::TemporaryFolder folder;
    const std::string path = folder.path() + "/qmrk_logging_CA1.init";
    testsupport::writeFile(path, _text);
    const auto findings = checkFile(ownViewpoint(), readConfigurationFile(ownViewpoint(), path, ""), FileRole::init);
    return findings.empty() ? "" : findings.front().code + " " + findings.front().fix;
  };
  EXPECT_EQ(fixIn("A=on;"), "Q410 write the classes alone: a class list has no keys");
  EXPECT_EQ(fixIn("'A';"), "Q410 delete the quotes");
  EXPECT_EQ(fixIn("A.?nfo;"), "Q410 write \"*\" for any characters; \"?\" stands for itself");
  EXPECT_EQ(fixIn("A.[BC];"), "Q410 write each class as an entry of its own, without brackets");
  EXPECT_EQ(fixIn("A|B;"), "Q410 separate the entries by \";\"");
  EXPECT_EQ(fixIn("A\xE2\x80\x8B;"), "Q410 delete the character, which no editor shows");
  EXPECT_EQ(fixIn("A\x07;"), "Q410 delete the character, which no editor shows");
  EXPECT_EQ(fixIn("-A;"), "Q410 delete it: a class is off unless an entry selects it");
  EXPECT_EQ(fixIn("Gr\xC3\xB6\xC3\x9F"
                  "e.b-c;D_1.*;*;E F;"),
            "");
}

TEST(EntryCheck, SaysWhatToDoWithTheEndOfAFilter) {
  const auto fixIn = [](const std::string& _filter) {
    const testsupport::TemporaryFolder folder;
    const std::string path = folder.path() + "/qmrk_logging_CA1.cfg";
    testsupport::writeFile(path,
                           "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=c.log\nCOMMON_LOG_FILE_FILTER=" + _filter + "\n");
    return checkFile(ownViewpoint(), readConfigurationFile(ownViewpoint(), path, ""), FileRole::cfg).back().fix;
  };
  EXPECT_EQ(fixIn("A;B"), "write \"B;\"");
  EXPECT_EQ(fixIn("\"A;B;\""), "delete the quotes");
  EXPECT_EQ(fixIn("A;\\"), "write all entries in one line: \"\\\" continues none");
}

}  // namespace
}  // namespace qmrkctl
