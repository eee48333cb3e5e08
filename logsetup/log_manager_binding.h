// SPDX-License-Identifier: MIT
#pragma once

#include <boost/logging/logging.hpp>
#include <string>

namespace Quillmark_logging {

// The operations of the log manager as this library uses them, on the one manager of the process. They pass their
// arguments on unchanged; boost/logging/logging.hpp describes patterns, names and threads. The add functions return the
// pattern, so that calls on one pattern can be chained.

/// The library connects every callable at this index.
constexpr int callableIndex = 100;

/// The calls that this thread makes take effect together at apply(), and never without it.
class SetUpChange : public boost::logging::set_up_change {
 public:
  SetUpChange() : boost::logging::set_up_change(boost::logging::get_default_log_manager()) {}
};

inline std::string addAppender(const std::string& _logs, const boost::logging::appender& _appender,
                               const std::string& _name, int _index) {
  boost::logging::add_appender(boost::logging::get_default_log_manager(), _logs, _appender, _name, _index);
  return _logs;
}

inline std::string addModifier(const std::string& _logs, const boost::logging::modifier& _modifier,
                               const std::string& _name, int _index) {
  boost::logging::add_modifier(boost::logging::get_default_log_manager(), _logs, _modifier, _name, _index);
  return _logs;
}

inline void deleteAppender(const std::string& _logs, const std::string& _name) {
  boost::logging::del_appender(boost::logging::get_default_log_manager(), _logs, _name);
}

inline void deleteModifier(const std::string& _logs, const std::string& _name) {
  boost::logging::del_modifier(boost::logging::get_default_log_manager(), _logs, _name);
}

inline void enableLogs(const std::string& _logs) {
  boost::logging::enable_logs(boost::logging::get_default_log_manager(), _logs, boost::logging::level_on);
}

inline void disableLogs(const std::string& _logs) {
  boost::logging::enable_logs(boost::logging::get_default_log_manager(), _logs, boost::logging::level_off);
}

}  // namespace Quillmark_logging
