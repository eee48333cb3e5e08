// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/class_cover.h"

#include <algorithm>
#include <iterator>

#include "tools/qmrkctl/class_entries.h"
#include "tools/qmrkctl/shown_text.h"

namespace qmrkctl {

std::string coverText(const std::string& _name, const std::vector<std::string>& _entries) {
  const auto cover = std::find_if(_entries.begin(), _entries.end(), [&_name](const std::string& _entry) {
    return _entry != _name && selects(_entry, _name);
  });
  return cover == _entries.end() ? "" : shown(_name) + " stays on: " + shown(*cover) + " selects it";
}

std::vector<std::string> entriesAfter(std::int64_t _end, const std::vector<std::string>& _entries,
                                      const std::map<std::string, std::int64_t>& _ends) {
  std::vector<std::string> entries;
  std::copy_if(_entries.begin(), _entries.end(), std::back_inserter(entries), [&](const std::string& _entry) {
    const auto end = _ends.find(_entry);
    return end == _ends.end() || end->second > _end;
  });
  return entries;
}

}  // namespace qmrkctl
