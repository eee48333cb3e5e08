// SPDX-License-Identifier: MIT
#include "boost/logging/logging.hpp"

// What an application of the oldest supported standard does with the header; that it compiles is the test.

void logAll(const boost::logging::logger& _log, int _number);

void logAll(const boost::logging::logger& _log, int _number) {
  boost::logging::default_log_manager& manager = boost::logging::get_default_log_manager();
  boost::logging::add_appender(manager, "*", boost::logging::ts_appender(&boost::logging::write_to_cout, 0), "A", 100);
  boost::logging::add_appender(manager, "*", boost::logging::write_to_file("file", false), "A", 100);
  boost::logging::add_modifier(manager, "*", boost::logging::prepend_time_ms("$hh"), "M", 100);
  // NOLINTBEGIN(readability-braces-around-statements): a statement has to work without them
  if (_number > 0)
    QMRK_LOG(_log) << "number " << _number << std::endl;
  else
    QMRK_LOG(_log) << std::string("text") << 1.5 << 'c';
  // NOLINTEND(readability-braces-around-statements)
}
