// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tools/qmrkctl/finding.h"

namespace qmrkctl {

/// What is known about a code, for "explain" and for findings that add nothing of their own.
struct FindingKind {
  std::string_view code;
  Severity severity;
  std::string_view meaning;  ///< a heading: what is wrong
  std::string_view effect;   ///< what the library does then
  std::string_view fix;
  std::string_view example;  ///< what it looks like
};

/// All codes, sorted. Hundreds: 1 bytes, 2 finding files and redirection, 3 keys and values, 4 class lists, 5 folders
/// and rights, 6 processes, 7 environment and session.
std::span<const FindingKind> findingCatalogue();

/// The kind of a code; null if there is none.
const FindingKind* findingKind(std::string_view _code);

// The codes of each hundred, beside the check that finds them.
std::span<const FindingKind> byteKinds();
std::span<const FindingKind> redirectionKinds();
std::span<const FindingKind> keyKinds();
std::span<const FindingKind> classListKinds();
std::span<const FindingKind> folderKinds();
std::span<const FindingKind> processKinds();
std::span<const FindingKind> environmentKinds();

/// The effect of a code in the catalogue. Throws std::invalid_argument for an unknown code.
std::string findingEffect(std::string_view _code);

/// Where a finding is.
struct FindingPlace {
  std::string file;
  int line = 0;
  int column = 0;
};

/// A finding with the severity of its code. If effect or fix is empty, the catalogue's takes its place. Throws
/// std::invalid_argument for an unknown code.
Finding findingOf(std::string_view _code, const FindingPlace& _place, const std::string& _text,
                  const std::string& _fix = "", const std::string& _effect = "");

}  // namespace qmrkctl
