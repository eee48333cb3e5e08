// SPDX-License-Identifier: MIT
#include "bench/subject.h"

namespace bench {

std::vector<SubjectEntry> subjectEntries() {
  return {{"raw", makeRaw}, {"qmrk", makeQmrk}, {"qmrk-fmt", makeQmrkFormatted}};
}

}  // namespace bench
