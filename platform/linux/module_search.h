// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace platform {

/// The path of the file from which the code of this function was loaded: the shared library, or the program that has
/// the objects linked into it. Empty when the system does not say.
std::string ownFile();

/// The folders that are searched for a module, in this order: that of the running program, that of ownFile(), those of
/// the loader, those of the shell. Some may occur twice, some may not exist.
std::vector<std::string> moduleFolders();

/// The entries of a list of folders such as PATH, separated by any of the given characters. An empty entry is the
/// current folder. A null list has none.
std::vector<std::string> foldersOfList(const char* _list, const char* _separators);

}  // namespace platform
