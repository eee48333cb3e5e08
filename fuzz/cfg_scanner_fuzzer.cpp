// SPDX-License-Identifier: MIT
// Any text: the scanner of configuration files reads from it what a naive reading does.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "config/cfg_parser.h"
#include "tests/config/cfg_oracle.h"

using Quillmark_logging::CfgPair;
using Quillmark_logging::expandTabs;
using Quillmark_logging::scanCfgText;

// NOLINTNEXTLINE(readability-identifier-naming): the name is that of libFuzzer
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* _data, std::size_t _size) {
  const std::string text(_data, _data + _size);
  std::string expanded = text;
  expandTabs(expanded);
  std::vector<std::string> pairs;
  for (const CfgPair& pair : scanCfgText(expanded))
    pairs.push_back(pair.key + "|" + pair.value);
  if (pairs != testsupport::naivePairsOf(text)) std::abort();
  return 0;
}
