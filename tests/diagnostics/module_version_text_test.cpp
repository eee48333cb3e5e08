// SPDX-License-Identifier: MIT
#include "diagnostics/module_version_text.h"

#include <gtest/gtest.h>

#include "tests/support/module_folder.h"
#include "tests/support/stamped_module.h"
#include "tests/support/temporary_folder.h"

namespace {

using Quillmark_logging::ModuleVersion;

std::string versionOf(const platform::FixedVersion& _version) {
  const testsupport::TemporaryFolder folder;
  const testsupport::ModuleFolder search(folder.path());
  testsupport::writeStampedModule(folder.path(), "LogTest.exe", _version);
  ModuleVersion module;
  EXPECT_TRUE(module.load("LogTest.exe"));
  return module.fileVersionString();
}

TEST(ModuleVersion, SaysNotInitializedBeforeItIsLoaded) {
  EXPECT_EQ(ModuleVersion().fileVersionString(), "Not initialized");
}

TEST(ModuleVersion, WritesEveryZero) {
  EXPECT_EQ(versionOf({0x00010000, 0, 0, 0}), "1.0.0.0");
  EXPECT_EQ(versionOf({0, 0, 0, 0}), "0.0.0.0");
}

TEST(ModuleVersion, WritesPartsAboveNineInFullDecimal) {
  EXPECT_EQ(versionOf({10U << 16 | 20, 300U << 16 | 4000, 0, 0}), "10.20.300.4000");
  EXPECT_EQ(versionOf({0xFFFFFFFF, 0xFFFFFFFF, 0, 0}), "65535.65535.65535.65535");
}

TEST(ModuleVersion, NeverShowsTheProductVersion) {
  EXPECT_EQ(versionOf({0x00020001, 0x00000007, 0x00090009, 0x00090009}), "2.1.0.7");
}

TEST(ModuleVersion, DoesNotLoadAMissingModule) {
  ModuleVersion module;
  EXPECT_FALSE(module.load("no such module.exe"));
  EXPECT_EQ(module.fileVersionString(), "Not initialized");
}

TEST(ModuleVersion, DoesNotLoadAModuleWithoutAVersion) {
  const testsupport::TemporaryFolder folder;
  const testsupport::ModuleFolder search(folder.path());
  testsupport::writeUnstampedModule(folder.path(), "LogTest.exe");
  ModuleVersion module;
  EXPECT_FALSE(module.load("LogTest.exe"));
  EXPECT_EQ(module.fileVersionString(), "Not initialized");
}

}  // namespace
