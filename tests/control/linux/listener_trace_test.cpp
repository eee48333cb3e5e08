// SPDX-License-Identifier: MIT
#include "control/listener_trace.h"

#include <iostream>

#include "tests/support/linux/troubled_output.h"

namespace {

using Quillmark_logging::writeTraceLine;

class ListenerTrace : public testsupport::TroubledOutput {
 protected:
  void expectNextLine() const {
    expectLastLine("after\n", [] { writeTraceLine(std::cout, "after\n"); });
  }
};

TEST_F(ListenerTrace, SurvivesAPipeThatNobodyReads) {
  whileNobodyReads([] { writeTraceLine(std::cout, "nobody reads this\n"); });
  expectNextLine();
}

TEST_F(ListenerTrace, ResumesWhenAFullDiskHasRoomAgain) {
  onAFullDisk([] { writeTraceLine(std::cout, "lost\n"); });
  expectNextLine();
}

TEST_F(ListenerTrace, SurvivesAFileSizeLimit) {
  underAFileSizeLimit([] { writeTraceLine(std::cout, "beyond the limit\n"); });
  expectNextLine();
}

}  // namespace
