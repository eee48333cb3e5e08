// SPDX-License-Identifier: MIT
#include "logmanager/log_registry.h"

#include <utility>

namespace boost::logging::detail {
namespace {

constexpr int mostParents = 32;

}  // namespace

Log* LogRegistry::find(std::string_view _name) const {
  const auto place = logOf_.find(_name);
  return place == logOf_.end() ? nullptr : place->second;
}

Log& LogRegistry::create(const std::string& _name, bool _enabled, std::unique_ptr<const CallableSet> _callables) {
  Log& log = logs_.emplace_back(_name, _enabled, std::move(_callables));
  try {
    enter(log);
  } catch (...) {
    leave(log);
    logs_.pop_back();
    throw;
  }
  return log;
}

void LogRegistry::enter(Log& _log) {
  byBeginning_.insert(&_log);
  byEnding_.insert(&_log);
  noteParents(_log.name);
  logOf_.emplace(_log.name, &_log);
}

void LogRegistry::leave(Log& _log) noexcept {
  byBeginning_.erase(&_log);
  byEnding_.erase(&_log);
  logOf_.erase(_log.name);
}

void LogRegistry::noteParents(std::string_view _name) {
  std::string_view::size_type dot = _name.find('.');
  for (int count = 0; dot != std::string_view::npos; dot = _name.find('.', dot + 1)) {
    if (++count > mostParents) {
      hasDeepNames_ = true;
      return;
    }
    parents_.insert(NameHash()(_name.substr(0, dot)));
  }
}

bool LogRegistry::mayHaveBelow(const NamePattern& _plain) const {
  return !_plain.text().empty() && (hasDeepNames_ || parents_.contains(_plain.hash()));
}

}  // namespace boost::logging::detail
