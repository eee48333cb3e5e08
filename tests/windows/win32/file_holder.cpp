// SPDX-License-Identifier: MIT
// file_holder FILE: holds the file open, as an editor or a virus scanner would, until its input ends. Says "held" once
// it does.
#include <windows.h>

#include <iostream>
#include <string>

int main(int _count, char** _arguments) {
  if (_count != 2) return 2;
  // Everybody may read and write it meanwhile, but nobody rename or remove it.
  const HANDLE file = ::CreateFileA(_arguments[1], GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    std::cout << "not held" << std::endl;
    return 1;
  }
  std::cout << "held" << std::endl;
  for (std::string line; std::getline(std::cin, line);) {
  }
  return 0;
}
