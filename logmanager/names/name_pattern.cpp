// SPDX-License-Identifier: MIT
#include "logmanager/names/name_pattern.h"

#include <algorithm>

#include "logmanager/names/glob.h"

namespace boost::logging::detail {
namespace {

std::string withSingleStars(const std::string& _text) {
  std::string text = _text;
  if (text.find("**") == std::string::npos) return text;
  const auto bothStars = [](char _left, char _right) { return _left == '*' && _right == '*'; };
  text.erase(std::unique(text.begin(), text.end(), bothStars), text.end());
  return text;
}

/// What a pattern stands for as globs: itself, and for a plain one the names below it as well.
class Globs {
 public:
  explicit Globs(const NamePattern& _pattern) : self_(_pattern.text()) {
    if (_pattern.isPlain() && !self_.empty()) below_ = _pattern.text() + ".*";
  }

  template <typename Predicate>
  bool any(Predicate _holds) const {
    return _holds(self_) || (!below_.empty() && _holds(std::string_view(below_)));
  }

  template <typename Predicate>
  bool all(Predicate _holds) const {
    return _holds(self_) && (below_.empty() || _holds(std::string_view(below_)));
  }

 private:
  std::string_view self_;
  std::string below_;
};

}  // namespace

NamePattern::NamePattern(const std::string& _text) : text_(withSingleStars(_text)), firstStar_(text_.find('*')) {}

bool NamePattern::selects(std::string_view _name) const {
  if (!isPlain()) return globMatches(text_, _name);
  if (!_name.starts_with(text_)) return false;
  return _name.size() == text_.size() || (!text_.empty() && _name[text_.size()] == '.');
}

bool NamePattern::covers(const NamePattern& _other) const {
  if (selectsAll()) return true;
  const Globs own(*this);
  return Globs(_other).all([&own](std::string_view _theirs) {
    return own.any([_theirs](std::string_view _glob) { return globMatches(_glob, _theirs); });
  });
}

bool NamePattern::meets(const NamePattern& _other) const {
  if (isPlain() && _other.isPlain()) return selects(_other.text_) || _other.selects(text_);
  const Globs own(*this);
  return Globs(_other).any([&own](std::string_view _theirs) {
    return own.any([_theirs](std::string_view _glob) { return globsMeet(_glob, _theirs); });
  });
}

}  // namespace boost::logging::detail
