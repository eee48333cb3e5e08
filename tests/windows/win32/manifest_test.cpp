// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "tests/support/child_process.h"
#include "tests/support/config_sandbox.h"

namespace {

constexpr WORD ofProcess = 1;
constexpr WORD manifestType = 24;

// The manifest of a program as the system finds it, "" where there is none.
std::string manifestOf(const std::string& _program) {
  const HMODULE module = ::LoadLibraryExA(testsupport::replaced(_program, "/", "\\").c_str(), nullptr,
                                          LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
  const HRSRC resource = ::FindResourceA(module, MAKEINTRESOURCEA(ofProcess), MAKEINTRESOURCEA(manifestType));
  std::string text;
  if (resource != nullptr) {
    text.assign(static_cast<const char*>(::LockResource(::LoadResource(module, resource))),
                ::SizeofResource(module, resource));
  }
  ::FreeLibrary(module);
  return text;
}

TEST(Manifest, NamesTheVersionsOfWindowsThatTheProgramsKnow) {
  for (const char* program : {QMRK_LOGTEST, QMRK_QMRKCTL}) {
    const std::string text = manifestOf(program);
    for (const char* version : {"{35138b9a-5d96-4fbd-8e2d-a2440225f93a}", "{4a2f28e3-53b9-4441-ba9c-d69d4a4a6e38}",
                                "{1f676c76-80e1-4239-95bb-83d0f6d0da78}", "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"}) {
      EXPECT_NE(text.find(version), std::string::npos) << program << ": " << text;
    }
  }
}

TEST(Manifest, AsksForNoMoreRightsThanThoseOfTheCaller) {
  for (const char* program : {QMRK_LOGTEST, QMRK_QMRKCTL}) {
    EXPECT_NE(manifestOf(program).find("level=\"asInvoker\""), std::string::npos) << program;
  }
}

TEST(Manifest, LetsOnlyTheAdministrationOpenLongPaths) {
  EXPECT_NE(manifestOf(QMRK_QMRKCTL).find(">true</longPathAware>"), std::string::npos);
  EXPECT_NE(manifestOf(QMRK_LOGTEST).find(">false</longPathAware>"), std::string::npos);
}

// Lets Wine be Windows 10 for LogTest, whatever it is for other programs; elsewhere the key means nothing.
class LaterWindowsForLogTest {
 public:
  LaterWindowsForLogTest() { ::RegSetKeyValueA(HKEY_CURRENT_USER, key, "Version", REG_SZ, "win10", sizeof "win10"); }
  ~LaterWindowsForLogTest() { ::RegDeleteKeyA(HKEY_CURRENT_USER, key); }
  LaterWindowsForLogTest(const LaterWindowsForLogTest&) = delete;
  LaterWindowsForLogTest& operator=(const LaterWindowsForLogTest&) = delete;

 private:
  static constexpr char key[] = R"(Software\Wine\AppDefaults\LogTest.exe)";
};

TEST(Manifest, LetsTheCommonLogNameTheBuildOfWindows10) {
  constexpr int buildOfWindows8 = 9200;
  const LaterWindowsForLogTest later;
  const testsupport::ConfigSandbox sandbox;
  sandbox.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  sandbox.writeCfg("CA12", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=Demo;\n");
  sandbox.writeInit("CA12", "Demo;");
  ASSERT_EQ(testsupport::runProgram(QMRK_LOGTEST, {"--classes", "Demo;"}).exitCode, 0);
  const std::string log = testsupport::readFile(sandbox.logFolder() + "\\common.log");
  const std::string before = "(Build ";
  const std::size_t build = log.find(before);
  ASSERT_NE(build, std::string::npos) << log;
  // Without a manifest, later versions show themselves as Windows 8.
  EXPECT_GT(std::stoi(log.substr(build + before.size())), buildOfWindows8) << log;
}

}  // namespace
