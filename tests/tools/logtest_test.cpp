// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/native_path.h"
#include "tests/support/golden.h"
#include "tests/support/text_pattern.h"
#include "tests/tools/logtest_run.h"
#include "tests/trace/named_lines.h"

namespace {

using platform::nativePath;
using testing::HasSubstr;
using testing::StartsWith;
using testsupport::ChildResult;
using testsupport::linesOf;
using testsupport::nativeLineEnds;
using testsupport::readFile;
using testsupport::replaced;
using testsupport::TextPattern;

class LogTest : public testsupport::LogTestRun {
 protected:
  // The lines of a text that begin with "[", with their stamps masked.
  static std::string logLinesOf(const std::string& _text) {
    std::string lines;
    for (std::size_t begin = 0; begin < _text.size();) {
      const std::size_t end = std::min(_text.find('\n', begin), _text.size());
      if (_text[begin] == '[') lines += masked(_text.substr(begin, end - begin)) + "\n";
      begin = end + 1;
    }
    return lines;
  }

  // The line with its stamp masked. A regular expression takes minutes for all lines under the thread sanitizer.
  static std::string masked(const std::string& _line) {
    const std::size_t begin = _line.find("] ") + 2;
    const std::size_t end = std::min(_line.find(' ', _line.find(' ', begin) + 1), _line.size());
    std::string form = _line.substr(begin, end - begin);
    std::replace_if(
        form.begin(), form.end(), [](char _c) { return _c >= '0' && _c <= '9'; }, '9');
    const char* mask = form == "99999999 99:99:99"       ? "<STAMP>"
                       : form == "99999999 99:99:99.999" ? "<STAMP WITH MILLISECONDS>"
                                                         : nullptr;
    return mask == nullptr ? _line : _line.substr(0, begin) + mask + _line.substr(end);
  }

  std::string commonLogLines() const { return logLinesOf(replaced(readFile(commonLog()), nativeLineEnds("\n"), "\n")); }

