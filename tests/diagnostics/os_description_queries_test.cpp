// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "diagnostics/os_description.h"
#include "tests/diagnostics/fake_system.h"

// What the description asks the system for besides the extended version block, what it writes to the console, and how
// it fails.

namespace {

using platform::RegistryResult;
using platform::VersionBlock;
using Quillmark_logging::describeSystem;
using testsupport::described;
using testsupport::FakeSystem;
using testsupport::ntVersion;
using testsupport::version;

constexpr char productOptions[] = "SYSTEM\\CurrentControlSet\\Control\\ProductOptions";
constexpr char productType[] = "SYSTEM\\CurrentControlSet\\Control\\ProductOptions:ProductType";
constexpr char hotfix[] = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Hotfix\\Q246009";

// ---- Service pack and build ----

TEST(OsDescriptionQueries, TakesTheLow16BitsOfTheBuild) {
  EXPECT_EQ(described(ntVersion(6, 1, "", 0)), " (Build 0)\r");
  EXPECT_EQ(described(ntVersion(6, 1, "", 0xFFFF)), " (Build 65535)\r");
  EXPECT_EQ(described(ntVersion(6, 1, "", 0x10000)), " (Build 0)\r");
  EXPECT_EQ(described(ntVersion(6, 1, "", 0xF0000A28)), " (Build 2600)\r");
}

TEST(OsDescriptionQueries, CallsServicePack6OfNt4PatchedWhenItFindsTheHotfix) {
  FakeSystem system(ntVersion(4, 0, "sERVICE pACK 6", 1381));
  system.withKey(hotfix);
  EXPECT_EQ(described(system), "Microsoft Windows NT Service Pack 6a (Build 1381)\r");
  EXPECT_EQ(system.console(), "");
}

TEST(OsDescriptionQueries, PrintsServicePack6OfNt4WithoutTheHotfix) {
  FakeSystem system(ntVersion(4, 0, "Service pack 6", 0x10565));
  EXPECT_EQ(described(system), "Microsoft Windows NT Service pack 6 (Build 1381)\r");
  EXPECT_EQ(system.console(), "Service pack 6 (Build 1381)\n");
  EXPECT_EQ(system.asked(), (std::vector<std::string>{"extended", hotfix}));
}

TEST(OsDescriptionQueries, LooksForTheHotfixOfServicePack6OfNt4Only) {
  for (const VersionBlock& block :
       {ntVersion(4, 0, "Service Pack 5", 1381), ntVersion(4, 0, "Service Pack 6 ", 1381), ntVersion(4, 0, "", 1381),
        ntVersion(3, 51, "Service Pack 6", 1381), ntVersion(5, 0, "Service Pack 6", 1381)}) {
    FakeSystem system(block);
    system.withKey(hotfix);
    described(system);
    EXPECT_EQ(system.asked(), std::vector<std::string>{"extended"});
    EXPECT_EQ(system.console(), "");
  }
}

// ---- The basic block and the registry ----

TEST(OsDescriptionQueries, AsksTheRegistryForTheEditionWhenOnlyTheBasicQueryWorks) {
  struct Row {
    const char* type;
    const char* text;
  };
  const Row rows[] = {
      {"WINNT", "Microsoft Windows NT Workstation 40SP (Build 1)\r"},
      {"winnt", "Microsoft Windows NT Workstation 40SP (Build 1)\r"},
      {"LANMANNT", "Microsoft Windows NT Server 40SP (Build 1)\r"},
      {"LanmanNT", "Microsoft Windows NT Server 40SP (Build 1)\r"},
      {"SERVERNT", "Microsoft Windows NT Advanced Server 40SP (Build 1)\r"},
      {"ServerNT", "Microsoft Windows NT Advanced Server 40SP (Build 1)\r"},
      {"WINNT ", "Microsoft Windows NT 40SP (Build 1)\r"},
      {"", "Microsoft Windows NT 40SP (Build 1)\r"},
  };
  for (const Row& row : rows) {
    FakeSystem system(ntVersion(4, 0, "SP", 1));
    system.withoutExtendedQuery().withProductType(RegistryResult::done, row.type);
    EXPECT_EQ(described(system), row.text) << row.type;
    EXPECT_EQ(system.console(), "4.0 ") << row.type;
    EXPECT_EQ(system.asked(), (std::vector<std::string>{"extended", "basic", productType}));
  }
}

TEST(OsDescriptionQueries, PrintsTheDotThatItsTextLeavesOut) {
  FakeSystem system(ntVersion(5, 10, "", 7));
  system.withoutExtendedQuery().withProductType(RegistryResult::done, "WINNT");
  EXPECT_EQ(described(system), "Workstation 510 (Build 7)\r");
  EXPECT_EQ(system.console(), "5.10 ");
}

TEST(OsDescriptionQueries, PrintsTheVersionBeforeTheServicePack) {
  FakeSystem system(ntVersion(4, 0, "Service Pack 6", 1381));
  system.withoutExtendedQuery().withProductType(RegistryResult::done, "SERVERNT");
  EXPECT_EQ(described(system), "Microsoft Windows NT Advanced Server 40Service Pack 6 (Build 1381)\r");
  EXPECT_EQ(system.console(), "4.0 Service Pack 6 (Build 1381)\n");
}

TEST(OsDescriptionQueries, NeedsNoRegistryForFamiliesBeforeNt) {
  FakeSystem win32s(version(0, 3, 1, ""));
  EXPECT_EQ(described(win32s.withoutExtendedQuery()), "Microsoft Win32s\n");
  FakeSystem ninetyEight(version(1, 4, 10, " A"));
  EXPECT_EQ(described(ninetyEight.withoutExtendedQuery()), "Microsoft Windows 98 SE ");
  EXPECT_EQ(ninetyEight.asked(), (std::vector<std::string>{"extended", "basic"}));
}

// ---- Failures ----

TEST(OsDescriptionQueries, FailsWithoutAnyVersionQuery) {
  FakeSystem system(ntVersion(5, 1, "", 1));
  std::string text = "kept";
  EXPECT_FALSE(describeSystem(system.withoutAnyQuery(), text));
  EXPECT_EQ(text, "kept");
  EXPECT_EQ(system.asked(), (std::vector<std::string>{"extended", "basic"}));
}

TEST(OsDescriptionQueries, FailsWhenTheRegistryLacksTheProductType) {
  for (const RegistryResult result : {RegistryResult::noKey, RegistryResult::noValue}) {
    FakeSystem system(ntVersion(4, 0, "", 1381));
    system.withoutExtendedQuery().withKey(productOptions).withProductType(result, "");
    std::string text;
    EXPECT_FALSE(describeSystem(system, text));
    EXPECT_EQ(system.console(), "");
  }
}

TEST(OsDescriptionQueries, AppendsToTheTextOfTheCaller) {
  FakeSystem system(version(0, 3, 11, ""));
  std::string text = "before ";
  EXPECT_TRUE(describeSystem(system, text));
  EXPECT_EQ(text, "before Microsoft Win32s\n");
}

}  // namespace
