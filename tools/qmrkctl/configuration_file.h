// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tools/qmrkctl/text_place.h"
#include "tools/qmrkctl/viewpoint.h"

namespace qmrkctl {

/// A pair of a .cfg file, as the library reads it.
struct Setting {
  std::string key;
  std::string value;  ///< without the blanks at its end
  std::string file;   ///< in the library's form
  TextPlace keyPlace;
  TextPlace valuePlace;
  std::size_t keyBegin = 0;  ///< positions in the text
  std::size_t valueBegin = 0;
  std::size_t end = 0;      ///< of the line feed that ends the pair
  bool isReplaced = false;  ///< the same key comes again below
};

/// A file of the configuration, or the place where it would be.
struct ConfigurationFile {
  std::string path;  ///< in the library's form; empty: there is no such place
  std::string rule;  ///< why it is this one, a sentence
  toolsystem::PathFacts facts;
  toolsystem::PathRights rights;
  bool isRead = false;            ///< this program could read it; else both texts are empty
  std::string bytes;              ///< as they stand in the file
  std::string text;               ///< as the library reads it
  std::vector<Setting> settings;  ///< of a .cfg file, in their order

  /// Whether the library finds it there.
  bool exists() const { return rights.exists; }

  /// Whether the library can read it in a process of the viewpoint.
  bool isUsable() const;

  /// The setting that counts for a key; null when there is none.
  const Setting* setting(std::string_view _key) const;
};

/// Reads a file, and its settings if it is a .cfg file.
/// @param _path in the library's form; may be empty.
ConfigurationFile readConfigurationFile(const Viewpoint& _viewpoint, const std::string& _path,
                                        const std::string& _rule);

/// The pairs of a text, by the library's own scanner.
std::vector<Setting> settingsOf(const std::string& _file, std::string_view _text);

/// The names in a folder that are no folders, sorted by their bytes; none where it cannot be read.
/// @param _folder in the library's form.
std::vector<std::string> fileNamesIn(const Viewpoint& _viewpoint, const std::string& _folder);

}  // namespace qmrkctl
