// SPDX-License-Identifier: MIT
// Any configuration text: the rotation has the settings that stand there, or the defaults as it is required, and the
// numbers that it rolls by are those of the texts less one.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>

#include "config/cfg_lookup.h"
#include "config/cfg_parser.h"
#include "logsetup/rotation_settings.h"
#include "quillmark_logging_names.h"

namespace {

using namespace Quillmark_logging;

// What stands in the configuration file.
std::string cfgText;

std::optional<std::string> valueOf(const std::string& _key) {
  std::optional<std::string> value;
  for (const CfgPair& pair : scanCfgText(cfgText))
    if (pair.key == _key) value = pair.value.substr(0, pair.value.find_last_not_of(' ') + 1);
  return value;
}

// What C's atoi makes of a text, held within the numbers of 32 bits, less one; below the smallest comes the largest.
std::int64_t naiveOneLessThan(const std::string& _text) {
  constexpr std::int64_t least = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
  std::size_t place = std::min(_text.find_first_not_of(" \t\n\v\f\r"), _text.size());
  const bool isNegative = place < _text.size() && _text[place] == '-';
  if (place < _text.size() && (_text[place] == '-' || _text[place] == '+')) ++place;
  std::int64_t number = 0;
  for (; place < _text.size() && _text[place] >= '0' && _text[place] <= '9'; ++place)
    number = std::min(10 * number + (_text[place] - '0'), most + 1);
  number = std::clamp(isNegative ? -number : number, least, most);
  return number == least ? most : number - 1;
}

void expectNumberOf(const std::string& _setting) {
  if (oneLessThan(_setting) != naiveOneLessThan(_setting)) std::abort();
}

}  // namespace

// In place of the lookup in a file.
bool Quillmark_logging::getCfgValue(const std::string& _key, std::string& _value, const std::string& /*_ca*/) {
  const std::optional<std::string> value = valueOf(_key);
  if (value) _value = *value;
  return value.has_value();
}

// NOLINTNEXTLINE(readability-identifier-naming): the name is that of libFuzzer
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* _data, std::size_t _size) {
  cfgText.assign(_data, _data + _size);
  expandTabs(cfgText);
  const RotationSettings settings = readRotationSettings("CA12");
  const std::optional<std::string> limit = valueOf(SPEC_LOG_FILE_LIMIT);
  const std::optional<std::string> files = limit ? valueOf(SPEC_NR_OF_LOG_FILES) : std::nullopt;
  if (settings.fileLimit != limit.value_or(DEFAULT_SPEC_LOG_FILE_LIMIT)) std::abort();
  if (settings.nrOfFiles != files.value_or(DEFAULT_SPEC_NR_OF_LOG_FILES)) std::abort();
  expectNumberOf(settings.fileLimit);
  expectNumberOf(settings.nrOfFiles);
  return 0;
}
