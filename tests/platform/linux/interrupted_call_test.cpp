// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdint>
#include <fstream>
#include <string>
#include <thread>

#include "platform/linux/file_write.h"
#include "platform/process.h"

// Signals that interrupt the system calls of a thread, as a profiler or a timer of the application sends them. A pipe
// stands for a file on a slow system.

namespace {

std::atomic<int> interruptions{0};
void interrupt(int /*_signal*/) { ++interruptions; }

// What the system tells about a thread: 'S' while it sleeps in a call that a signal can interrupt; 0 when it has ended.
char stateOf(std::uint32_t _id) {
  std::ifstream file("/proc/self/task/" + std::to_string(_id) + "/stat");
  std::string status;
  std::getline(file, status);
  const std::size_t nameEnd = status.rfind(") ");
  return nameEnd == std::string::npos ? '\0' : status[nameEnd + 2];
}

class InterruptedCall : public ::testing::Test {
 protected:
  InterruptedCall() {
    struct sigaction action {};
    action.sa_handler = interrupt;  // without SA_RESTART
    ::sigaction(SIGUSR1, &action, &former_);
    interruptions = 0;
  }
  ~InterruptedCall() override { ::sigaction(SIGUSR1, &former_, nullptr); }

  // Interrupts the thread that has stored its id, each time while it waits in a system call; ends early with the
  // thread.
  void interruptTimes(std::thread& _thread, int _times) const {
    while (id_ == 0) {
      std::this_thread::yield();
    }
    for (int i = 0; i < _times; ++i) {
      char state = '\0';
      while ((state = stateOf(id_)) != 'S' && state != '\0') {
        std::this_thread::yield();
      }
      if (state == '\0') return;
      const int before = interruptions;
      ::pthread_kill(_thread.native_handle(), SIGUSR1);
      while (interruptions == before) {
        std::this_thread::yield();
      }
    }
  }

  std::atomic<std::uint32_t> id_{0};

 private:
  struct sigaction former_ {};
};

TEST_F(InterruptedCall, WritesALargeTextWhole) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  const std::string text(1 << 20, 'x');
  bool written = false;
  std::thread thread([&] {
    id_ = platform::threadId();
    std::size_t done = 0;
    ssize_t size = 0;
    for (; done < text.size() && size != -1; done += static_cast<std::size_t>(std::max<ssize_t>(size, 0))) {
      size = platform::writeToFile(ends[1], text.data() + done, text.size() - done);
    }
    written = done == text.size();
    ::close(ends[1]);
  });
  std::size_t arrived = 0;
  char buffer[65536];
  // Before anything is read the pipe is full, so that calls are interrupted that have written nothing.
  interruptTimes(thread, 20);
  for (ssize_t got = 0; (got = ::read(ends[0], buffer, sizeof buffer)) > 0;) {
    arrived += static_cast<std::size_t>(got);
    if (arrived < text.size() / 2) interruptTimes(thread, 2);
  }
  thread.join();
  ::close(ends[0]);
  EXPECT_TRUE(written);
  EXPECT_EQ(arrived, text.size());
}

}  // namespace
