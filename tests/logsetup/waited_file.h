// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>
#include <thread>

#include "tests/support/temporary_folder.h"

namespace testsupport {

/// The bytes of a file that another thread writes, once it has that many; else those after 30 seconds.
inline std::string fileOfLength(const std::string& _path, std::size_t _length) {
  const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  std::string bytes;
  while (bytes.size() < _length && std::chrono::steady_clock::now() < giveUp) {
    std::this_thread::yield();
    if (exists(_path)) bytes = readFile(_path);
  }
  return bytes;
}

}  // namespace testsupport
