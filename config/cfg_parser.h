// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillmark_logging {

/// One pair of a configuration text. The value still has the blanks at its end.
struct CfgPair {
  std::string key;
  std::string value;
};

/// Where a pair stands: positions in the text.
struct CfgPairPlace {
  std::size_t key = 0;    ///< of the first character of the key
  std::size_t value = 0;  ///< behind the separator
  std::size_t end = 0;    ///< of the line feed that ends the pair
};

/// Takes (key, value, place), which live for the call only. Tabs are still tabs, so that a text of tabs does not take
/// eight times its memory before somebody asks for it.
using TakeCfgPair = std::function<void(std::string_view, std::string_view, const CfgPairPlace&)>;

/// Replaces every tab by eight blanks, which it stands for in keys and values; in place, or in a copy.
void expandTabs(std::string& _text);
std::string withTabsExpanded(std::string_view _text);

/// Calls _take for each pair of a configuration text, in order, repeated keys included; the value still has the blanks
/// at its end. "KEY=value" and "KEY:value" make a pair, which ends at the first line feed after the value has begun. A
/// comment runs from "#", or from "//" after a blank, a tab or a line end, to the end of its line. What is pending at
/// the end of the text is dropped. Takes linear time, and copies only pairs with a comment or a slash in them.
void forEachCfgPair(std::string_view _text, const TakeCfgPair& _take);

/// The same pairs all at once, with their tabs expanded.
std::vector<CfgPair> scanCfgText(std::string_view _text);

}  // namespace Quillmark_logging
