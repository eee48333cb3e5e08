// SPDX-License-Identifier: MIT
#include "tests/support/golden.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace testsupport {
namespace {

void writeBytes(const std::string& _path, const std::string& _bytes) {
  std::ofstream(_path, std::ios::binary | std::ios::trunc) << _bytes;
}

}  // namespace

::testing::AssertionResult matchesGolden(const std::string& _text, const std::string& _name) {
  const std::string path = std::string(QMRK_GOLDEN_DIR) + "/" + _name;
  const char* const renew = std::getenv("QMRK_RENEW_GOLDENS");
  if (renew != nullptr && std::string(renew) == "1") {
    writeBytes(path, _text);
    return ::testing::AssertionSuccess();
  }
  std::ifstream file(path, std::ios::binary);
  std::ostringstream approved;
  approved << file.rdbuf();
  if (file.is_open() && approved.str() == _text) {
    return ::testing::AssertionSuccess();
  }
  const std::string received = _name + ".received";
  writeBytes(received, _text);
  return ::testing::AssertionFailure() << "differs from " << path << ", see " << received << "\nreceived:\n" << _text;
}

}  // namespace testsupport
