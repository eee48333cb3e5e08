// SPDX-License-Identifier: MIT
#include "config/found_configuration.h"

#include <new>

namespace Quillmark_logging {
namespace {

constexpr char namePrefix[] = "qmrk_logging_";

FoundConfiguration*& outermost() noexcept {
  static thread_local constinit FoundConfiguration* found = nullptr;
  return found;
}

void copy(const std::string& _from, std::string& _to) noexcept {
  try {
    _to = _from;
  } catch (const std::bad_alloc&) {
    _to.clear();
  }
}

}  // namespace

FoundConfiguration::FoundConfiguration() noexcept : isOutermost_(outermost() == nullptr) {
  if (isOutermost_) outermost() = this;
}

FoundConfiguration::~FoundConfiguration() {
  if (isOutermost_) outermost() = nullptr;
}

void FoundConfiguration::noteCheckedPath(const std::string& _path) noexcept {
  if (outermost() != nullptr) copy(_path, outermost()->checkedPath_);
}

void FoundConfiguration::noteInitPath(const std::string& _path) noexcept {
  if (outermost() != nullptr) copy(_path, outermost()->initPath_);
}

void FoundConfiguration::noteGenerated() noexcept {
  if (outermost() != nullptr) outermost()->isGenerated_ = true;
}

std::string caOfPath(const std::string& _path) {
  const std::size_t nameBegin = _path.rfind('\\') + 1;
  const std::size_t caBegin = nameBegin + sizeof namePrefix - 1;
  const std::size_t end = _path.rfind('.');
  if (_path.compare(nameBegin, sizeof namePrefix - 1, namePrefix) != 0 || end == std::string::npos || end < caBegin) {
    return {};
  }
  return _path.substr(caBegin, end - caBegin);
}

}  // namespace Quillmark_logging
