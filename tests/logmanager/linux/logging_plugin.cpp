// SPDX-License-Identifier: MIT
#include "boost/logging/logging.hpp"

/// Logs numbered lines to the file through a ts_appender with an interval that nobody waits for.
extern "C" __attribute__((visibility("default"))) void logThroughPlugin(const char* _file, int _lines) {
  namespace bl = boost::logging;
  bl::default_log_manager& manager = bl::get_default_log_manager();
  const bl::write_to_file file(_file, false);
  // The appender is code of the plugin.
  const auto write = [file](const std::string& _log, const std::string& _text) { file(_log, _text); };
  bl::add_appender(manager, "*", bl::ts_appender(write, 3600000), "A", 100);
  bl::add_modifier(manager, "*", &bl::append_enter, "M", 100);
  bl::flush_log_cache();
  const bl::logger log("Plugin");
  for (int i = 0; i < _lines; ++i)
    QMRK_LOG(log) << i;
}
