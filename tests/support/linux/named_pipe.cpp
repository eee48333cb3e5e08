// SPDX-License-Identifier: MIT
#include "tests/support/linux/named_pipe.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

#include "tests/support/temporary_folder.h"

namespace testsupport {

void makeNamedPipe(const std::string& _path) {
  std::string path = _path;
  std::replace(path.begin(), path.end(), '\\', '/');
  removeAll(path);
  EXPECT_EQ(::mkfifo(path.c_str(), 0600), 0) << path;
}

}  // namespace testsupport
