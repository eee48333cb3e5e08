// SPDX-License-Identifier: MIT
#include "logmanager/set_up_calls.h"

#include <algorithm>
#include <utility>

namespace boost::logging::detail {

// A run of "*" means no more than one, so that patterns which select the same are the same.
void SetUpCalls::note(Action _action, std::string_view _logs, CallableKind _kind, const SharedCallable& _callable,
                      std::string_view _name) {
  const std::size_t begin = texts_.size();
  texts_ += _logs;
  if (_logs.find("**") != std::string_view::npos) {
    const auto areStars = [](char _left, char _right) { return _left == '*' && _right == '*'; };
    texts_.erase(std::unique(texts_.begin() + static_cast<std::ptrdiff_t>(begin), texts_.end(), areStars),
                 texts_.end());
  }
  const std::size_t patternSize = texts_.size() - begin;
  texts_ += _name;
  calls_.push_back(Call{_action, _kind, _callable, begin, patternSize, _name.size()});
}

void SetUpCalls::shrink(std::size_t _size) noexcept {
  while (calls_.size() > _size) {
    const SharedCallable callable = std::move(calls_.back().callable);
    texts_.resize(calls_.back().begin);
    calls_.pop_back();
  }
}

}  // namespace boost::logging::detail
