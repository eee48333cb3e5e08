// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <locale>
#include <ostream>
#include <thread>

#include "diagnostics/stamp_text.h"
#include "platform/process.h"
#include "quillmark_logging.h"
#include "tests/support/captured_console.h"
#include "trace/trace_flags.h"

namespace {

using Quillmark_logging::idStamp;
using Quillmark_logging::location;
using Quillmark_logging::locationStamp;

// A number that cannot be written: the conversion fails with it as it would with a failing stream.
struct Unwritable {};
std::ostream& operator<<(std::ostream& _out, const Unwritable& /*_number*/) {
  _out.setstate(std::ios::failbit);
  return _out;
}

// What a call prints to the console with the trace on.
template <class Call>
std::string traceOf(Call _call) {
  const testsupport::CapturedConsole console;
  Quillmark_logging::setFreeFunctionTrace(true);
  _call();
  Quillmark_logging::setFreeFunctionTrace(false);
  return console.text();
}

TEST(Stamps, ShowTheProcessIdBareOrInBracketsAndABlank) {
  const std::string digits = std::to_string(platform::processId());
  EXPECT_EQ(Quillmark_logging::getProcessId(false), digits);
  EXPECT_EQ(Quillmark_logging::getProcessId(true), "[" + digits + "] ");
  EXPECT_EQ(Quillmark_logging::getFormattedProcessId(), "[" + digits + "] ");
}

TEST(Stamps, ShowTheIdOfTheCallingThread) {
  const std::string here = Quillmark_logging::getThreadId(false);
  EXPECT_EQ(here, std::to_string(platform::threadId()));
  EXPECT_EQ(Quillmark_logging::getThreadId(true), "[" + here + "] ");
  EXPECT_EQ(Quillmark_logging::getFormattedThreadId(), "[" + here + "] ");
  std::string there;
  std::string thereAsNumber;
  std::thread([&] {
    there = Quillmark_logging::getThreadId(false);
    thereAsNumber = std::to_string(platform::threadId());
  }).join();
  EXPECT_EQ(there, thereAsNumber);
  EXPECT_NE(there, here);
}

TEST(Stamps, WriteIdsInDecimal) {
  EXPECT_EQ(idStamp("getThreadId", 0x10U, false), "16");
  EXPECT_EQ(idStamp("getThreadId", 4294967295U, true), "[4294967295] ");
}

TEST(Stamps, WriteNoSeparatorsOfThousandsInAnyLocale) {
  struct Grouping : std::numpunct<char> {
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Grouping));
  EXPECT_EQ(idStamp("getThreadId", 1234567U, false), "1234567");
  EXPECT_EQ(location("main.cpp", 1234567, "fn"), "[fn main.cpp:1234567] ");
  std::locale::global(before);
}

TEST(Stamps, ShowFunctionBaseNameAndLineOfALocation) {
  EXPECT_EQ(location("C:\\src\\app\\main.cpp", 42, "Foo::bar"), "[Foo::bar main.cpp:42] ");
}

TEST(Stamps, UseAFileWithoutABackslashWhole) {
  EXPECT_EQ(location("main.cpp", 1, "fn"), "[fn main.cpp:1] ");
  EXPECT_EQ(location("src/app/main.cpp", 1, "fn"), "[fn src/app/main.cpp:1] ");
  EXPECT_EQ(location("C:\\src/app/main.cpp", 1, "fn"), "[fn src/app/main.cpp:1] ");
  EXPECT_EQ(location("", 1, ""), "[ :1] ");
}

TEST(Stamps, FindNoBaseNameAfterAFinalBackslash) { EXPECT_EQ(location("C:\\src\\", 7, "fn"), "[fn :7] "); }

TEST(Stamps, AcceptLineZeroAndNegativeLines) {
  EXPECT_EQ(location("main.cpp", 0, "fn"), "[fn main.cpp:0] ");
  EXPECT_EQ(location("main.cpp", -12, "fn"), "[fn main.cpp:-12] ");
}

TEST(Stamps, ShowMinusOneForAnIdThatHasNoText) {
  for (const char* function : {"getProcessId", "getThreadId"}) {
    std::string stamp;
    EXPECT_EQ(traceOf([&] { stamp = idStamp(function, Unwritable{}, true); }),
              std::string("==> Quillmark_logging::") + function +
                  "() _formatted=true\r\n"
                  "<!- Quillmark_logging::" +
                  function + "() ERROR: Exception bad_lexical_cast caught!\r\n");
    EXPECT_EQ(stamp, "-1");
  }
}

TEST(Stamps, ShowLocErrorForALocationThatHasNoText) {
  std::string stamp;
  EXPECT_EQ(traceOf([&] { stamp = locationStamp("main.cpp", Unwritable{}, "fn"); }),
            "==> Quillmark_logging::location()\r\n"
            "<!= Quillmark_logging::location() ERROR: Exception bad_lexical_cast caught!\r\n");
  EXPECT_EQ(stamp, "LOC-ERROR");
}

TEST(Stamps, TraceTheirEntryAndResult) {
  const std::string process = std::to_string(platform::processId());
  const std::string thread = std::to_string(platform::threadId());
  EXPECT_EQ(traceOf([] { Quillmark_logging::getProcessId(false); }),
            "==> Quillmark_logging::getProcessId() _formatted=false\r\n"
            "<== Quillmark_logging::getProcessId() " +
                process + " (Unformatted)\r\n");
  EXPECT_EQ(traceOf([] { Quillmark_logging::getThreadId(true); }),
            "==> Quillmark_logging::getThreadId() _formatted=true\r\n"
            "<== Quillmark_logging::getThreadId() [" +
                thread + "]  (Formatted)\r\n");
  EXPECT_EQ(traceOf([] { location("a\\b.cpp", 3, "fn"); }),
            "==> Quillmark_logging::location()\r\n"
            "<== Quillmark_logging::location() [fn b.cpp:3] \r\n");
}

TEST(Stamps, TraceALineOfTheFormattedFunctionsFirst) {
  const std::string process = std::to_string(platform::processId());
  const std::string thread = std::to_string(platform::threadId());
  EXPECT_EQ(traceOf([] { Quillmark_logging::getFormattedProcessId(); }),
            "<=> Quillmark_logging::getFormattedProcessId()\r\n"
            "==> Quillmark_logging::getProcessId() _formatted=true\r\n"
            "<== Quillmark_logging::getProcessId() [" +
                process + "]  (Formatted)\r\n");
  EXPECT_EQ(traceOf([] { Quillmark_logging::getFormattedThreadId(); }),
            "<=> Quillmark_logging::getFormattedThreadId()\r\n"
            "==> Quillmark_logging::getThreadId() _formatted=true\r\n"
            "<== Quillmark_logging::getThreadId() [" +
                thread + "]  (Formatted)\r\n");
}

TEST(Stamps, PrintNothingWithTheTraceOff) {
  const testsupport::CapturedConsole console;
  Quillmark_logging::getFormattedProcessId();
  Quillmark_logging::getFormattedThreadId();
  location("a\\b.cpp", 3, "fn");
  idStamp("getProcessId", Unwritable{}, false);
  EXPECT_EQ(console.text(), "");
}

}  // namespace
