// SPDX-License-Identifier: MIT
// Somebody removes, renames or replaces the file while processes write to it. A second name keeps what was removed.
#include <sys/mman.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <set>
#include <thread>

#include "platform/native_path.h"
#include "tests/stress/linux/scale.h"
#include "tests/stress/linux/writers.h"

namespace {

namespace fs = std::filesystem;
using stress::Oracle;
using stress::Tally;
using stress::Way;

class MovedFile : public stress::Writers {
 protected:
  static constexpr std::uint32_t writerCount = 3;

  fs::path log() const { return platform::nativePath(path(Way::commonLog)); }
  fs::path former(int _number) const { return log().string() + ".former" + std::to_string(_number); }

  /// Calls the function whenever the file has grown since the last time, while writers write to it.
  void moveWhileTheyWrite(const std::function<void(int)>& _move) const {
    Oracle oracle(writerCount);
    const int moves = stress::scaled(3);
    std::vector<pid_t> processes;
    std::atomic<bool>& isOver = *shared();
    for (std::uint32_t writer = 0; writer < writerCount; ++writer) {
      const Way way = writer == 0 ? Way::threadSafe : Way::commonLog;
      processes.push_back(start(way, [&oracle, &isOver, writer] {
        while (!isOver) {
          logLines(oracle, writer, 20, 2000);
          std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
      }));
    }
    for (int move = 0; move < moves; ++move) {
      EXPECT_TRUE(haveAllCome()) << move;
      _move(move);
    }
    EXPECT_TRUE(haveAllCome());
    isOver = true;
    stress::expectNormalEnds(processes);
    std::string all;
    for (int move = 0; move < moves; ++move)
      all += testsupport::readFile(former(move).string()) + "\n";
    Tally tally = oracle.check(all + testsupport::readFile(log().string()));
    // Writers come to the new file one after another.
    EXPECT_EQ(tally.lost + tally.torn + tally.duplicated + tally.glued + tally.disordered, 0) << tally;
    EXPECT_EQ(tally.found, tally.written);
    stress::report(moves, " times: ", tally);
  }

  /// Waits until each writer has written to the file that has the name now.
  bool haveAllCome() const {
    return stress::comesTrue([this] { return fs::exists(log()) && writersIn(log()) == writerCount; });
  }

  /// A flag that the writers see.
  static std::atomic<bool>* shared();

  static std::size_t writersIn(const fs::path& _file);
};

std::atomic<bool>* MovedFile::shared() {
  void* const memory =
      ::mmap(nullptr, sizeof(std::atomic<bool>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  EXPECT_NE(memory, MAP_FAILED);
  return new (memory) std::atomic<bool>(false);
}

std::size_t MovedFile::writersIn(const fs::path& _file) {
  std::set<std::uint32_t> writers;
  for (const stress::NumberedLine& line : stress::findIn(testsupport::readFile(_file.string())).whole)
    writers.insert(line.writer);
  return writers.size();
}

TEST_F(MovedFile, ReappearsWhenRenamed) {
  moveWhileTheyWrite([this](int _move) { fs::rename(log(), former(_move)); });
}

TEST_F(MovedFile, ReappearsWhenRemoved) {
  moveWhileTheyWrite([this](int _move) {
    fs::create_hard_link(log(), former(_move));
    fs::remove(log());
  });
}

TEST_F(MovedFile, ReappearsWithItsFolder) {
  moveWhileTheyWrite([this](int _move) {
    const fs::path folder = log().parent_path();
    const fs::path keep = folder.parent_path().string() + "-kept" + std::to_string(_move);
    fs::rename(folder, keep);
    EXPECT_TRUE(stress::comesTrue([&folder] { return fs::exists(folder); }));
    for (const auto& entry : fs::directory_iterator(keep)) {
      const fs::path name = entry.path().filename();
      fs::rename(entry.path(), name == log().filename() ? former(_move) : folder / name);
    }
  });
}

TEST_F(MovedFile, GivesWayToAnotherFromALogRotation) {
  moveWhileTheyWrite([this](int _move) {
    fs::create_hard_link(log(), former(_move));
    testsupport::writeFile(log().string() + ".new", "");
    fs::rename(log().string() + ".new", log());
  });
}

}  // namespace
