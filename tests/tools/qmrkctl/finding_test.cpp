// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/finding.h"

#include <gtest/gtest.h>

namespace {

using qmrkctl::Finding;
using qmrkctl::findingJson;
using qmrkctl::findingText;
using qmrkctl::Severity;

const Finding whole = {
    "Q301", Severity::error, "/a/b.cfg", 3, 7, "unknown key \"LOG_STAT\"", "nothing reads it", "write LOG_STATE"};

TEST(Finding, TakesThreeLines) {
  EXPECT_EQ(findingText(whole),
            "error Q301 /a/b.cfg:3:7 unknown key \"LOG_STAT\"\n  effect: nothing reads it\n  fix: write LOG_STATE\n");
}

TEST(Finding, OmitsWhatIsAbsent) {
  EXPECT_EQ(findingText({"Q501", Severity::note, "/a", 0, 0, "t", "", ""}), "note Q501 /a t\n");
  EXPECT_EQ(findingText({"Q501", Severity::warning, "", 4, 5, "t", "", "f"}), "warning Q501 t\n  fix: f\n");
}

TEST(Finding, ShowsHostileNamesEscaped) {
  EXPECT_EQ(findingText({"Q501", Severity::note, "/a\n\x1b[2J", 1, 0, "t\n", "", ""}),
            "note Q501 /a\\n\\x1b[2J:1 t\\n\n");
}

TEST(Finding, OmitsTheKeysOfAbsentPlacesInJson) {
  EXPECT_EQ(findingJson(whole).dump(),
            R"({"code":"Q301","severity":"error","file":"/a/b.cfg","line":3,"column":7,)"
            R"("text":"unknown key \"LOG_STAT\"","effect":"nothing reads it","fix":"write LOG_STATE"})");
  EXPECT_EQ(findingJson({"Q1", Severity::note, "", 4, 5, "t", "e", "f"}).dump(),
            R"({"code":"Q1","severity":"note","text":"t","effect":"e","fix":"f"})");
}

}  // namespace
