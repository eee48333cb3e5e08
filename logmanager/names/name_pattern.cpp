// SPDX-License-Identifier: MIT
#include "logmanager/names/name_pattern.h"

#include "logmanager/names/glob.h"

namespace boost::logging::detail {

bool NamePattern::selects(std::string_view _name) const {
  if (!isPlain()) return globMatches(text_, _name);
  if (!_name.starts_with(text_)) return false;
  return _name.size() == text_.size() || (!text_.empty() && _name[text_.size()] == '.');
}

std::vector<std::string> NamePattern::globs() const {
  const std::string self(text_);
  if (!isPlain() || self.empty()) return {self};
  return {self, self + ".*"};
}

}  // namespace boost::logging::detail
