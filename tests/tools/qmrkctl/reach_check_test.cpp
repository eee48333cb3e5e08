// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/check/reach_check.h"

#include <gmock/gmock.h>

namespace qmrkctl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* filterFile = "/c/CA1.cfg";

class ReachCheckTest : public ::testing::Test {
 protected:
  // "code severity file:line:column fix" of each finding.
  static std::vector<std::string> found(const std::string& _filter, const std::string& _list,
                                        const std::vector<std::string>& _logged = {}) {
    const KnownClasses known({}, _logged);
    ReachCheck reach(filterClasses(_filter), {filterFile, 3, 24}, known);
    Findings findings;
    for (const ClassEntry& entry : enabledClasses(_list))
      reach.check(entry, {"/c/CA1.init", 1, static_cast<int>(entry.begin) + 1}, findings);
    reach.end(findings);
    std::vector<std::string> texts;
    for (const Finding& finding : findings) {
      texts.push_back(finding.code + " " + std::string(severityName(finding.severity)) + " " + finding.file + ":" +
                      std::to_string(finding.line) + ":" + std::to_string(finding.column) + " " + finding.fix);
    }
    return texts;
  }
};

TEST_F(ReachCheckTest, FindsNothingWhereEachEntryMeetsTheFilter) {
  EXPECT_THAT(found("Demo.App;*.Net;", "Demo.App.info;Demo;Other.Net;*;"), IsEmpty());
}

TEST_F(ReachCheckTest, OffersBothDirectionsWhereNobodyKnowsWhichOfTheTwoIsMisspelt) {
  EXPECT_THAT(
      found("Demo.Apl;Demo.Net;", "Demo.App;Demo.Net;"),
      ElementsAre("Q405 warning /c/CA1.init:1:1 write Demo.Apl; or, if the class list is right, Demo.App; in the "
                  "filter, /c/CA1.cfg:3"));
}

TEST_F(ReachCheckTest, BlamesTheFilterForClassesThatAreLogged) {
  EXPECT_THAT(found("Demo.Net;Demo.Apl;", "Demo.App;Demo.Net;", {"Demo.App.info"}),
              ElementsAre("Q405 warning /c/CA1.cfg:3:33 write Demo.App; in the filter"));
}

TEST_F(ReachCheckTest, BlamesTheListWhereTheFilterHasClassesThatAreLogged) {
  EXPECT_THAT(found("Demo.App;Demo.Net;", "Demo.Apl;Demo.Net;", {"Demo.App.info"}),
              ElementsAre("Q405 warning /c/CA1.init:1:1 write Demo.App;"));
}

TEST_F(ReachCheckTest, TakesItForAnErrorWhereNothingPassesTheFilterAndSomeOfItNearlyDoes) {
  EXPECT_THAT(
      found("demo.app;demo.net;", "Demo.App.info;Demo.Net;", {"Demo.App.info"}),
      ElementsAre("Q405 error /c/CA1.cfg:3:24 write Demo.App.info; in the filter",
                  "Q405 error /c/CA1.init:1:15 write demo.net; or, if the class list is right, Demo.Net; in the "
                  "filter, /c/CA1.cfg:3"));
  EXPECT_THAT(found("Other;", "Demo.App;"),
              ElementsAre("Q405 warning /c/CA1.init:1:1 add the class to COMMON_LOG_FILE_FILTER, or remove it from the "
                          "class list"));
}

TEST_F(ReachCheckTest, FindsEntriesWithSomethingElseThanASemicolonBetweenThem) {
  for (const char* const list : {"Demo.App Demo.Net;*;", "Demo.App:Demo.Net;*;", "Demo.App / Demo.Net;*;"}) {
    EXPECT_THAT(found("Demo.App;Demo.Net;", list),
                ElementsAre("Q410 error /c/CA1.init:1:1 separate the entries by \";\""))
        << list;
  }
}

TEST_F(ReachCheckTest, FindsOtherWaysToWriteAClass) {
  EXPECT_THAT(found("Demo.App;", "Demo::App;*;", {"Demo.App"}),
              ElementsAre("Q405 warning /c/CA1.init:1:1 write Demo.App;"));
  EXPECT_THAT(found("Demo.App;", "demo.*;*;", {"Demo.App"}),
              ElementsAre("Q405 warning /c/CA1.init:1:1 write Demo.App;"));
  EXPECT_THAT(found("Demo.App;", "ALL;Demo.App;"),
              ElementsAre("Q405 warning /c/CA1.init:1:1 write *; which selects every class"));
}

}  // namespace
}  // namespace qmrkctl
