// SPDX-License-Identifier: MIT
#include "tests/stress/linux/scale.h"

#include <cstdio>
#include <cstdlib>

namespace stress {

int scaled(int _short) {
  const char* const scale = std::getenv("QMRK_STRESS_SCALE");
  const int factor = scale == nullptr ? 1 : std::atoi(scale);
  return _short * (factor < 1 ? 1 : factor);
}

// Past std::cout, which a test may have captured.
void tell(const std::string& _figures) {
  std::printf("figures: %s\n", _figures.c_str());
  std::fflush(stdout);
}

}  // namespace stress
