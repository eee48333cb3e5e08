// SPDX-License-Identifier: MIT
#include "platform/linux/event_name.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/named_event.h"

namespace {

using namespace platform;

TEST(EventName, MayContainLettersDigitsDotsUnderscoresAndHyphens) {
  EXPECT_EQ(checkEventName("QMRK_LOG_EVENT"), noError);
  EXPECT_EQ(checkEventName("a-Z.0_9"), noError);
  EXPECT_EQ(checkEventName("x"), noError);
}

TEST(EventName, MayContainNothingElse) {
  int allowed = 0;
  for (int character = 0; character < 256; ++character) {
    const bool passes = checkEventName(std::string("x") + static_cast<char>(character)) == noError;
    allowed += passes ? 1 : 0;
    EXPECT_FALSE(passes && (character == '/' || character == '\\' || character == 0 || character > 127)) << character;
  }
  EXPECT_EQ(allowed, 26 + 26 + 10 + 3);
}

TEST(EventName, MayBeNeitherEmptyNorADotPath) {
  for (const char* name : {"", ".", "..", ".hidden", "../up", "a/b", "Global\\a"}) {
    EXPECT_EQ(checkEventName(name), errorInvalidName) << name;
  }
}

TEST(EventName, HasAtMostTwoHundredBytes) {
  EXPECT_EQ(checkEventName(std::string(200, 'x')), noError);
  EXPECT_EQ(checkEventName(std::string(201, 'x')), errorFilenameTooLong);
}

TEST(EventName, CausesAnErrorWhenItIsNotAllowed) {
  EXPECT_EQ(createEvent("a/b"), nullptr);
  EXPECT_EQ(lastError(), errorInvalidName);
  EXPECT_EQ(openEvent(std::string(201, 'x')), nullptr);
  EXPECT_EQ(lastError(), errorFilenameTooLong);
}

}  // namespace
