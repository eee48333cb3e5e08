// SPDX-License-Identifier: MIT
#include "diagnostics/status_image.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <string>
#include <thread>

#include "diagnostics/status_file_values.h"
#include "diagnostics/status_page_file_entry.h"
#include "tools/status/status_page_parser.h"

namespace {

using namespace Quillmark_logging::status;
using Words = std::vector<std::uint64_t>;
using Word = std::atomic_ref<std::uint64_t>;

std::string bytesOf(const Words& _words) {
  return {reinterpret_cast<const char*>(_words.data()), _words.size() * sizeof(std::uint64_t)};
}

qmrkctl::ProcessStatus shown(const StatusImage& _image) {
  Words words(pageSize / sizeof(std::uint64_t));
  _image.copyTo(words.data());
  const auto process = qmrkctl::parseStatusPage(bytesOf(words));
  EXPECT_TRUE(process);
  return process.value_or(qmrkctl::ProcessStatus());
}

TEST(StatusImage, ShowsAPageOfThisLayout) { EXPECT_EQ(shown(StatusImage()).pid, 0U); }

TEST(StatusImage, ShowsNumbersAndTexts) {
  StatusImage image;
  image.number(pid, 4711);
  image.number(startTime, 0x1122334455667788);
  image.text(caAsked, "a longer text");
  image.text(caAsked, "CA12");
  EXPECT_EQ(shown(image).pid, 4711U);
  EXPECT_EQ(shown(image).startTime, 0x1122334455667788U);
  EXPECT_EQ(shown(image).caAsked, "CA12");
}

TEST(StatusImage, FillsATextToTheLastByteAndCutsTheNext) {
  StatusImage image;
  const std::string full(setUpError.size - textHead, 'x');
  image.text(setUpError, full);
  EXPECT_EQ(shown(image).setUp.error.text, full);
  EXPECT_FALSE(shown(image).setUp.error.isCut);
  image.text(setUpError, full + "y");
  EXPECT_EQ(shown(image).setUp.error.text, full);
  EXPECT_EQ(shown(image).setUp.error.wholeSize, full.size() + 1);
  EXPECT_TRUE(shown(image).setUp.error.isCut);
  EXPECT_EQ(shown(image).classes.updateError.text, "") << "the field behind it";
}

TEST(StatusImage, LeavesEntriesOutThatDoNotFit) {
  StatusImage image;
  const std::string most(applications.size - listHead - 2 * entryHead - 1, 'x');
  image.list(applications, {{most, 1}, {"too long", 0}, {"y", 0}}, 3);
  const auto process = shown(image);
  ASSERT_EQ(process.applications.size(), 2U);
  EXPECT_EQ(process.applications[0].name, most);
  EXPECT_TRUE(process.applications[0].isUnregistered);
  EXPECT_EQ(process.applications[1].name, "y");
  EXPECT_EQ(process.applicationsLeftOut, 4U);
  const std::string longer(70'000, 'x');
  image.list(applications, {{longer, 0}});
  EXPECT_EQ(shown(image).applicationsLeftOut, 1U);
}

TEST(StatusImage, LeavesFilesOutThatDoNotFit) {
  StatusImage image;
  std::vector<FileValues> all(fileCount + 2);
  for (std::size_t i = 0; i < all.size(); ++i)
    all[i].path = "file" + std::to_string(i);
  image.putFiles(all);
  const auto process = shown(image);
  ASSERT_EQ(process.files.size(), fileCount);
  EXPECT_EQ(process.files.back().path.text, "file15");
  EXPECT_EQ(process.filesLeftOut, 2U);
}

TEST(StatusImage, WritesOnlyWordsThatDiffer) {
  StatusImage image;
  Words words(pageSize / sizeof(std::uint64_t));
  image.copyTo(words.data());
  const Words first = words;
  image.number(pid, 1);
  image.copyTo(words.data());
  int changed = 0;
  for (std::size_t i = 0; i < words.size(); ++i)
    changed += words[i] != first[i] ? 1 : 0;
  EXPECT_EQ(changed, 2) << "the number and the sequence";
}

// What a tool does that has the page in its memory.
bool tryToCopy(Words& _page, Words& _copy) {
  const std::size_t counter = sequence.offset / sizeof(std::uint64_t);
  const std::uint64_t before = Word(_page[counter]).load(std::memory_order_acquire);
  for (std::size_t i = 0; i < _page.size(); ++i)
    _copy[i] = Word(_page[i]).load(std::memory_order_acquire);
  return before % 2 == 0 && before != 0 && Word(_page[counter]).load(std::memory_order_relaxed) == before;
}

TEST(StatusImage, NeverShowsAReaderAPart) {
  Words page(pageSize / sizeof(std::uint64_t));
  std::atomic<bool> isOver{false};
  std::atomic<int> tries{0};
  std::thread writer([&] {
    StatusImage image;
    for (std::uint64_t round = 1; !isOver; ++round) {
      image.number(pid, round % 1000);
      image.text(classText, std::string(5000, static_cast<char>('a' + round % 26)));
      image.number(listenerWakes, round);
      image.copyTo(page.data());
      // The reader's next try begins after this and is over before the next writing: it always gets on.
      for (const int before = tries; !isOver && tries < before + 2;)
        std::this_thread::yield();
    }
  });
  Words copy(page.size());
  for (int whole = 0; whole < 200; ++tries) {
    if (!tryToCopy(page, copy)) continue;
    ++whole;
    const auto process = qmrkctl::parseStatusPage(bytesOf(copy));
    ASSERT_TRUE(process);
    const std::uint64_t round = process->listener.wakes;
    EXPECT_EQ(process->pid, round % 1000);
    EXPECT_EQ(process->classes.text.text, std::string(5000, static_cast<char>('a' + round % 26)));
  }
  isOver = true;
  writer.join();
}

}  // namespace
