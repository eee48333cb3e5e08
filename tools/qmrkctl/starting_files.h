// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace qmrkctl {

// The files with which a CA starts: commented, and without anything that "check" would find.

std::string startingCfg(const std::string& _ca);
std::string startingGeneric(const std::string& _ca);
/// A class list has no comments; what there is to say stands in the .cfg file.
std::string startingInit();

/// Whether a text can name a CA in the name of a file: letters, digits, "_" and "-", and not the generic one.
bool isNameOfCa(const std::string& _text);

}  // namespace qmrkctl
