// SPDX-License-Identifier: MIT
#include "bench/subject.h"

namespace bench {

std::vector<SubjectEntry> unpackagedEntries() { return {}; }

}  // namespace bench
