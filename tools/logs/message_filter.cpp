// SPDX-License-Identifier: MIT
#include "tools/logs/message_filter.h"

#include <algorithm>

#include "logmanager/names/name_pattern.h"
#include "logsetup/class_list.h"

namespace qmrkctl {

bool MessageQuery::matches(const LogLine& _line) const {
  if (since && _line.time < *since) return false;
  return classes.empty() || std::ranges::any_of(classes, [&_line](const std::string& _pattern) {
           return boost::logging::detail::NamePattern(_pattern).selects(_line.logClass);
         });
}

std::vector<std::string> patternsOf(const std::string& _list) {
  std::vector<std::string> patterns;
  Quillmark_logging::forEachClass(_list.ends_with(';') ? _list : _list + ';',
                                  [&patterns](const std::string& _pattern, int) { patterns.push_back(_pattern); });
  return patterns;
}

bool MessageFilter::accepts(std::string_view _line) {
  if (const std::optional<LogLine> first = parseLogLine(_line)) {
    logClass_ = first->logClass;
    time_ = first->time;
    isAccepted_ = query_.matches(*first);
  }
  return isAccepted_;
}

}  // namespace qmrkctl
