// SPDX-License-Identifier: MIT
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

namespace testsupport {
namespace {

namespace fs = std::filesystem;

// Slashes serve both systems.
fs::path native(std::string _path) {
  std::replace(_path.begin(), _path.end(), '\\', '/');
  return _path;
}

std::string uniqueName() {
  std::random_device device;
  std::ostringstream name;
  name << "qmrk-test-" << std::hex << device() << device();
  return name.str();
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  const fs::path folder = fs::temp_directory_path() / uniqueName();
  fs::create_directory(folder);
  fs::permissions(folder, fs::perms::all);
  path_ = folder.string();
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(native(path_), ignored);
}

void writeFile(const std::string& _path, const std::string& _bytes) {
  std::ofstream file(native(_path), std::ios::binary | std::ios::trunc);
  file << _bytes;
  file.close();
  ASSERT_TRUE(file.good()) << "cannot write " << _path;
}

std::string readFile(const std::string& _path) {
  std::ifstream file(native(_path), std::ios::binary);
  EXPECT_TRUE(file.is_open()) << "cannot read " << _path;
  std::ostringstream bytes;
  if (file.peek() != std::ifstream::traits_type::eof()) {
    bytes << file.rdbuf();
  }
  return bytes.str();
}

bool exists(const std::string& _path) { return fs::exists(native(_path)); }

void removeAll(const std::string& _path) { fs::remove_all(native(_path)); }

void makeFolders(const std::string& _path) {
  fs::create_directories(native(_path));
  ASSERT_TRUE(fs::is_directory(native(_path))) << "cannot create " << _path;
}

std::vector<std::string> namesIn(const std::string& _path) {
  std::vector<std::string> names;
  if (fs::is_directory(native(_path))) {
    for (const auto& entry : fs::directory_iterator(native(_path))) {
      names.push_back(entry.path().filename().string());
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
