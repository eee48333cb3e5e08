// SPDX-License-Identifier: MIT
// How long it takes to load the library named by the argument into a fresh process.
#include <dlfcn.h>

#include <chrono>
#include <iostream>

int main(int _argc, char** _argv) {
  const auto start = std::chrono::steady_clock::now();
  if (_argc != 2 || ::dlopen(_argv[1], RTLD_NOW) == nullptr) {
    std::cerr << "load_library_bench LIBRARY: the library cannot be loaded\n";
    return 1;
  }
  const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
  std::cout << "us " << taken.count() << std::endl;
  return 0;
}
