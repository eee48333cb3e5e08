// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <functional>
#include <string>

#include "platform/platform.h"
#include "platform/positioned_file.h"
#include "tests/support/fault_plan.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/temporary_folder.h"

// A file on which another process has a lease, which the system asks for when the file is opened.

namespace {

using platform::AppendFile;
using platform::Call;
using platform::PositionedFile;
using platform::TextReader;
using platform::TextWriter;

/// A process with a lease on a file. It gives the lease up when it is asked to, or keeps it.
class Leaseholder {
 public:
  enum class Reaction { givesUp, keeps };

  Leaseholder(const std::string& _nativePath, Reaction _reaction)
      : process_([this, &_nativePath, _reaction] { hold(_nativePath, _reaction); }) {}
  ~Leaseholder() {
    process_.kill();
    for (const int end : givenUp_)
      ::close(end);
  }
  Leaseholder(const Leaseholder&) = delete;
  Leaseholder& operator=(const Leaseholder&) = delete;

  void awaitThatItGivesUp() const {
    char byte = 0;
    EXPECT_EQ(::read(givenUp_[0], &byte, 1), 1);
  }

 private:
  static std::array<int, 2> makePipe() {
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe(ends.data()), 0);
    return ends;
  }

  void hold(const std::string& _nativePath, Reaction _reaction) const {
    static int file = -1;
    static int toParent = -1;
    file = ::open(_nativePath.c_str(), O_RDWR | O_CLOEXEC);
    toParent = givenUp_[1];
    const auto giveUp = [](int) {
      ::fcntl(file, F_SETLEASE, F_UNLCK);
      if (::write(toParent, "x", 1) != 1) ::_exit(1);
    };
    std::signal(SIGIO, _reaction == Reaction::keeps ? SIG_IGN : static_cast<void (*)(int)>(giveUp));
    if (::fcntl(file, F_SETLEASE, F_WRLCK) != 0) ::_exit(1);
  }

  const std::array<int, 2> givenUp_ = makePipe();
  testsupport::SleepingChild process_;
};

class LeasedFile : public ::testing::Test {
 protected:
  LeasedFile() { testsupport::writeFile(path_, "text\n"); }

  std::string nativePath() const { return platform::nativePath(path_); }

  const testsupport::TemporaryFolder folder_;
  const std::string path_ = folder_.file("file");
  /// All the ways to open a file; each tells whether it could.
  const std::array<std::function<bool()>, 5> waysToOpen_{
      [this] { return TextReader(path_).isOpen(); },
      [this] { return TextWriter(path_, TextWriter::Mode::truncate).isOpen(); },
      [this] { return TextWriter(path_, TextWriter::Mode::append).isOpen(); },
      [this] {
        platform::ErrorCode error = platform::noError;
        return AppendFile::open(path_, false, error) != nullptr;
      },
      [this] { return PositionedFile().open(path_, PositionedFile::Mode::append); },
  };
};

TEST_F(LeasedFile, OpensWhenTheHolderGivesTheLeaseUp) {
  for (const auto& opens : waysToOpen_) {
    const Leaseholder holder(nativePath(), Leaseholder::Reaction::givesUp);
    const testsupport::CallHook wait(Call::awaitLease, 1, [&holder] { holder.awaitThatItGivesUp(); });
    EXPECT_TRUE(opens());
  }
}

TEST_F(LeasedFile, DoesNotOpenWhileTheHolderKeepsTheLease) {
  const Leaseholder holder(nativePath(), Leaseholder::Reaction::keeps);
  for (const auto& opens : waysToOpen_)
    EXPECT_FALSE(opens());
}

}  // namespace
