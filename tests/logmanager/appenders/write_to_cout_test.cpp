// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"

namespace {

TEST(WriteToCout, WritesTheMessageToTheStandardOutput) {
  testing::internal::CaptureStdout();
  boost::logging::write_to_cout("App", "text\n");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "text\n");
}

TEST(WriteToCout, KeepsMessagesOfSeveralThreadsWhole) {
  std::ostringstream text;
  std::streambuf* const former = std::cout.rdbuf(text.rdbuf());
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([] {
      for (int line = 0; line < 500; ++line)
        boost::logging::write_to_cout("App", "0123456789\n");
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  std::cout.rdbuf(former);
  std::string expected;
  for (int line = 0; line < 2000; ++line)
    expected += "0123456789\n";
  EXPECT_EQ(text.str(), expected);
}

}  // namespace
