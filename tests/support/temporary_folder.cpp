// SPDX-License-Identifier: MIT
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "tests/support/system_path.h"

namespace testsupport {
namespace {

namespace fs = std::filesystem;

std::string uniqueName() {
  std::random_device device;
  std::ostringstream name;
  name << "qmrk-test-" << std::hex << device() << device();
  return name.str();
}

}  // namespace

TemporaryFolder::TemporaryFolder() : TemporaryFolder(fs::temp_directory_path().string()) {}

TemporaryFolder::TemporaryFolder(const std::string& _parent) {
  const fs::path folder = fs::path(_parent) / uniqueName();
  fs::create_directory(folder);
  fs::permissions(folder, fs::perms::all);
  path_ = pathText(folder);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(systemPath(path_), ignored);
}

void writeFile(const std::string& _path, const std::string& _bytes) {
  std::ofstream file(systemPath(_path), std::ios::binary | std::ios::trunc);
  file << _bytes;
  file.close();
  ASSERT_TRUE(file.good()) << "cannot write " << _path;
}

std::string readFile(const std::string& _path) {
  std::ifstream file(systemPath(_path), std::ios::binary);
  EXPECT_TRUE(file.is_open()) << "cannot read " << _path;
  std::ostringstream bytes;
  if (file.peek() != std::ifstream::traits_type::eof()) {
    bytes << file.rdbuf();
  }
  return bytes.str();
}

bool exists(const std::string& _path) { return fs::exists(systemPath(_path)); }

void removeAll(const std::string& _path) { EXPECT_TRUE(removeAtOnce(systemPath(_path))) << "cannot remove " << _path; }

void makeFolders(const std::string& _path) {
  fs::create_directories(systemPath(_path));
  ASSERT_TRUE(fs::is_directory(systemPath(_path))) << "cannot create " << _path;
}

std::vector<std::string> namesIn(const std::string& _path) {
  std::vector<std::string> names;
  if (fs::is_directory(systemPath(_path))) {
    for (const auto& entry : fs::directory_iterator(systemPath(_path))) {
      names.push_back(pathText(entry.path().filename()));
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string replaced(std::string _text, const std::string& _from, const std::string& _to) {
  for (std::size_t at = _text.find(_from); at != std::string::npos; at = _text.find(_from, at + _to.size())) {
    _text.replace(at, _from.size(), _to);
  }
  return _text;
}

}  // namespace testsupport
