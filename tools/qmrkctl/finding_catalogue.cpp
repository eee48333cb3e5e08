// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/finding_catalogue.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace qmrkctl {
namespace {

std::vector<FindingKind> allKinds() {
  std::vector<FindingKind> all;
  for (const auto& kinds : {byteKinds(), redirectionKinds(), keyKinds(), classListKinds(), folderKinds(),
                            processKinds(), environmentKinds()}) {
    all.insert(all.end(), kinds.begin(), kinds.end());
  }
  std::sort(all.begin(), all.end(), [](const FindingKind& _a, const FindingKind& _b) { return _a.code < _b.code; });
  return all;
}

}  // namespace

std::span<const FindingKind> findingCatalogue() {
  static const std::vector<FindingKind> all = allKinds();
  return all;
}

const FindingKind* findingKind(std::string_view _code) {
  const auto all = findingCatalogue();
  const auto found = std::find_if(all.begin(), all.end(), [_code](const FindingKind& _k) { return _k.code == _code; });
  return found == all.end() ? nullptr : &*found;
}

std::string findingEffect(std::string_view _code) { return findingOf(_code, {}, "").effect; }

Finding findingOf(std::string_view _code, const FindingPlace& _place, const std::string& _text, const std::string& _fix,
                  const std::string& _effect) {
  const FindingKind* const kind = findingKind(_code);
  if (kind == nullptr) throw std::invalid_argument("no finding has the code " + std::string(_code));
  return {std::string(_code),
          kind->severity,
          _place.file,
          _place.line,
          _place.column,
          _text,
          _effect.empty() ? std::string(kind->effect) : _effect,
          _fix.empty() ? std::string(kind->fix) : _fix};
}

}  // namespace qmrkctl
