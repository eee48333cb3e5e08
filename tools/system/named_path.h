// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace toolsystem {

/// A path that came from a command line, in the system's form, for functions that take the library's. On Linux the
/// library has no form for a name with a backslash; the file then goes by its descriptor. One thread at a time may use
/// an object.
class NamedPath {
 public:
  /// @param _path may name nothing.
  explicit NamedPath(const std::string& _path);
  ~NamedPath();
  NamedPath(const NamedPath&) = delete;
  NamedPath& operator=(const NamedPath&) = delete;

  /// Leads to the file while this object lives; to nothing if there is no such file.
  const std::string& inLibraryForm() const { return path_; }

 private:
  int file_ = -1;
  std::string path_;
};

}  // namespace toolsystem
