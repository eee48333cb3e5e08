// SPDX-License-Identifier: MIT
#include "diagnostics/os_description.h"

#include <gtest/gtest.h>

#include "tests/diagnostics/fake_system.h"

namespace {

using platform::VersionBlock;
using testsupport::described;
using testsupport::ntVersion;
using testsupport::version;

VersionBlock edition(unsigned int _major, unsigned int _minor, unsigned char _productType, unsigned short _suiteMask) {
  VersionBlock block = ntVersion(_major, _minor, "SP", 1);
  block.productType = _productType;
  block.suiteMask = _suiteMask;
  return block;
}

// ---- Families ----

TEST(OsDescription, NamesWin32sOnly) { EXPECT_EQ(described(version(0, 3, 11, "SP")), "Microsoft Win32s\n"); }

TEST(OsDescription, NamesTheWindows95Family) {
  struct Row {
    unsigned int major;
    unsigned int minor;
    const char* servicePack;
    const char* text;
  };
  const Row rows[] = {
      {4, 0, "", "Microsoft Windows 95 "},
      {4, 0, "C", "Microsoft Windows 95 "},
      {4, 0, " C", "Microsoft Windows 95 OSR2 "},
      {4, 0, " B", "Microsoft Windows 95 OSR2 "},
      {4, 0, " B ", "Microsoft Windows 95 OSR2 "},
      {4, 0, " A", "Microsoft Windows 95 "},
      {4, 0, " c", "Microsoft Windows 95 "},
      {4, 10, "", "Microsoft Windows 98 "},
      {4, 10, "A", "Microsoft Windows 98 "},
      {4, 10, " A ", "Microsoft Windows 98 SE "},
      {4, 10, " B", "Microsoft Windows 98 "},
      {4, 90, "", "Microsoft Windows Millennium Edition\n"},
      {4, 90, " A", "Microsoft Windows Millennium Edition\n"},
      {4, 1, " A", ""},
      {3, 10, " A", ""},
      {5, 0, " C", ""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(described(version(1, row.major, row.minor, row.servicePack)), row.text)
        << row.major << "." << row.minor << row.servicePack;
  }
}

TEST(OsDescription, SaysNothingAboutAnUnknownFamily) {
  EXPECT_EQ(described(version(3, 5, 1, "SP")), "");
  EXPECT_EQ(described(version(0xFFFFFFFFU, 5, 1, "SP")), "");
}

// ---- Names of the NT family ----

TEST(OsDescription, NamesAnNtVersion) {
  struct Row {
    unsigned int major;
    unsigned int minor;
    const char* text;
  };
  const Row rows[] = {
      {3, 51, "Microsoft Windows NT SP (Build 1)\r"},
      {4, 0, "Microsoft Windows NT SP (Build 1)\r"},
      {4, 10, "Microsoft Windows NT SP (Build 1)\r"},
      {5, 0, "Microsoft Windows 2000 SP (Build 1)\r"},
      {5, 1, "Microsoft Windows XP SP (Build 1)\r"},
      {5, 2, "Microsoft Windows Server&nbsp;2003 family, SP (Build 1)\r"},
      {5, 3, "SP (Build 1)\r"},
      {6, 0, "SP (Build 1)\r"},
      {6, 1, "SP (Build 1)\r"},
      {6, 2, "SP (Build 1)\r"},
      {10, 0, "SP (Build 1)\r"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(described(edition(row.major, row.minor, 2, 0)), row.text) << row.major << "." << row.minor;
  }
}

TEST(OsDescription, DescribesAWholeSystem) {
  VersionBlock xp = ntVersion(5, 1, "Service Pack 2", 2600);
  xp.productType = 1;
  EXPECT_EQ(described(xp), "Microsoft Windows XP Professional Service Pack 2 (Build 2600)\r");
}

TEST(OsDescription, HasNoProductNameForVersionsAfter52) {
  VersionBlock seven = ntVersion(6, 1, "Service Pack 1", 7601);
  seven.productType = 1;
  EXPECT_EQ(described(seven), "Professional Service Pack 1 (Build 7601)\r");
}

TEST(OsDescription, KeepsTheBlankOfAMissingServicePack) {
  VersionBlock xp = ntVersion(5, 1, "", 2600);
  xp.productType = 1;
  EXPECT_EQ(described(xp), "Microsoft Windows XP Professional  (Build 2600)\r");
}

// ---- Editions by the extended block ----

TEST(OsDescription, NamesTheEditionOfAWorkstation) {
  struct Row {
    unsigned int major;
    unsigned int minor;
    unsigned short suiteMask;
    const char* text;
  };
  const Row rows[] = {
      {4, 0, 0, "Microsoft Windows NT Workstation 4.0 SP (Build 1)\r"},
      {4, 0, 0x200, "Microsoft Windows NT Workstation 4.0 SP (Build 1)\r"},
      {3, 51, 0, "Microsoft Windows NT Professional SP (Build 1)\r"},
      {5, 0, 0, "Microsoft Windows 2000 Professional SP (Build 1)\r"},
      {5, 1, 0x200, "Microsoft Windows XP Home Edition SP (Build 1)\r"},
      {5, 1, 0x300, "Microsoft Windows XP Home Edition SP (Build 1)\r"},
      {5, 1, 0x100, "Microsoft Windows XP Professional SP (Build 1)\r"},
      {5, 1, 0xFDFF, "Microsoft Windows XP Professional SP (Build 1)\r"},
      {5, 2, 0, "Microsoft Windows Server&nbsp;2003 family, Professional SP (Build 1)\r"},
      {6, 1, 0x200, "Home Edition SP (Build 1)\r"},
      {10, 0, 0, "Professional SP (Build 1)\r"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(described(edition(row.major, row.minor, 1, row.suiteMask)), row.text)
        << row.major << "." << row.minor << " suite " << row.suiteMask;
  }
}

TEST(OsDescription, NamesTheEditionOfAServer) {
  struct Row {
    unsigned int major;
    unsigned int minor;
    unsigned short suiteMask;
    const char* text;
  };
  const Row rows[] = {
      {5, 2, 0x80, "Microsoft Windows Server&nbsp;2003 family, Datacenter Edition SP (Build 1)\r"},
      {5, 2, 0x482, "Microsoft Windows Server&nbsp;2003 family, Datacenter Edition SP (Build 1)\r"},
      {5, 2, 0x02, "Microsoft Windows Server&nbsp;2003 family, Enterprise Edition SP (Build 1)\r"},
      {5, 2, 0x402, "Microsoft Windows Server&nbsp;2003 family, Enterprise Edition SP (Build 1)\r"},
      {5, 2, 0x400, "Microsoft Windows Server&nbsp;2003 family, Web Edition SP (Build 1)\r"},
      {5, 2, 0x410, "Microsoft Windows Server&nbsp;2003 family, Standard Edition SP (Build 1)\r"},
      {5, 2, 0, "Microsoft Windows Server&nbsp;2003 family, Standard Edition SP (Build 1)\r"},
      {5, 0, 0x80, "Microsoft Windows 2000 Datacenter Server SP (Build 1)\r"},
      {5, 0, 0x82, "Microsoft Windows 2000 Datacenter Server SP (Build 1)\r"},
      {5, 0, 0x02, "Microsoft Windows 2000 Advanced Server SP (Build 1)\r"},
      {5, 0, 0x400, "Microsoft Windows 2000 Server SP (Build 1)\r"},
      {5, 0, 0, "Microsoft Windows 2000 Server SP (Build 1)\r"},
      {4, 0, 0x02, "Microsoft Windows NT Server 4.0, Enterprise Edition SP (Build 1)\r"},
      {4, 0, 0x80, "Microsoft Windows NT Server 4.0 SP (Build 1)\r"},
      {3, 51, 0, "Microsoft Windows NT Server 4.0 SP (Build 1)\r"},
      {5, 1, 0x02, "Microsoft Windows XP Server 4.0, Enterprise Edition SP (Build 1)\r"},
      {6, 0, 0x82, "Server 4.0, Enterprise Edition SP (Build 1)\r"},
      {6, 1, 0x80, "Server 4.0 SP (Build 1)\r"},
      {10, 0, 0, "Server 4.0 SP (Build 1)\r"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(described(edition(row.major, row.minor, 3, row.suiteMask)), row.text)
        << row.major << "." << row.minor << " suite " << row.suiteMask;
  }
}

TEST(OsDescription, HasNoEditionForOtherProductTypes) {
  for (const unsigned char type : {0, 2, 4, 255}) {
    for (const unsigned short suiteMask : {0, 0x02, 0x80, 0x200, 0x400}) {
      EXPECT_EQ(described(edition(5, 2, type, suiteMask)), "Microsoft Windows Server&nbsp;2003 family, SP (Build 1)\r");
      EXPECT_EQ(described(edition(5, 0, type, suiteMask)), "Microsoft Windows 2000 SP (Build 1)\r");
      EXPECT_EQ(described(edition(6, 1, type, suiteMask)), "SP (Build 1)\r");
    }
  }
}

}  // namespace
