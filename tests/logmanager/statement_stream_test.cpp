// SPDX-License-Identifier: MIT
#include "logmanager/statement_stream.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iomanip>
#include <locale>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "boost/logging/logging.hpp"
#include "tests/logmanager/recorder.h"

namespace app {

struct Commas : std::numpunct<char> {
  char do_thousands_sep() const override { return ','; }
  std::string do_grouping() const override { return "\3"; }
};

/// One change of a stream, made by a template that is written for any stream and leaves it changed.
struct Change {
  const char* what;
  void (*make)(std::ostream&);
};

template <typename Stream>
Stream& operator<<(Stream& _stream, const Change& _change) {
  _change.make(_stream);
  return _stream;
}

/// Shows the state of the stream that inserts it.
struct State {};

std::ostream& operator<<(std::ostream& _stream, const State& /*_state*/) {
  std::ostringstream state;
  state << "flags " << _stream.flags() << " width " << _stream.width() << " precision " << _stream.precision()
        << " fill " << _stream.fill() << " exceptions " << _stream.exceptions() << " tied " << _stream.tie()
        << " grouping " << std::use_facet<std::numpunct<char>>(_stream.getloc()).grouping();
  return _stream << state.str();
}

std::string stateOfANewStream() {
  std::ostringstream stream;
  stream << State();
  return stream.str();
}

namespace {

const Change formatChanges[] = {
    {"hex", [](std::ostream& _stream) { _stream << std::hex; }},
    {"showpos", [](std::ostream& _stream) { _stream << std::showpos; }},
    {"boolalpha", [](std::ostream& _stream) { _stream << std::boolalpha; }},
    {"width", [](std::ostream& _stream) { _stream.width(9); }},
    {"precision", [](std::ostream& _stream) { _stream << std::setprecision(2); }},
    {"fill", [](std::ostream& _stream) { _stream << std::setfill('*'); }},
    {"locale", [](std::ostream& _stream) { _stream.imbue(std::locale(std::locale::classic(), new Commas)); }},
};

const Change otherChanges[] = {
    {"exceptions", [](std::ostream& _stream) { _stream.exceptions(std::ios_base::badbit); }},
    {"failure", [](std::ostream& _stream) { _stream.setstate(std::ios_base::failbit); }},
    {"tie",
     [](std::ostream& _stream) {
       static std::ostringstream other;
       _stream.tie(&other);
     }},
    {"buffer",
     [](std::ostream& _stream) {
       static std::stringbuf other;
       _stream.rdbuf(&other);
     }},
};

class StatementStream : public testing::Test {
 protected:
  StatementStream() {
    boost::logging::flush_log_cache();
    boost::logging::add_appender(manager_, "StatementStream", recorder_.appender(), "A", 100);
  }
  ~StatementStream() override { boost::logging::del_appender(manager_, "StatementStream", "A"); }

  std::string latest() const {
    const std::string message = recorder_.messages().back();
    return message.substr(message.find('|') + 1);
  }

  boost::logging::default_log_manager& manager_ = boost::logging::get_default_log_manager();
  testsupport::Recorder recorder_;
  const boost::logging::logger log_{"StatementStream"};
};

TEST_F(StatementStream, HonoursEachChangeThatAGenericInserterMakes) {
  for (const Change& change : formatChanges) {
    SCOPED_TRACE(change.what);
    std::ostringstream expected;
    expected << change << 1234567 << ' ' << 1.0 / 3 << ' ' << true << std::setw(9) << "text";
    QMRK_LOG(log_) << change << 1234567 << ' ' << 1.0 / 3 << ' ' << true << std::setw(9) << "text";
    EXPECT_EQ(latest(), expected.str());
    std::ostringstream integer;
    integer << change << 1234567;
    QMRK_LOG(log_) << change << 1234567;
    EXPECT_EQ(latest(), integer.str());
  }
}

TEST_F(StatementStream, ForgetsEachChangeAtTheEndOfTheStatement) {
  std::vector<Change> changes(std::begin(formatChanges), std::end(formatChanges));
  changes.insert(changes.end(), std::begin(otherChanges), std::end(otherChanges));
  for (const Change& change : changes) {
    SCOPED_TRACE(change.what);
    QMRK_LOG(log_) << change;
    QMRK_LOG(log_) << State();
    EXPECT_EQ(latest(), stateOfANewStream());
    QMRK_LOG(log_) << change;
    QMRK_LOG(log_) << 1234567;
    EXPECT_EQ(latest(), "1234567");
  }
}

TEST_F(StatementStream, TellsItsPositionAndTakesNoOther) {
  static std::vector<std::streamoff> positions;
  const Change look{"position", [](std::ostream& _stream) {
                      std::streambuf& buffer = *_stream.rdbuf();
                      positions = {buffer.pubseekoff(0, std::ios::cur, std::ios::out),
                                   buffer.pubseekoff(0, std::ios::cur, std::ios::in),
                                   buffer.pubseekoff(1, std::ios::cur, std::ios::out),
                                   buffer.pubseekoff(0, std::ios::end, std::ios::out)};
                    }};
  QMRK_LOG(log_) << "text" << look;
  EXPECT_THAT(positions, testing::ElementsAre(4, -1, -1, -1));
}

TEST_F(StatementStream, TakesNoMoreAfterAFailure) {
  QMRK_LOG(log_) << "text" << otherChanges[1] << "more" << 42;
  EXPECT_EQ(latest(), "text");
}

TEST_F(StatementStream, TakesSingleCharactersAndNoEnd) {
  /// Gives access to what a buffer's own functions call.
  struct Buffer : std::streambuf {
    using std::streambuf::overflow;
  };
  const Change put{"characters", [](std::ostream& _stream) {
                     _stream.put('b');
                     std::streambuf& buffer = *_stream.rdbuf();
                     EXPECT_NE((buffer.*(&Buffer::overflow))(Buffer::traits_type::eof()), Buffer::traits_type::eof());
                   }};
  QMRK_LOG(log_) << "a" << put << "c";
  EXPECT_EQ(latest(), "abc");
}

}  // namespace
}  // namespace app
