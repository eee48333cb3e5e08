// SPDX-License-Identifier: MIT
#include <iomanip>
#include <locale>

#include "tests/control/listener_fixture.h"
#include "tests/support/golden.h"
#include "tests/support/text_pattern.h"

namespace {

using namespace platform;

std::string masked(const std::string& _text) {
  return testsupport::TextPattern("andle=(0x)?[0-9a-fA-F]+").replacedIn(_text, "andle=<handle>");
}

// Access to private members, which no public call reaches with the arguments of these tests.
template <class Tag, typename Tag::Type Member>
struct Reveal {
  friend typename Tag::Type memberOf(Tag /*_tag*/) { return Member; }
};

struct CloseHandle {
  using Type = bool (LogEventHandler::*)(Quillmark_logging::handle);
  friend Type memberOf(CloseHandle _tag);
};
template struct Reveal<CloseHandle, &LogEventHandler::closeHandle>;

struct CreateEvent {
  using Type = Quillmark_logging::handle (LogEventHandler::*)(std::string);
  friend Type memberOf(CreateEvent _tag);
};
template struct Reveal<CreateEvent, &LogEventHandler::createEvent>;

class LogEventHandlerTrace : public testsupport::Listener {};

// Only the line that ends the constructor may come anywhere among those of the thread.
TEST_F(LogEventHandlerTrace, ShowsAWholeLife) {
  {
    LogEventHandler handler;
    ASSERT_TRUE(waitUntilListening(handler));
    ASSERT_TRUE(cout_.waitFor("<== LogEventHandler::LogEventHandler()"));
    stop(handler);
  }
  const std::string constructed = "<== LogEventHandler::LogEventHandler()\n";
  EXPECT_EQ(cout_.count(constructed), 1);
  const std::string rest = testsupport::replaced(cout_.text(), constructed, "");
  EXPECT_TRUE(testsupport::matchesGolden(masked(rest), "control/listener_life.txt"));
  EXPECT_EQ(cerr_.text(), "");
}

TEST_F(LogEventHandlerTrace, EndsWithTheWaitOfATerminatedThread) {
  {
    LogEventHandler handler;
    ASSERT_TRUE(waitUntilListening(handler));
    ASSERT_TRUE(cout_.waitFor("<== LogEventHandler::LogEventHandler()"));
  }
  const std::string rest = testsupport::replaced(cout_.text(), "<== LogEventHandler::LogEventHandler()\n", "");
  EXPECT_TRUE(testsupport::matchesGolden(masked(rest), "control/listener_terminated.txt"));
}

TEST_F(LogEventHandlerTrace, SaysThatAnEventAlreadyExisted) {
  const Handle event = createEvent("QMRK_LOG_EVENT");
  LogEventHandler handler;
  ASSERT_TRUE(waitUntilListening(handler));
  EXPECT_NE(masked(cout_.text())
                .find("<== LogEventHandler::createEvent() Event \"QMRK_LOG_EVENT\" did already exist, opening existing "
                      "event... eventHandle=<handle>\n"),
            std::string::npos);
  stop(handler);
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(LogEventHandlerTrace, SaysThatTheEventOfTerminatedThreadsAlreadyExisted) {
  for (int listeners = 1; listeners <= 2; ++listeners) {
    LogEventHandler handler;
    ASSERT_TRUE(cout_.waitFor("eventHandle=", listeners));
    ASSERT_TRUE(testsupport::waitUntilThreadSleeps(handler.getThreadId()));
  }
  LogEventHandler third;
  ASSERT_TRUE(cout_.waitFor("eventHandle=", 3));
  EXPECT_EQ(cout_.count("did already exist, opening existing event..."), 2);
  stop(third);
}

TEST_F(LogEventHandlerTrace, WritesNumbersInDecimalWhateverTheFlagsOfTheStream) {
  std::cout << std::hex << std::showbase << std::setfill('#');
  withoutThread();
  std::cout << std::dec << std::noshowbase << std::setfill(' ');
  EXPECT_EQ(cout_.count("==> LogEventHandler::~LogEventHandler() timeout_=1000\n"), 1);
}

TEST_F(LogEventHandlerTrace, WritesNumbersWithoutSeparatorsInAnyLocale) {
  struct Grouping : std::numpunct<char> {
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Grouping));
  withoutThread();
  std::locale::global(before);
  EXPECT_EQ(cout_.count("==> LogEventHandler::~LogEventHandler() timeout_=1000\n"), 1);
}

TEST_F(LogEventHandlerTrace, WarnsOfClosingANullHandle) {
  const auto handler = withoutThread();
  const std::string before = cout_.text();
  EXPECT_FALSE(((*handler).*memberOf(CloseHandle{}))(nullptr));
  EXPECT_EQ(cout_.text().substr(before.size()),
            "==> LogEventHandler::closeHandle() _handle=0\n"
            "<!= LogEventHandler::closeHandle() WARNING/ERROR: No valid handle to close.\n");
  EXPECT_EQ(cerr_.text(), "");
}

TEST_F(LogEventHandlerTrace, NamesTheEventAsItIsCalledWhenTheFailureIsReported) {
  const auto handler = withoutThread();
  const testsupport::FaultPlan failure(Call::openEvent, 1, errorAccessDenied);
  const testsupport::CallHook rename(Call::openEvent, 1, [&handler] { handler->setLogEventName("QMRK_OTHER_EVENT"); });
  ASSERT_TRUE(handler->createWorkerThread());
  ASSERT_EQ(waitForThread(handler->getThreadHandle(), 30'000), waitObject);
  EXPECT_EQ(cerr_.text(),
            "<!= LogEventHandler::createEvent() ERROR: Failed to create event \"QMRK_LOG_EVENT\", GetLastError=5\n"
            "<!= LogEventHandler::Listen4EventThread() ERROR: Failed to create event \"QMRK_OTHER_EVENT\", "
            "GetLastError=5\n");
}

TEST_F(LogEventHandlerTrace, NamesTheStoredEventForAnEmptyName) {
  const auto handler = withoutThread();
  handler->setLogEventName("QMRK_OTHER_EVENT");
  const Handle event = ((*handler).*memberOf(CreateEvent{}))("");
  EXPECT_NE(event, nullptr);
  EXPECT_EQ(cout_.count("==> LogEventHandler::createEvent() _eventName=\"QMRK_OTHER_EVENT\"\n"), 1);
  EXPECT_TRUE(signal("QMRK_OTHER_EVENT"));
  EXPECT_TRUE(((*handler).*memberOf(CloseHandle{}))(event));
}

}  // namespace
