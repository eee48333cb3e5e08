// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/check/known_classes.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "tools/qmrkctl/check/similar_name.h"
#include "tools/qmrkctl/class_entries.h"
#include "tools/qmrkctl/logged_lines.h"

namespace qmrkctl {
namespace {

constexpr std::int64_t examinedBytes = 1 << 18;

// By convention the last part of a name.
constexpr std::string_view usualKinds[] = {"debug", "detail", "error", "fatal", "info", "trace", "warning"};

std::vector<std::string_view> namePartsOf(std::string_view _name) {
  std::vector<std::string_view> parts;
  for (std::size_t dot = _name.find('.'); dot != std::string_view::npos; dot = _name.find('.')) {
    parts.push_back(_name.substr(0, dot));
    _name.remove_prefix(dot + 1);
  }
  parts.push_back(_name);
  return parts;
}

// The same number of parts, of which one has a slip, or any are in another letter case.
bool isMeant(std::string_view _written, std::string_view _known) {
  if (isSameIgnoringCase(_written, _known)) return true;
  const std::vector<std::string_view> written = namePartsOf(_written);
  const std::vector<std::string_view> known = namePartsOf(_known);
  if (written.size() != known.size()) return false;
  const auto [first, firstKnown] = std::mismatch(written.begin(), written.end(), known.begin());
  return isSlip(*first, *firstKnown) && std::equal(first + 1, written.end(), firstKnown + 1);
}

std::string meantKind(std::string_view _pattern) {
  const std::size_t dot = _pattern.rfind('.');
  if (dot == std::string_view::npos) return "";
  for (const std::string_view kind : usualKinds) {
    if (isSlip(_pattern.substr(dot + 1), kind)) return std::string(_pattern.substr(0, dot + 1)) + std::string(kind);
  }
  return "";
}

}  // namespace

KnownClasses::KnownClasses(std::vector<std::string> _running, const std::vector<std::string>& _logged)
    : running_(std::move(_running)) {
  for (const std::vector<std::string>* const classes : {&std::as_const(running_), &_logged}) {
    for (const std::string& name : *classes) {
      leaves_.insert(name);
      for (std::size_t dot = name.find('.'); dot != std::string::npos; dot = name.find('.', dot + 1))
        names_.insert(name.substr(0, dot));
      names_.insert(name);
    }
  }
}

bool KnownClasses::isSelectedBy(std::string_view _pattern) const {
  if (contains(_pattern)) return true;
  if (_pattern.find('*') == std::string_view::npos) return false;
  return std::ranges::any_of(leaves_, [&](const std::string& _name) { return selects(_pattern, _name); });
}

std::string KnownClasses::meantBy(std::string_view _pattern) const {
  // Without the "*" it selects the class itself, too.
  if (_pattern.ends_with(".*") && leaves_.contains(_pattern.substr(0, _pattern.size() - 2)))
    return std::string(_pattern.substr(0, _pattern.size() - 2));
  if (_pattern.find('*') != std::string_view::npos) return "";
  const auto meant = std::ranges::find_if(names_, [&](const std::string& _name) { return isMeant(_pattern, _name); });
  return meant == names_.end() ? meantKind(_pattern) : *meant;
}

std::vector<std::string> loggedClasses(const Viewpoint& _viewpoint, const Configuration& _configuration) {
  std::vector<std::string> classes;
  if (!_configuration.logs || _configuration.logs->commonLog.empty()) return classes;
  LoggedLines log(reachedPath(_viewpoint, _configuration.logs->commonLog));
  log.goBack(examinedBytes);
  for (const auto& [name, lines] : log.newLines().byClass)
    classes.push_back(name);
  return classes;
}

}  // namespace qmrkctl
