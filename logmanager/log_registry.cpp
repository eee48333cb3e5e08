// SPDX-License-Identifier: MIT
#include "logmanager/log_registry.h"

namespace boost::logging::detail {

Log* LogRegistry::find(std::string_view _name) const {
  const auto place = logOf_.find(_name);
  return place == logOf_.end() ? nullptr : place->second;
}

Log& LogRegistry::create(const std::string& _name) {
  Log& log = logs_.emplace_back(_name);
  logOf_.emplace(log.name, &log);
  byBeginning_.insert(&log);
  byEnding_.insert(&log);
  std::uint64_t hash = NameHash::START;
  for (const char character : log.name) {
    if (character == '.') parents_.insert(hash);
    hash = NameHash::next(hash, character);
  }
  return log;
}

bool LogRegistry::mayHaveBelow(std::string_view _name) const {
  return !_name.empty() && parents_.contains(NameHash()(_name));
}

}  // namespace boost::logging::detail
