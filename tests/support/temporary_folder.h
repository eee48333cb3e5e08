// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace testsupport {

/// A fresh folder with a name of its own, open to every user (mode 0777 on Linux), removed with its content at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  /// In this folder, not in that of the system.
  explicit TemporaryFolder(const std::string& _parent);
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// The folder as the system writes it, without a final separator.
  const std::string& path() const { return path_; }

  /// path() + a backslash + _name: the form in which the library holds paths.
  std::string file(const std::string& _name) const { return path_ + "\\" + _name; }

 private:
  std::string path_;
};

/// The helpers below accept paths in either form, fail the test when they cannot do their work, and keep bytes as they
/// are.
void writeFile(const std::string& _path, const std::string& _bytes);
std::string readFile(const std::string& _path);
bool exists(const std::string& _path);
void removeAll(const std::string& _path);
void makeFolders(const std::string& _path);
/// The names in the folder, sorted; none when the folder is missing.
std::vector<std::string> namesIn(const std::string& _path);

/// The text as it stands in a file to which the library wrote it: each "\n" is CR LF on Windows, LF on Linux.
std::string nativeLineEnds(const std::string& _text);

/// The text with every occurrence of _from replaced by _to.
std::string replaced(std::string _text, const std::string& _from, const std::string& _to);

}  // namespace testsupport
