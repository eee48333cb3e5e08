// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <sstream>

#include "quillmark_logging.h"
#include "tests/logsetup/log_setup.h"
#include "tests/support/text_pattern.h"

namespace {

using namespace Quillmark_logging;
using testsupport::nativeLineEnds;

constexpr int before = 99;
constexpr int after = 101;

/// What the library connects stands at the index 100: after an application's callable of the index 99, even if that is
/// added later, and before one of the index 101, even if that was there earlier.
class CallableOrder : public testsupport::LogSetup {
 protected:
  CallableOrder() { configure(""); }
  ~CallableOrder() override {
    for (const char* name : {"T", APPENDER_COUT_APPL_SPEC, APPENDER_COUT_ROLLING_APPL_SPEC})
      deleteAppender("*", name);
    deleteModifier("*", "T");
  }

  void configure(const std::string& _keys) const {
    sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=App;\n" + _keys);
    sandbox_.writeInit("CA12", "App;");
  }

  static boost::logging::modifier wrapping(const std::string& _mark) {
    return [_mark](const std::string&, std::string& _message) { _message.insert(0, _mark).append(_mark); };
  }

  /// Connects, logs "text", and expects what is written to be nothing for an earlier appender and all for a later one.
  static void expectToWriteBetween(const std::function<bool()>& _connect,
                                   const std::function<std::string()>& _written) {
    std::string early = "not called";
    std::string late = "not called";
    const auto keeping = [&_written](std::string& _text) {
      return [&_text, &_written](const std::string&, const std::string&) { _text = _written(); };
    };
    addAppender("App", keeping(late), "T", after);
    EXPECT_TRUE(_connect());
    addAppender("App", keeping(early), "T", before);
    log("App", "text");
    EXPECT_EQ(early.find("text"), std::string::npos) << early;
    EXPECT_NE(late.find("text"), std::string::npos) << late;
    deleteAppender("App", "T");
  }

  static std::string contentOf(const std::string& _file) {
    return testsupport::exists(_file) ? testsupport::readFile(_file) : "";
  }
};

TEST_F(CallableOrder, PutsTheModifiersOfTheDefaultLogsAtIndex100) {
  addModifier("App", wrapping("<101>"), "T", after);
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  addModifier("App", wrapping("<99>"), "T", before);
  log("App", "text");
  const std::string stamp = "[0-9]{8} [0-9:]{8} ";
  const std::string line = "[^]*<101>\\[App\\] " + stamp + "<99>text<99>" + nativeLineEnds("\n") + "<101>";
  const std::string written = contentOf(sandbox_.logFolder() + "\\common.log");
  EXPECT_TRUE(testsupport::TextPattern(line).matches(written)) << written;
}

TEST_F(CallableOrder, PutsTheConsoleAtIndex100) {
  std::ostringstream output;
  std::streambuf* const former = std::cout.rdbuf(output.rdbuf());
  expectToWriteBetween([] { return initDefaultLogs("App", "CA12", true); }, [&output] { return output.str(); });
  std::cout.rdbuf(former);
}

TEST_F(CallableOrder, PutsTheCommonLogAtIndex100) {
  const std::string file = sandbox_.appData() + "\\common.log";
  expectToWriteBetween([&file] { return setInitialLogLevels(file, "CA12"); }, [&file] { return contentOf(file); });
}

TEST_F(CallableOrder, PutsTheLogOfAnApplicationAtIndex100) {
  for (const char* keys : {"", "SPEC_LOG_ROTATION=TRUE\n"}) {
    configure(keys);
    const std::string name = *keys == '\0' ? "Plain" : "Rolling";
    const std::string file = sandbox_.logFolder() + "\\Application logs\\" + name + "_log.txt";
    expectToWriteBetween([&name] { return createApplicationSpecificLogFile("App", name, "CA12", false); },
                         [&file] { return contentOf(file); });
  }
}

}  // namespace
