// SPDX-License-Identifier: MIT
// Any command line of LogTest, one argument a line: it is refused, or what it asks for is within its limits.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include "tools/logtest/options.h"

namespace {

// Takes the messages and the help, which are not looked at.
class Nowhere : public std::streambuf {
  int_type overflow(int_type _character) override { return traits_type::not_eof(_character); }
};

bool isWithinLimits(const logtest::Options& _options) {
  constexpr int mostLines = 1000000;
  constexpr double mostSeconds = 1000000;
  if (_options.lines < 0 || _options.lines > mostLines) return false;
  // What is not a number compares as false.
  if (_options.listen && !(*_options.listen >= 0 && *_options.listen <= mostSeconds)) return false;
  return !_options.overWrite || _options.app;
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the name is that of libFuzzer
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* _data, std::size_t _size) {
  if (_size > 500) return 0;
  static Nowhere nowhere;
  std::cout.rdbuf(&nowhere);
  std::cerr.rdbuf(&nowhere);
  std::istringstream lines(std::string(_data, _data + _size));
  std::vector<std::string> arguments{"LogTest"};
  for (std::string line; std::getline(lines, line);)
    arguments.push_back(line);
  std::vector<const char*> pointers;
  pointers.reserve(arguments.size());
  for (const std::string& argument : arguments)
    pointers.push_back(argument.c_str());
  logtest::Options options;
  const logtest::Parsed parsed = parseOptions(static_cast<int>(pointers.size()), pointers.data(), options);
  if (parsed == logtest::Parsed::run && !isWithinLimits(options)) std::abort();
  return 0;
}
