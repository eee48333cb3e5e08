// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace qmrkctl {

// The first files of a CA, as texts with LF line ends: with comments, and without anything that "check" would report.

/// The .cfg file of the CA.
/// @param _ca satisfies isNameOfCa.
std::string startingCfg(const std::string& _ca);
/// The generic .cfg file, which redirects to the CA.
std::string startingGeneric(const std::string& _ca);
/// A class list that switches everything on. It can hold no comments; those are in the .cfg file.
std::string startingInit();

/// Whether a text can name a CA in a file name: 1 to 64 ASCII letters, digits, "_" and "-", but not the generic CA.
bool isNameOfCa(const std::string& _text);

}  // namespace qmrkctl
