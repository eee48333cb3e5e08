// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tools/logtest/setup_facts.h"

namespace logtest {

/// Why a set-up that found these facts failed: the first fact that makes it fail, in words, paths in the system's form.
std::string reasonOfFailure(const SetupFacts& _facts);

}  // namespace logtest
