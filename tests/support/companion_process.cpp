// SPDX-License-Identifier: MIT
#include "tests/support/companion_process.h"

#include <utility>

namespace testsupport {

CompanionProcess::~CompanionProcess() { release(); }

CompanionProcess::CompanionProcess(CompanionProcess&& _other) noexcept
    : process_(std::exchange(_other.process_, -1)),
      input_(std::exchange(_other.input_, -1)),
      output_(std::exchange(_other.output_, -1)),
      buffered_(std::move(_other.buffered_)) {}

CompanionProcess& CompanionProcess::operator=(CompanionProcess&& _other) noexcept {
  if (this != &_other) {
    release();
    process_ = std::exchange(_other.process_, -1);
    input_ = std::exchange(_other.input_, -1);
    output_ = std::exchange(_other.output_, -1);
    buffered_ = std::move(_other.buffered_);
  }
  return *this;
}

void CompanionProcess::release() {
  kill();
  closeIfOpen(output_);
}

bool CompanionProcess::takeLine(std::string& _line) {
  const std::size_t end = buffered_.find('\n');
  if (end == std::string::npos) return false;
  _line = buffered_.substr(0, end);
  buffered_.erase(0, end + 1);
  if (!_line.empty() && _line.back() == '\r') _line.pop_back();
  return true;
}

std::string CompanionProcess::ask(const std::string& _line) {
  send(_line);
  return readLine();
}

}  // namespace testsupport
