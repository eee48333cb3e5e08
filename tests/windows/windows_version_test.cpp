// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "platform/system_version.h"

namespace {

using platform::RegistryResult;

constexpr char productOptions[] = R"(SYSTEM\CurrentControlSet\Control\ProductOptions)";

TEST(WindowsVersion, AgreesInBothFormsOfTheQuery) {
  platform::VersionBlock basic;
  platform::VersionBlock extended;
  ASSERT_TRUE(platform::queryVersion(platform::VersionQuery::basic, basic));
  ASSERT_TRUE(platform::queryVersion(platform::VersionQuery::extended, extended));
  EXPECT_GE(basic.major, 5U);
  EXPECT_EQ(basic.platformId, 2U);
  EXPECT_EQ(extended.major, basic.major);
  EXPECT_EQ(extended.minor, basic.minor);
  EXPECT_EQ(extended.build, basic.build);
  EXPECT_EQ(extended.platformId, basic.platformId);
  EXPECT_EQ(extended.servicePack, basic.servicePack);
  EXPECT_EQ(basic.productType, 0U);
  EXPECT_NE(extended.productType, 0U);
}

TEST(WindowsVersion, FindsItsProductTypeInTheRegistry) {
  std::string text = "former";
  EXPECT_TRUE(platform::registryKeyExists(productOptions));
  EXPECT_FALSE(platform::registryKeyExists(std::string(productOptions) + "Missing"));
  EXPECT_EQ(platform::readRegistryText(std::string(productOptions) + "Missing", "ProductType", text),
            RegistryResult::noKey);
  EXPECT_EQ(platform::readRegistryText(productOptions, "Missing", text), RegistryResult::noValue);
  EXPECT_EQ(text, "former");
  EXPECT_EQ(platform::readRegistryText(productOptions, "ProductType", text), RegistryResult::done);
  EXPECT_TRUE(text == "WinNT" || text == "LanmanNT" || text == "ServerNT") << text;
}

}  // namespace
