// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace testsupport {

/// The number under which this process has a file open; -1 when there is none.
/// @param _path with separators of either kind, as below.
int numberOf(const std::string& _path);

/// While it lives, a new file has a number that some other file had, as when an application closes what is not its own
/// and opens something else.
class ForeignFile {
 public:
  ForeignFile(int _number, const std::string& _path);
  ~ForeignFile();
  ForeignFile(const ForeignFile&) = delete;
  ForeignFile& operator=(const ForeignFile&) = delete;

  /// Whether the number still leads to the file.
  bool isOpen() const { return numberOf(path_) == number_; }

 private:
  const int number_;
  const std::string path_;
};

}  // namespace testsupport
