// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "tools/logtest/class_log.h"

namespace logtest {

/// Listens for changes of the class list and logs a line to each class every 100 ms. Prints on standard output which
/// classes are on, and each change when it appears. Returns after _seconds.
/// @param _stamps see logLine.
void watch(std::vector<ClassLog>& _classes, double _seconds, bool _stamps);

}  // namespace logtest
