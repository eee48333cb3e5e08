// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Quillmark_logging {

/// Calls _entryFound(entry, count) for each entry of a class list, in order and as soon as its ";" is found; the first
/// entry has the count 1. An entry is a logs pattern, taken character for character: nothing is trimmed, and two ";" in
/// a row enclose an empty entry. Drops what follows the last ";".
/// @param _entryFound takes (const std::string&, int); what it throws ends the walk and is passed on.
template <class EntryFound>
void forEachClass(const std::string& _classList, EntryFound _entryFound) {
  int count = 0;
  std::string::size_type begin = 0;
  for (auto end = _classList.find(';'); end != std::string::npos; end = _classList.find(';', begin)) {
    _entryFound(_classList.substr(begin, end - begin), ++count);
    begin = end + 1;
  }
}

}  // namespace Quillmark_logging
