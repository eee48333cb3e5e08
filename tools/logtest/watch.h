// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "tools/logtest/class_log.h"

namespace logtest {

/// Listens for changes of the enabled classes and logs a line to each class every 100 ms. Reports on standard output
/// which classes are on, and each change as it appears.
/// @param _stamps see logLine.
void watch(std::vector<ClassLog>& _classes, double _seconds, bool _stamps);

}  // namespace logtest
