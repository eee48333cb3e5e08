// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// One pair of a configuration text. The value still has the blanks at its end.
struct CfgPair {
  std::string key;
  std::string value;
};

/// Replaces every tab by eight blanks, as is done before a text is scanned.
void expandTabs(std::string& _text);

/// The pairs of a configuration text, in order, repeated keys included. "KEY=value" and "KEY:value" make a pair, which
/// ends at the first line feed after the value has begun. A comment runs from "#", or from "//" after a blank or a line
/// end, to the end of its line. What is pending at the end of the text is dropped.
std::vector<CfgPair> scanCfgText(const std::string& _text);
