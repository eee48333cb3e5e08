// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tools/qmrkctl/text_place.h"
#include "tools/qmrkctl/viewpoint.h"

namespace qmrkctl {

/// A key and its value in a .cfg file, as the library reads them.
struct Setting {
  std::string key;
  std::string value;  ///< without trailing blanks
  std::string file;   ///< in the library's form
  TextPlace keyPlace;
  TextPlace valuePlace;
  std::size_t keyBegin = 0;  ///< byte positions in the text
  std::size_t valueBegin = 0;
  std::size_t end = 0;      ///< position of the line feed that ends the pair
  bool isReplaced = false;  ///< a later line sets the same key
};

/// A configuration file, or the place where it would be.
struct ConfigurationFile {
  std::string path;        ///< in the library's form; empty: no such place
  std::string systemPath;  ///< the same in the system's form, as it is shown
  std::string rule;        ///< why it is this file, in words
  toolsystem::PathFacts facts;
  toolsystem::PathRights rights;
  bool isRead = false;            ///< this program could read it; else both texts are empty
  std::string bytes;              ///< of the file, unchanged
  std::string text;               ///< as the library reads it
  std::vector<Setting> settings;  ///< of a .cfg file, in order

  /// Whether the library finds it.
  bool exists() const { return rights.exists; }

  /// Whether the library can read it in a process of the viewpoint.
  bool isUsable() const;

  /// The effective setting of a key; null if there is none.
  const Setting* setting(std::string_view _key) const;
};

/// Reads a file, and its settings if it is a .cfg file.
/// @param _path in the library's form; may be empty.
/// @param _rule becomes the member of that name.
ConfigurationFile readConfigurationFile(const Viewpoint& _viewpoint, const std::string& _path,
                                        const std::string& _rule);

/// The same for a file that somebody named on the command line.
/// @param _systemPath its path in the system's form; on Linux the library may have no form for it.
ConfigurationFile readNamedFile(const Viewpoint& _viewpoint, const std::string& _systemPath);

/// The settings in a text, found by the library's own scanner.
/// @param _file becomes their member of that name.
std::vector<Setting> settingsOf(const std::string& _file, std::string_view _text);

/// The names in a folder other than those of folders, sorted by bytes; none if it cannot be read.
/// @param _folder in the library's form.
std::vector<std::string> fileNamesIn(const Viewpoint& _viewpoint, const std::string& _folder);

}  // namespace qmrkctl
