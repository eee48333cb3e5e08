// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace platform {

/// The path of the file from which the code of this function was loaded: the shared library, or the program that has
/// the objects linked into it. Empty when the system does not tell.
std::string ownFile();

/// The folders in which a module is looked for, in the order of the search: that of the running program, that of
/// ownFile(), those of the loader and those of the shell. Some may be named twice, some may be missing.
std::vector<std::string> moduleFolders();

/// The entries of a list of folders such as PATH, separated by any of the given characters. An empty entry is the
/// current folder. A null list has none.
std::vector<std::string> foldersOfList(const char* _list, const char* _separators);

}  // namespace platform
