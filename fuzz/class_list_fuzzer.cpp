// SPDX-License-Identifier: MIT
// Any text: the walk over a class list finds what a naive reading does.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "logsetup/class_list.h"

namespace {

// Whatever ends in ";", character by character.
std::vector<std::string> naiveClassesOf(const std::string& _classList) {
  std::vector<std::string> classes;
  std::string pending;
  for (const char c : _classList) {
    if (c != ';') {
      pending += c;
      continue;
    }
    classes.push_back(pending);
    pending.clear();
  }
  return classes;
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the name is that of libFuzzer
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* _data, std::size_t _size) {
  const std::string text(_data, _data + _size);
  std::vector<std::string> classes;
  Quillmark_logging::forEachClass(text, [&classes](const std::string& _class, int _count) {
    classes.push_back(_class);
    if (static_cast<std::size_t>(_count) != classes.size()) std::abort();
  });
  if (classes != naiveClassesOf(text)) std::abort();
  return 0;
}
