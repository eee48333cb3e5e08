// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "logmanager/names/glob.h"

namespace boost::logging::detail {

/// One value per glob, ordered by the part of the glob before its first "*" and then by the part after its last one, so
/// that a search looks only at globs whose two ends fit. Not synchronised.
template <typename Value>
class GlobIndex {
 public:
  /// The value of a glob, default-constructed when it has none. The reference is valid until the value is erased.
  Value& at(std::string_view _glob) {
    Bucket& bucket = byBeginning_[std::string(globBeginning(_glob))][std::string(globEnding(_glob))];
    const auto [place, isNew] = bucket.try_emplace(std::string(_glob));
    if (isNew) ++size_;
    return place->second;
  }

  /// Null when the glob has no value. Takes no memory.
  Value* find(std::string_view _glob) noexcept {
    const auto endings = byBeginning_.find(globBeginning(_glob));
    if (endings == byBeginning_.end()) return nullptr;
    const auto bucket = endings->second.find(globEnding(_glob));
    if (bucket == endings->second.end()) return nullptr;
    const auto place = bucket->second.find(_glob);
    return place == bucket->second.end() ? nullptr : &place->second;
  }

  void erase(std::string_view _glob) noexcept {
    const auto endings = byBeginning_.find(globBeginning(_glob));
    if (endings == byBeginning_.end()) return;
    const auto bucket = endings->second.find(globEnding(_glob));
    if (bucket == endings->second.end()) return;
    const auto place = bucket->second.find(_glob);
    if (place == bucket->second.end()) return;
    bucket->second.erase(place);
    --size_;
    if (bucket->second.empty()) endings->second.erase(bucket);
    if (endings->second.empty()) byBeginning_.erase(endings);
  }

  template <typename Predicate>
  void eraseIf(Predicate _isUnneeded) noexcept {
    for (auto& [beginning, endings] : byBeginning_) {
      for (auto& [ending, bucket] : endings)
        size_ -= std::erase_if(bucket, [&](const auto& _entry) { return _isUnneeded(_entry.second); });
      std::erase_if(endings, [](const auto& _entry) { return _entry.second.empty(); });
    }
    std::erase_if(byBeginning_, [](const auto& _entry) { return _entry.second.empty(); });
  }

  /// How many globs have a value.
  std::size_t size() const { return size_; }

  // Each calls the test, bool(Value&), for the values of some globs until it holds, and returns whether it did. A glob
  // may come up twice.

  /// The globs that match the text; if the text is a glob, those that match all that it matches.
  template <typename Test>
  bool anyMatching(std::string_view _text, Test _test) {
    return anyPartOf(byBeginning_, _text, [&](Endings& _endings) {
      return anyPartOf(_endings, _text, [&](Bucket& _bucket) {
        return any(
            _bucket, [_text](std::string_view _glob) { return globMatches(_glob, _text); }, _test);
      });
    });
  }

  /// The globs that match nothing but what the given one matches.
  template <typename Test>
  bool anyMatchedBy(std::string_view _glob, Test _test) {
    return anyExtensionOf(byBeginning_, globBeginning(_glob), [&](Endings& _endings) {
      return anyExtensionOf(_endings, globEnding(_glob), [&](Bucket& _bucket) {
        return any(
            _bucket, [_glob](std::string_view _other) { return globMatches(_glob, _other); }, _test);
      });
    });
  }

  /// The globs that match a text which the given one matches as well.
  template <typename Test>
  bool anyMeeting(std::string_view _glob, Test _test) {
    return anyRelatedTo(byBeginning_, globBeginning(_glob), [&](Endings& _endings) {
      return anyRelatedTo(_endings, globEnding(_glob), [&](Bucket& _bucket) {
        return any(
            _bucket, [_glob](std::string_view _other) { return globsMeet(_glob, _other); }, _test);
      });
    });
  }

 private:
  using Bucket = std::map<std::string, Value, std::less<>>;
  using Endings = std::map<std::string, Bucket, NameLess<FromEnding>>;

  template <typename Fits, typename Test>
  static bool any(Bucket& _bucket, Fits _fits, Test& _test) {
    return std::ranges::any_of(_bucket, [&](auto& _entry) { return _fits(_entry.first) && _test(_entry.second); });
  }

  std::map<std::string, Endings, NameLess<FromBeginning>> byBeginning_;
  std::size_t size_ = 0;
};

}  // namespace boost::logging::detail
