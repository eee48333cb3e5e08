// SPDX-License-Identifier: MIT
#include "logmanager/log_registry.h"

namespace boost::logging::detail {
namespace {

constexpr int MOST_PARENTS = 32;

}  // namespace

Log* LogRegistry::find(std::string_view _name) const {
  const auto place = logOf_.find(_name);
  return place == logOf_.end() ? nullptr : place->second;
}

Log& LogRegistry::create(const std::string& _name) {
  Log& log = logs_.emplace_back(_name);
  logOf_.emplace(log.name, &log);
  byBeginning_.insert(&log);
  byEnding_.insert(&log);
  noteParents(log.name);
  return log;
}

void LogRegistry::noteParents(std::string_view _name) {
  std::string_view::size_type dot = _name.find('.');
  for (int count = 0; dot != std::string_view::npos; dot = _name.find('.', dot + 1)) {
    if (++count > MOST_PARENTS) {
      hasDeepNames_ = true;
      return;
    }
    parents_.insert(NameHash()(_name.substr(0, dot)));
  }
}

bool LogRegistry::mayHaveBelow(std::string_view _name) const {
  return !_name.empty() && (hasDeepNames_ || parents_.contains(NameHash()(_name)));
}

}  // namespace boost::logging::detail
