// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace testsupport {

/// A new folder with a unique name, open to every user (mode 0777 on Linux), removed with its content at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  /// Creates it in this folder instead of the system's folder for temporary files.
  explicit TemporaryFolder(const std::string& _parent);
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// The folder in the system's form, without a final separator.
  const std::string& path() const { return path_; }

  /// The path of a file in it, in the library's form: with a backslash before the name.
  std::string file(const std::string& _name) const { return path_ + "\\" + _name; }

 private:
  std::string path_;
};

// The helpers below accept paths in either form, fail the test if they cannot do their work, and leave bytes unchanged.

void writeFile(const std::string& _path, const std::string& _bytes);
std::string readFile(const std::string& _path);
bool exists(const std::string& _path);
void removeAll(const std::string& _path);
void makeFolders(const std::string& _path);
/// The names in the folder, sorted; none if the folder is missing.
std::vector<std::string> namesIn(const std::string& _path);

/// The text as the library writes it to a file: with CR LF on Windows, LF on Linux, for each "\n".
std::string nativeLineEnds(const std::string& _text);

/// The text with every occurrence of _from replaced with _to.
std::string replaced(std::string _text, const std::string& _from, const std::string& _to);

}  // namespace testsupport
