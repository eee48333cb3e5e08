// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <string>

namespace platform {

/// A long text in pieces, none of them empty, for users who free each as soon as they need it no more.
using TextPieces = std::deque<std::string>;

inline std::string joined(const TextPieces& _pieces) {
  std::string text;
  for (const std::string& piece : _pieces)
    text += piece;
  return text;
}

}  // namespace platform
