// SPDX-License-Identifier: MIT
#include "bench/subject.h"

namespace bench {

std::vector<SubjectEntry> subjectEntries() {
  return {
      {"raw", makeRaw},
      {"qmrk", makeQmrk},
      {"qmrk-fmt", makeQmrkFormatted},
      {"spdlog", makeSpdlog},
      {"log4cplus", makeLog4cplus},
      {"log4cxx", makeLog4cxx},
      {"Boost.Log", makeBoostLog},
      {"glog", makeGlog},
  };
}

}  // namespace bench
