// SPDX-License-Identifier: MIT
#include "boost/logging/format.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "boost/logging/logging.hpp"
#include "tests/logmanager/recorder.h"

namespace {

struct Point {
  int x;
  int y;
};

int pointsFormatted = 0;

}  // namespace

template <>
struct fmt::formatter<Point> {
  constexpr auto parse(format_parse_context& _context) { return _context.begin(); }
  template <typename Context>
  auto format(const Point& _point, Context& _context) const {
    ++pointsFormatted;
    if (_point.x < 0) throw std::runtime_error("no such point");
    return fmt::format_to(_context.out(), "({}, {})", _point.x, _point.y);
  }
};

namespace {

class Format : public testing::Test {
 protected:
  Format() {
    boost::logging::flush_log_cache();
    boost::logging::del_appender(manager_, "*", "Format");
    boost::logging::add_appender(manager_, "Format", recorder_.appender(), "Format", 100);
    boost::logging::enable_logs(manager_, "Format", boost::logging::level_on);
  }

  using Messages = std::vector<std::string>;
  boost::logging::default_log_manager& manager_ = boost::logging::get_default_log_manager();
  testsupport::Recorder recorder_;
  const boost::logging::logger log_{"Format"};
};

TEST_F(Format, LogsTheFormattedArguments) {
  QMRK_LOGF(log_, "plain {{}}");
  QMRK_LOGF(log_, "size {}", 42);
  QMRK_LOGF(log_, "{1:>5}|{0:#x}|{2}", 255, "abc", std::string("def"));
  QMRK_LOGF(log_, "at {}", Point{1, 2});
  EXPECT_EQ(recorder_.messages(),
            (Messages{"Format|plain {}", "Format|size 42", "Format|  abc|0xff|def", "Format|at (1, 2)"}));
}

TEST_F(Format, AcceptsTextsOfAnySize) {
  const std::string large(100000, 'x');
  QMRK_LOGF(log_, "{}", large);
  QMRK_LOGF(log_, "");
  EXPECT_EQ(recorder_.messages(), (Messages{"Format|" + large, "Format|"}));
}

TEST_F(Format, EvaluatesAndFormatsNothingWhenTheLogIsOff) {
  boost::logging::enable_logs(manager_, "Format", boost::logging::level_off);
  int evaluated = 0;
  pointsFormatted = 0;
  QMRK_LOGF(log_, "{} {}", ++evaluated, Point{1, 2});
  EXPECT_EQ(evaluated, 0);
  EXPECT_EQ(pointsFormatted, 0);
  EXPECT_TRUE(recorder_.messages().empty());
}

TEST_F(Format, LogsNothingWhenAFormatterThrows) {
  EXPECT_THROW(QMRK_LOGF(log_, "at {}", Point{-1, 0}), std::runtime_error);
  QMRK_LOGF(log_, "after");
  EXPECT_EQ(recorder_.messages(), Messages{"Format|after"});
}

TEST_F(Format, CountsAsOneStatementInABranchWithoutBraces) {
  for (const bool branch : {true, false}) {
    // NOLINTBEGIN(readability-braces-around-statements): its subject
    if (branch)
      QMRK_LOGF(log_, "yes");
    else
      QMRK_LOGF(log_, "no {}", 1);
    // NOLINTEND(readability-braces-around-statements)
  }
  EXPECT_EQ(recorder_.messages(), (Messages{"Format|yes", "Format|no 1"}));
}

}  // namespace
