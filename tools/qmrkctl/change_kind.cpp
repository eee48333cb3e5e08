// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/change_kind.h"

namespace qmrkctl {

std::string_view changeName(ChangeKind _kind) {
  switch (_kind) {
    case ChangeKind::enable:
      return "enable";
    case ChangeKind::disable:
      return "disable";
    case ChangeKind::only:
      return "only";
    case ChangeKind::set:
      return "set";
    case ChangeKind::clear:
      break;
  }
  return "clear";
}

}  // namespace qmrkctl
