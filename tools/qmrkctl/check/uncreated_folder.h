// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace qmrkctl {

/// The topmost missing folder of a path that a set-up leaves out when it creates the others: one whose name ends with
/// ":", as that of a drive does, and that has others below it.
/// @param _folder as it is to be created, in the library's form.
/// @param _existing the beginning of the path that exists.
/// @return empty if there is none.
std::string uncreatedFolder(const std::string& _folder, const std::string& _existing);

}  // namespace qmrkctl
