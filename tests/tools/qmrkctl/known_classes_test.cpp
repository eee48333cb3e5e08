// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/check/known_classes.h"

#include <gtest/gtest.h>

#include "tools/qmrkctl/check/similar_name.h"

namespace qmrkctl {
namespace {

TEST(KnownClasses, AreSelectedAsTheLibraryDoes) {
  const KnownClasses known({"Demo.App.info"}, {"Demo.Net.error"});
  for (const char* const pattern : {"Demo", "Demo.App", "Demo.App.info", "Demo.Net.error", "*.error", "De*"})
    EXPECT_TRUE(known.isSelectedBy(pattern)) << pattern;
  for (const char* const pattern : {"demo", "Demo.A", "Demo.App.info.x", "*.debug"})
    EXPECT_FALSE(known.isSelectedBy(pattern)) << pattern;
}

TEST(KnownClasses, AreMeantByNamesWithASlip) {
  const KnownClasses known({}, {"Demo.App.info", "Demo.Network.error"});
  EXPECT_EQ(known.meantBy("Demo.App.inof"), "Demo.App.info");
  EXPECT_EQ(known.meantBy("DEMO.app"), "Demo.App");
  EXPECT_EQ(known.meantBy("Demo.Ap"), "Demo.App");
  EXPECT_EQ(known.meantBy("Demo.Netwrok"), "Demo.Network");
  EXPECT_EQ(known.meantBy("Demo.App.info.*"), "Demo.App.info");
  for (const char* const pattern : {"Demo.Net", "Demo.App2", "Demo.Disk", "Other.App", "Demo.App.info.x", "Demo.A*"})
    EXPECT_EQ(known.meantBy(pattern), "") << pattern;
}

TEST(KnownClasses, AreMeantByNearlyTheUsualKindsOfMessages) {
  const KnownClasses known({}, {});
  EXPECT_EQ(known.meantBy("A.B.inof"), "A.B.info");
  EXPECT_EQ(known.meantBy("A.eror"), "A.error");
  EXPECT_EQ(known.meantBy("A.warnin"), "A.warning");
  for (const char* const pattern : {"A.info", "A.errors", "A.Tracer", "A.into", "A.details", "inof", "A.warn"})
    EXPECT_EQ(known.meantBy(pattern), "") << pattern;
}

TEST(KnownClasses, DifferByDigitsAndByTheirFirstAndLastLetters) {
  EXPECT_TRUE(isSlip("Reciever", "Receiver"));
  EXPECT_TRUE(isSlip("Reader", "READER"));
  EXPECT_TRUE(isSlip("Reeader", "Reader"));
  EXPECT_TRUE(isSlip("Databese", "Database"));
  for (const auto& [one, other] : {std::pair("Worker1", "Worker2"), std::pair("Header", "Reader"),
                                   std::pair("Reader", "Readers"), std::pair("Read", "Reader"), std::pair("Net", "New"),
                                   std::pair("A", "B"), std::pair("Disk", "Dish"), std::pair("Same", "Same")})
    EXPECT_FALSE(isSlip(one, other)) << one << " " << other;
}

}  // namespace
}  // namespace qmrkctl
