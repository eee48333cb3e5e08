// SPDX-License-Identifier: MIT
#include "tests/support/linux/open_number.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "tests/support/temporary_folder.h"

namespace testsupport {

int numberOf(const std::string& _path) {
  std::error_code error;
  const std::string path = std::filesystem::canonical(replaced(_path, "\\", "/"), error);
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    if (std::filesystem::read_symlink(entry.path(), error) == path) return std::stoi(entry.path().filename());
  }
  return -1;
}

ForeignFile::ForeignFile(int _number, const std::string& _path) : number_(_number), path_(_path) {
  EXPECT_GE(_number, 0);
  const int file = ::open(replaced(_path, "\\", "/").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  EXPECT_EQ(::dup2(file, _number), _number);
  ::close(file);
}

ForeignFile::~ForeignFile() {
  if (isOpen()) ::close(number_);
}

}  // namespace testsupport
