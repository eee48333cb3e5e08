// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "quillmark_logging.h"

namespace {

TEST(HeaderVersion, MatchesTheProject) { EXPECT_STREQ(QMRK_LOG_VERSION_STRING, QMRK_PROJECT_VERSION); }

TEST(HeaderVersion, MatchesTheManifest) { EXPECT_STREQ(QMRK_LOG_VERSION_STRING, QMRK_MANIFEST_VERSION); }

TEST(HeaderVersion, HasTheSameNumbersAsItsText) {
  const auto number = [](int _number) { return std::to_string(_number); };
  EXPECT_EQ(number(QMRK_LOG_VERSION_MAJOR) + "." + number(QMRK_LOG_VERSION_MINOR) + "." +
                number(QMRK_LOG_VERSION_PATCH) + "." + number(QMRK_LOG_VERSION_TWEAK),
            QMRK_LOG_VERSION_STRING);
}

TEST(HeaderVersion, ComparesAsOneNumber) {
  EXPECT_EQ(QMRK_LOG_VERSION,
            1000000 * QMRK_LOG_VERSION_MAJOR + 1000 * QMRK_LOG_VERSION_MINOR + QMRK_LOG_VERSION_PATCH);
}

}  // namespace
