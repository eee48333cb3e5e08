// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace qmrkctl {

/// What a change does with a class list.
enum class ChangeKind { enable, disable, only, set, clear };

/// "enable", "disable" ...
std::string_view changeName(ChangeKind _kind);

}  // namespace qmrkctl
