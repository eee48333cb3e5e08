// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/text_pieces.h"

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

/// The same for a list in pieces. Each piece is gone when its last entry has been found.
template <class EntryFound>
void forEachClass(platform::TextPieces&& _classList, EntryFound _entryFound) {
  int count = 0;
  std::string entry;
  for (; !_classList.empty(); _classList.pop_front()) {
    const std::string& piece = _classList.front();
    std::string::size_type begin = 0;
    for (auto end = piece.find(';'); end != std::string::npos; end = piece.find(';', begin)) {
      entry.append(piece, begin, end - begin);
      _entryFound(entry, ++count);
      entry.clear();
      begin = end + 1;
    }
    entry.append(piece, begin);
  }
}

}  // namespace Quillmark_logging
