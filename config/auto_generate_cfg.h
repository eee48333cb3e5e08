// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

/// Writes a generic configuration file that redirects to the first customer adaptation (CA) whose own file lies in the
/// configuration folder. Use an object once, on one thread. Failures throw nothing.
class AutoGenerateCfg {
 public:
  /// @param _trace whether the object writes to the console, its listing included.
  explicit AutoGenerateCfg(bool _trace);

  /// Sets the configuration folder, without a final backslash; it counts whatever the result is.
  /// @return whether it exists and can be read and written.
  bool setCfgPath(const std::string& _path);

  /// Writes qmrk_logging_GE.cfg into the folder, over an existing one.
  /// @return false, with nothing written, when it finds no CA or cannot open the file; also when the disk is full,
  ///   which leaves no file.
  bool generateGenericCfgFile();

  /// Finds the CA in the names of the folder.
  bool getCA();

  /// Reads the names of a folder, not of those below it, into the directory map.
  /// @param _filter what a name must contain; empty admits all.
  bool traverseDirectory(const std::string& _directory, const std::string& _filter);

  /// Prints the directory map, which it fills from _directory if it is still empty.
  /// @param _filter what a name must contain to be printed.
  bool showDirContent(const std::string& _directory, const std::string& _filter);

 private:
  std::string cfgPath_;
  std::string fileName_;
  std::string customerAdaptation_;
  bool trace_;
  /// Entry name to "file" or "dir"; filled once.
  std::map<std::string, std::string> dcMap_;
};
