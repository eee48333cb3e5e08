// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iomanip>
#include <limits>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"
#include "tests/logmanager/recorder.h"

namespace app {

struct Point {
  int x;
  int y;
};

std::ostream& operator<<(std::ostream& _stream, const Point& _point) {
  return _stream << std::hex << '(' << _point.x << ',' << _point.y << ')';
}

/// Has an operator of its own, and converts to a type that the stream takes.
struct Metres {
  operator double() const { return 1; }  // NOLINT(google-explicit-constructor): its subject
};

std::ostream& operator<<(std::ostream& _stream, const Metres& /*_metres*/) { return _stream << "metres"; }

/// An operator for a type of the library, found only by the look-up from here.
std::ostream& operator<<(std::ostream& _stream, const std::vector<int>& _values) {
  return _stream << _values.size() << " values";
}

struct Grouping : std::numpunct<char> {
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

struct Throwing {};

std::ostream& operator<<(std::ostream& _stream, const Throwing& /*_throwing*/) {
  _stream << std::hex << "half";
  throw std::runtime_error("no text");
}

struct Logging {
  const boost::logging::logger& log_;
};

std::ostream& operator<<(std::ostream& _stream, const Logging& _logging) {
  QMRK_LOG(_logging.log_) << "inner " << std::hex << 255 << app::Point{10, 11};
  return _stream << "outer value";
}

struct Hexadecimal {
  int value;
};

/// As written for any stream: returns the type that it was given, and leaves the stream changed.
template <typename Stream>
Stream& operator<<(Stream& _stream, const Hexadecimal& _number) {
  _stream << "0x" << std::hex << _number.value;
  return _stream;
}

struct Decorated {};

template <typename Stream>
Stream& operator<<(Stream& _stream, const Decorated& /*_decorated*/) {
  _stream << std::setprecision(2) << std::setfill('*') << std::boolalpha;
  _stream.imbue(std::locale(std::locale::classic(), new Grouping));
  _stream.width(7);
  return _stream;
}

std::ostream& marked(std::ostream& _stream) {
  static const int mark = std::ios_base::xalloc();
  return _stream << "mark" << _stream.iword(mark)++;
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Statement : public testing::Test {
 protected:
  Statement() {
    boost::logging::flush_log_cache();
    boost::logging::del_appender(manager_, "*", "Statement");
    boost::logging::add_appender(manager_, "Statement", recorder_.appender(), "Statement", 100);
  }

  std::vector<std::string> texts() const {
    std::vector<std::string> texts;
    for (const std::string& message : recorder_.messages())
      texts.push_back(message.substr(message.find('|') + 1));
    return texts;
  }

  boost::logging::default_log_manager& manager_ = boost::logging::get_default_log_manager();
  testsupport::Recorder recorder_;
  const boost::logging::logger log_{"Statement"};
};

TEST_F(Statement, LogsValuesAsAStreamFormatsThem) {
  const std::string text = "string";
  const char* const pointer = "pointer";
  char array[] = "array";
  QMRK_LOG(log_) << "a" << text << pointer << array << 'c' << 1 << -2L << 3U << 4ULL << short{5} << true << 1.5;
  EXPECT_THAT(texts(), ElementsAre("astringpointerarrayc1-2345"
                                   "11.5"));
}

TEST_F(Statement, LogsAnEmptyMessage) {
  QMRK_LOG(log_);
  QMRK_LOG(log_) << "";
  EXPECT_THAT(texts(), ElementsAre("", ""));
}

template <typename Integer>
std::string streamed(Integer _value) {
  std::ostringstream stream;
  stream << _value;
  return stream.str();
}

template <typename Integer>
class IntegerStatement : public Statement {};

using Integers = testing::Types<bool, char, signed char, unsigned char, short, unsigned short, int, unsigned int, long,
                                unsigned long, long long, unsigned long long>;
TYPED_TEST_SUITE(IntegerStatement, Integers);

TYPED_TEST(IntegerStatement, LogsTheLimitsAsAStreamDoes) {
  using Limits = std::numeric_limits<TypeParam>;
  for (const TypeParam value : {Limits::min(), TypeParam{0}, TypeParam{1}, Limits::max()}) {
    QMRK_LOG(this->log_) << value;
    EXPECT_EQ(this->texts().back(), streamed(value));
  }
}

TEST_F(Statement, LogsNumbersOfEveryLengthAsAStreamDoes) {
  std::vector<unsigned long long> numbers;
  for (unsigned long long power = 1; power <= std::numeric_limits<unsigned long long>::max() / 10; power *= 10) {
    numbers.insert(numbers.end(), {10 * power - 1, 10 * power, 10 * power + 1, power * 7});
  }
  for (int bit = 0; bit < 64; ++bit)
    numbers.insert(numbers.end(), {(1ULL << bit) - 1, 1ULL << bit});
  for (const unsigned long long number : numbers) {
    const auto negative = -static_cast<long long>(number / 2);
    QMRK_LOG(log_) << number << ' ' << negative;
    ASSERT_EQ(texts().back(), streamed(number) + " " + streamed(negative));
  }
}

TEST_F(Statement, AcceptsManipulatorsAndOperatorsOfTheApplication) {
  QMRK_LOG(log_) << std::setw(5) << std::setfill('0') << 42 << std::hex << 255 << std::uppercase << 255 << std::endl;
  QMRK_LOG(log_) << "at " << Point{10, 11} << ' ' << 12;
  QMRK_LOG(log_) << Metres() << ", " << std::vector<int>{1, 2};
  EXPECT_THAT(texts(), ElementsAre("00042ffFF\n", "at (a,b) c", "metres, 2 values"));
}

TEST_F(Statement, StartsInTheInitialFormattingState) {
  for (int i = 0; i < 2; ++i) {
    QMRK_LOG(log_) << 10 << ' ' << 1.0 / 3 << ' ' << true << marked;
    QMRK_LOG(log_) << std::hex << std::showbase << std::boolalpha << std::setprecision(3) << std::setfill('*')
                   << std::setw(9) << std::scientific;
  }
  EXPECT_THAT(texts(), ElementsAre("10 0.333333 1mark0", "", "10 0.333333 1mark0", ""));
}

TEST_F(Statement, KeepsChangesOfAGenericInserterUntilItsEnd) {
  QMRK_LOG(log_) << Hexadecimal{255} << ' ' << 255 << ' ' << -1 << ' ' << short{-1};
  QMRK_LOG(log_) << 255 << ' ' << Hexadecimal{10};
  QMRK_LOG(log_) << 16;
  EXPECT_THAT(texts(), ElementsAre("0xff ff ffffffff ffff", "255 0xa", "16"));
}

TEST_F(Statement, HonoursWidthLocaleAndPrecisionThatAGenericInserterLeaves) {
  std::ostringstream expected;
  expected << Decorated() << "text" << 1234567 << ' ' << true << 1.0 / 3;
  for (int i = 0; i < 2; ++i) {
    QMRK_LOG(log_) << Decorated() << "text" << 1234567 << ' ' << true << 1.0 / 3;
    QMRK_LOG(log_) << "text" << 1234567 << ' ' << true << 1.0 / 3;
  }
  EXPECT_THAT(texts(), ElementsAre(expected.str(), "text1234567 10.333333", expected.str(), "text1234567 10.333333"));
}

TEST_F(Statement, RecoversFromAStreamThatFailed) {
  const char* const none = nullptr;
  QMRK_LOG(log_) << "before" << none << "after";
  QMRK_LOG(log_) << "next";
  EXPECT_THAT(texts(), ElementsAre("before", "next"));
}

TEST_F(Statement, FormatsInTheClassicLocaleWhateverTheGlobalOneIs) {
  const std::locale former = std::locale::global(std::locale(std::locale::classic(), new Grouping));
  std::thread([this] {
    QMRK_LOG(log_) << 1234567 << ' ' << 1234567.5F;
    QMRK_LOG(log_) << std::dec << 1234567;
  }).join();
  std::locale::global(former);
  EXPECT_THAT(texts(), ElementsAre("1234567 1.23457e+06", "1234567"));
}

int evaluate(int& _count) { return ++_count; }

TEST_F(Statement, EvaluatesNothingWhenTheLogIsOff) {
  boost::logging::enable_logs(manager_, "Statement", boost::logging::level_off);
  int count = 0;
  QMRK_LOG(log_) << evaluate(count);
  boost::logging::enable_logs(manager_, "Statement", boost::logging::level_on);
  EXPECT_EQ(count, 0);
  EXPECT_THAT(texts(), IsEmpty());
  QMRK_LOG(log_) << evaluate(count);
  EXPECT_THAT(texts(), ElementsAre("1"));
}

TEST_F(Statement, CountsAsOneStatementInABranchWithoutBraces) {
  for (const bool condition : {true, false}) {
    // NOLINTBEGIN(readability-braces-around-statements): that is the point
    if (condition)
      QMRK_LOG(log_) << "then";
    else
      QMRK_LOG(log_) << "else";
    // NOLINTEND(readability-braces-around-statements)
  }
  EXPECT_THAT(texts(), ElementsAre("then", "else"));
}

TEST_F(Statement, MayLogInsideTheInsertionOperatorOfAValue) {
  QMRK_LOG(log_) << 1 << ' ' << Logging{log_} << ' ' << 16;
  EXPECT_THAT(texts(), ElementsAre("inner ff(a,b)", "1 outer value 16"));
}

TEST_F(Statement, EndsWithoutAMessageWhenAnInsertionThrows) {
  EXPECT_THROW(QMRK_LOG(log_) << "before " << Throwing(), std::runtime_error);
  QMRK_LOG(log_) << 10;
  EXPECT_THAT(texts(), ElementsAre("10"));
}

struct LogsWhenItEnds {
  const boost::logging::logger& log_;
  ~LogsWhenItEnds() { QMRK_LOG(log_) << "end"; }
};

TEST_F(Statement, WorksWhileAnExceptionUnwindsTheStack) {
  try {
    const LogsWhenItEnds guard{log_};
    throw std::runtime_error("unwind");
  } catch (const std::runtime_error&) {
    EXPECT_THAT(texts(), ElementsAre("end"));
  }
}

std::ostream& position(std::ostream& _stream) { return _stream << " at " << _stream.tellp(); }

TEST_F(Statement, AcceptsLongMessagesAndKnowsThePosition) {
  const std::string text(1000000, 'x');
  QMRK_LOG(log_) << text << std::string(1000, 'y');
  QMRK_LOG(log_) << "12345" << position;
  ASSERT_EQ(texts().size(), 2U);
  EXPECT_TRUE(texts()[0] == text + std::string(1000, 'y'));
  EXPECT_EQ(texts()[1], "12345 at 9");
}

struct Constants {
  static const int withoutDefinition = 3;
  unsigned int field : 4;
};

TEST_F(Statement, AcceptsBitFieldsAndConstantsWithoutDefinition) {
  Constants constants{};
  constants.field = 9;
  QMRK_LOG(log_) << Constants::withoutDefinition << constants.field;
  EXPECT_THAT(texts(), ElementsAre("39"));
}

struct LogsAtThreadEnd {
  ~LogsAtThreadEnd() { QMRK_LOG(boost::logging::logger("Statement")) << "thread ends"; }
};

TEST_F(Statement, WorksInTheDestructorOfAThreadLocalObject) {
  std::thread([this] {
    thread_local const LogsAtThreadEnd guard;
    static_cast<void>(&guard);
    QMRK_LOG(log_) << "thread runs";
  }).join();
  EXPECT_THAT(texts(), ElementsAre("thread runs", "thread ends"));
}

}  // namespace
}  // namespace app
