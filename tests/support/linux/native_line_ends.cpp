// SPDX-License-Identifier: MIT
#include "tests/support/temporary_folder.h"

namespace testsupport {

std::string nativeLineEnds(const std::string& _text) { return _text; }

}  // namespace testsupport
