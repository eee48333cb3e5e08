// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <iostream>

#include "boost/logging/logging.hpp"
#include "tests/support/linux/troubled_output.h"

namespace {

using boost::logging::write_to_cout;

class ConsoleAppender : public testsupport::TroubledOutput {
 protected:
  void expectNextLine() const {
    expectLastLine("after\n", [] { write_to_cout("App", "after\n"); });
  }
};

TEST_F(ConsoleAppender, SurvivesAPipeThatNobodyReads) {
  whileNobodyReads([] { write_to_cout("App", "nobody reads this\n"); });
  expectNextLine();
}

TEST_F(ConsoleAppender, ResumesWhenAFullDiskHasRoomAgain) {
  onAFullDisk([] {
    write_to_cout("App", "lost\n");
    write_to_cout("App", "lost\n");
  });
  expectNextLine();
}

TEST_F(ConsoleAppender, SurvivesAFileSizeLimit) {
  underAFileSizeLimit([] {
    write_to_cout("App", "beyond the limit\n");
    write_to_cout("App", "beyond the limit\n");
  });
  expectNextLine();
}

TEST_F(ConsoleAppender, SurvivesAStreamThatThrows) {
  std::cout.exceptions(std::ios_base::badbit);
  whileNobodyReads([] { EXPECT_THROW(write_to_cout("App", "nobody reads this\n"), std::ios_base::failure); });
  expectNextLine();
  std::cout.exceptions(std::ios_base::goodbit);
}

}  // namespace
