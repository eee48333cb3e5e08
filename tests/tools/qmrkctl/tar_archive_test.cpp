// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/bundle/tar_archive.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using qmrkctl::TarArchive;

TEST(TarArchive, HoldsAHeadAndWholeBlocksForEachFile) {
  TarArchive archive(1'000'000'000);
  archive.add("folder/a.txt", "hello\n");
  archive.add("b", std::string(512, 'x'));
  archive.add("empty", "");
  const std::string bytes = archive.bytes();
  ASSERT_EQ(bytes.size(), 512U * 7);
  EXPECT_EQ(bytes.substr(0, 13), std::string("folder/a.txt\0", 13));
  EXPECT_EQ(bytes.substr(100, 8), std::string("0000600\0", 8));
  EXPECT_EQ(bytes.substr(124, 12), std::string("00000000006\0", 12));
  EXPECT_EQ(bytes.substr(136, 12), std::string("07346545000\0", 12));
  EXPECT_EQ(bytes[156], '0');
  EXPECT_EQ(bytes.substr(257, 8), std::string("ustar\0"
                                              "00",
                                              8));
  EXPECT_EQ(bytes.substr(512, 7), std::string("hello\n\0", 7));
  EXPECT_EQ(bytes.substr(1024, 2), std::string("b\0", 2));
  EXPECT_EQ(bytes.substr(1536, 512), std::string(512, 'x'));
  EXPECT_EQ(bytes.substr(2560), std::string(1024, '\0'));
}

TEST(TarArchive, SumsUpTheHead) {
  TarArchive archive(0);
  archive.add("a", "");
  const std::string head = archive.bytes().substr(0, 512);
  unsigned int sum = 0;
  for (std::size_t i = 0; i < head.size(); ++i)
    sum += i >= 148 && i < 156 ? static_cast<unsigned char>(' ') : static_cast<unsigned char>(head[i]);
  EXPECT_EQ(std::stoul(head.substr(148, 6), nullptr, 8), sum);
  EXPECT_EQ(head.substr(154, 2), std::string("\0 ", 2));
}

TEST(TarArchive, CutsALongName) {
  TarArchive archive(0);
  archive.add(std::string(200, 'n'), "");
  EXPECT_EQ(archive.bytes().substr(0, 100), std::string(99, 'n') + '\0');
}

TEST(TarArchive, IsPackedInTheFormatOfGzip) {
  const std::string packed = qmrkctl::gzipped(std::string(100'000, 'x'));
  EXPECT_EQ(packed.substr(0, 3), "\x1f\x8b\x08");
  EXPECT_LT(packed.size(), 1000U);
  EXPECT_NE(qmrkctl::gzipped(""), "");
}

}  // namespace
