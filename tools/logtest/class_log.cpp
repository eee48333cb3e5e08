// SPDX-License-Identifier: MIT
#include "tools/logtest/class_log.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "logsetup/class_list.h"
#include "quillmark_logging.h"

namespace logtest {
namespace {

std::string stamps(const std::string& _location) {
  return Quillmark_logging::getFormattedProcessId() + Quillmark_logging::getFormattedThreadId() + _location;
}

std::string stateOf(const ClassLog& _class) {
  std::string state = _class.log.is_enabled() ? "on" : "off";
  if (_class.log.is_enabled() || _class.lines > 0) state += ", lines logged: " + std::to_string(_class.lines);
  return state;
}

}  // namespace

std::vector<ClassLog> classLogsOf(const std::string& _classes) {
  std::vector<ClassLog> logs;
  Quillmark_logging::forEachClass(_classes + ";", [&logs](const std::string& _class, int) {
    if (!_class.empty()) logs.push_back({boost::logging::logger(_class)});
  });
  return logs;
}

void logLine(ClassLog& _class, const std::string& _text, bool _stamps) {
  if (!_class.log.is_enabled()) return;
  ++_class.lines;
  QMRK_LOG(_class.log) << (_stamps ? stamps(Quillmark_logging::location(__FILE__, __LINE__, __func__)) : "") << _text;
}

std::string describe(const std::vector<ClassLog>& _classes) {
  std::size_t width = 0;
  for (const ClassLog& each : _classes)
    width = std::max(width, each.log.name().size());
  std::ostringstream text;
  for (const ClassLog& each : _classes) {
    text << "  " << std::left << std::setw(static_cast<int>(width)) << each.log.name() << "  " << stateOf(each) << "\n";
  }
  return text.str();
}

}  // namespace logtest
