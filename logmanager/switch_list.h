// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "logmanager/names/name_pattern.h"
#include "logmanager/names/record_blocks.h"
#include "logmanager/names/sorted_globs.h"
#include "logmanager/set_up_calls.h"

namespace boost::logging::detail {

/// What set-up calls switch on and off, if one of them is for all logs: that call and those after it. A list of classes
/// is such calls, and can have a million of them. They stay where they were noted; here are only tables of their
/// places. Built once, then only read. Not synchronised.
class SwitchList {
 public:
  SwitchList() = default;

  /// Shares the memory of the calls. Nothing may be noted there or forgotten from then on. May throw std::bad_alloc.
  explicit SwitchList(const SetUpCalls& _calls);

  /// What the latest call for all logs says; nothing if there is none, and then the list is empty.
  std::optional<bool> forAll() const { return forAll_; }

  /// What the latest call that selects the name says, other than the one for all logs; nothing when none selects it.
  std::optional<bool> find(std::string_view _name) const;

  /// How many patterns it has.
  std::size_t size() const { return plainCount_ + wild_.places().size(); }

 private:
  using Place = RecordBlocks::Place;

  void build(const SetUpCalls& _calls);
  void beginAt(const SetUpCalls::Call& _call);
  void makeSlots(std::size_t _patterns);
  void enterPlain(const SetUpCalls::Call& _call);
  std::size_t slotOf(std::string_view _name, std::size_t _hash) const;

  std::shared_ptr<const RecordBlocks> records_;
  std::optional<bool> forAll_;
  /// Of the call for all logs. All places of the list are greater.
  Place begin_ = 0;
  /// The places of the plain patterns, each at its hash or, where that is taken, at the next free slot. A slot with a
  /// place before the list is free: so none has to be emptied when another call for all logs is found.
  std::vector<Place> slots_;
  std::size_t plainCount_ = 0;
  /// No plain pattern is longer, so longer parts of a name need no look-up.
  std::size_t longestPlain_ = 0;
  SortedGlobs wild_;
};

}  // namespace boost::logging::detail