  // Fails with this reason, and logs nothing.
  void expectFailure(const std::vector<std::string>& _arguments, const std::string& _reason) const {
    const ChildResult result = run(_arguments);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(replaced(result.errors, "\r\n", "\n"), StartsWith("LogTest: the set-up failed: " + _reason + "\n"));
    EXPECT_EQ(result.output, "");
    EXPECT_FALSE(testsupport::exists(commonLog()));
  }
};

// ---- Success ----

TEST_F(LogTest, LogsLinesOfSeveralClassesAndListsThoseThatAreOn) {
  const ChildResult result = run({"--ca", "CA12"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.output, "Common log: " + nativePath(commonLog()) +
                               "\n"
                               "  Demo.App.error  on, lines logged: 3\n"
                               "  Demo.App.info   on, lines logged: 3\n"
                               "  Demo.Net.error  on, lines logged: 3\n"
                               "  Demo.Net.info   off\n");
  EXPECT_TRUE(testsupport::matchesGolden(commonLogLines(), "logtest_common_log.txt"));
}

TEST_F(LogTest, StampsWithMillisecondsIfConfigured) {
  sandbox_.writeDemoOfCa12("LOG_STATE=TRUE\nMILLISECOND_RESOLUTION=TRUE\n");
  EXPECT_EQ(run({"--ca", "CA12", "--lines", "1", "--classes", "Demo.App"}).exitCode, 0);
  EXPECT_EQ(commonLogLines(), "[Demo.App] <STAMP WITH MILLISECONDS> line 1 of 1\n");
}

TEST_F(LogTest, LogsToStandardOutputOnRequest) {
  const ChildResult result = run({"--ca", "CA12", "--cout", "--lines", "2", "--classes", "Demo.App;Demo.Net.error;"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(logLinesOf(result.output),
            "[Demo.App] <STAMP> line 1 of 2\n"
            "[Demo.Net.error] <STAMP> line 1 of 2\n"
            "[Demo.App] <STAMP> line 2 of 2\n"
            "[Demo.Net.error] <STAMP> line 2 of 2\n");
  EXPECT_EQ(commonLogLines(), logLinesOf(result.output));
}

TEST_F(LogTest, TakesClassesAsTheyAreAndIgnoresEmptyOnes) {
  const ChildResult result = run({"--ca", "CA12", "--lines", "1", "--classes", ";Demo.Disk;;Demo.App.x"});
  EXPECT_THAT(result.output, HasSubstr("\n"
                                       "  Demo.Disk   off\n"
                                       "  Demo.App.x  on, lines logged: 1\n"));
}

TEST_F(LogTest, LogsNothingWhenAskedForNoLines) {
  const ChildResult result = run({"--ca", "CA12", "--lines", "0"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(commonLogLines(), "");
}

TEST_F(LogTest, UsesTheCaOfTheEnvironment) {
  testsupport::setEnvironment("DEFAULT_CA_NR", "CA12");
  EXPECT_EQ(run({"--lines", "1", "--classes", "Demo.App"}).exitCode, 0);
  EXPECT_EQ(commonLogLines(), "[Demo.App] <STAMP> line 1 of 1\n");
}

TEST_F(LogTest, UsesTheGenericCaByDefault) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  EXPECT_EQ(run({"--lines", "1", "--classes", "Demo.App"}).exitCode, 0);
  EXPECT_EQ(commonLogLines(), "[Demo.App] <STAMP> line 1 of 1\n");
}

TEST_F(LogTest, SaysThatItUsesTheGenericCaInsteadOfAMissingOne) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  const ChildResult result = run({"--ca", "CA7"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.output, StartsWith("No configuration of CA7: the generic one is used.\n"
                                        "Common log: " +
                                        nativePath(commonLog()) + "\n"));
}

TEST_F(LogTest, SaysThatItCannotWriteTheCommonLog) {
  testsupport::makeFolders(commonLog());
  const ChildResult result = run({"--ca", "CA12"});
  EXPECT_THAT(result.output,
              StartsWith("Common log: " + nativePath(commonLog()) + " (lines are lost: it cannot be written)\n"));
}

TEST_F(LogTest, LosesNothingAtItsEndInThreadSafeMode) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  sandbox_.writeDemoOfCa12("LOG_STATE=TRUE\nTS_APPENDERS=TRUE\n");
  const ChildResult result = run({"--cout", "--lines", "5000", "--classes", "Demo.App.a;Demo.App.b;Demo.Net.error;"});
  EXPECT_EQ(result.exitCode, 0);
  const std::string inFile = commonLogLines();
  const std::string onConsole = logLinesOf(result.output);
  for (const char* log : {"Demo.App.a", "Demo.App.b", "Demo.Net.error"}) {
    std::string expected;
    for (int i = 1; i <= 5000; ++i) {
      expected += std::string("[") + log + "] <STAMP> line " + std::to_string(i) + " of 5000\n";
    }
    EXPECT_EQ(linesOf(std::string("[") + log + "]", inFile), expected);
    EXPECT_EQ(linesOf(std::string("[") + log + "]", onConsole), expected);
  }
}

// ---- Failure ----

TEST_F(LogTest, SaysThatTheConfigurationIsMissing) {
  testsupport::removeAll(sandbox_.cfgPath("CA12"));
  expectFailure({"--ca", "CA7"}, "the configuration is missing: there is no " + nativePath(sandbox_.cfgPath("GE")) +
                                     ", and none could be generated in that folder");
}

TEST_F(LogTest, SaysThatLoggingIsSwitchedOff) {
  sandbox_.writeDemoOfCa12("LOG_STATE=yes\n");
  expectFailure({"--ca", "CA12"},
                "logging is switched off: LOG_STATE is \"yes\", not TRUE, in " + nativePath(sandbox_.cfgPath("CA12")));
}

TEST_F(LogTest, SaysThatTheCommonLogHasNoName) {
  sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\n");
  expectFailure({"--ca", "CA12"}, "the common log has no name: COMMON_LOG_FILE_NAME is missing in " +
                                      nativePath(sandbox_.cfgPath("CA12")));
}

TEST_F(LogTest, SaysThatItCannotCreateTheLogFolder) {
  testsupport::writeFile(sandbox_.appData() + "\\Logs", "a file in the way");
  expectFailure({"--ca", "CA12"},
                "the folder of the common log cannot be created: " + nativePath(sandbox_.appData() + "\\Logs\\Common"));
}

TEST_F(LogTest, SaysThatTheCaIsEmpty) { expectFailure({"--ca", ""}, "the customer adaptation is empty"); }

TEST_F(LogTest, NamesTheFileOfTheErrorRecords) {
  sandbox_.writeCfg("GE", "LOG_STATE=FALSE\n");
  const ChildResult result = run({"--ca", "CA7"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.errors, HasSubstr("LogTest: problems are recorded in " +
                                       nativePath(sandbox_.logFolder() + "\\qmrk.info") + "\n"));
}

// ---- Usage ----

TEST_F(LogTest, ExitsWith2OnWrongUsage) {
  const std::vector<std::string> wrong[] = {{"--unknown"}, {"surplus"},       {"--ca"},         {"--classes"},
                                            {"--lines"},   {"--lines", "-1"}, {"--lines", "x"}, {"--lines", "1x"},
                                            {"--cout=x"},  {"--ca", "1", "2"}};
  for (const auto& arguments : wrong) {
    const ChildResult result = run(arguments);
    EXPECT_EQ(result.exitCode, 2) << arguments.front();
    EXPECT_THAT(result.errors, StartsWith("LogTest: ")) << arguments.front();
    EXPECT_EQ(result.output, "");
  }
  EXPECT_TRUE(sandbox_.newInAppData().empty());
}

TEST_F(LogTest, ExplainsItsUsage) {
  const ChildResult result = run({"--help"});
  EXPECT_EQ(result.exitCode, 0);
  for (const char* part : {"Usage: LogTest", "--ca CA", "--cout", "--classes", "--lines", "Exit code:"}) {
    EXPECT_THAT(result.output, HasSubstr(part));
  }
}

}  // namespace
