// SPDX-License-Identifier: MIT
#include "diagnostics/os_description.h"

#include <algorithm>

#include "diagnostics/decimal_text.h"

// The pieces of the text, each with its own blank at the end, are required to the byte: also "&nbsp;", the 4.0 in the
// description of later servers, and the missing point between the numbers where the registry was asked.

namespace Quillmark_logging {
namespace {

using platform::VersionBlock;

namespace platformId {
constexpr unsigned int win32s = 0;
constexpr unsigned int windows95Family = 1;
constexpr unsigned int ntFamily = 2;
}  // namespace platformId

namespace productType {
constexpr unsigned int workstation = 1;
constexpr unsigned int server = 3;
}  // namespace productType

namespace suite {
constexpr unsigned int enterprise = 0x02;
constexpr unsigned int datacenter = 0x80;
constexpr unsigned int personal = 0x200;
constexpr unsigned int blade = 0x400;
}  // namespace suite

constexpr char productOptionsKey[] = "SYSTEM\\CurrentControlSet\\Control\\ProductOptions";
constexpr char servicePack6aKey[] = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Hotfix\\Q246009";

bool isVersion(const VersionBlock& _block, unsigned int _major, unsigned int _minor) {
  return _block.major == _major && _block.minor == _minor;
}

bool hasSuite(const VersionBlock& _block, unsigned int _bit) { return (_block.suiteMask & _bit) != 0; }

char lowerCase(char _c) { return _c >= 'A' && _c <= 'Z' ? static_cast<char>(_c - 'A' + 'a') : _c; }

bool equalsIgnoringCase(const std::string& _a, const std::string& _b) {
  return std::equal(_a.begin(), _a.end(), _b.begin(), _b.end(),
                    [](char _left, char _right) { return lowerCase(_left) == lowerCase(_right); });
}

std::string windows95FamilyText(const VersionBlock& _block) {
  const char release = _block.servicePack.size() > 1 ? _block.servicePack[1] : '\0';
  if (isVersion(_block, 4, 0)) {
    return release == 'C' || release == 'B' ? "Microsoft Windows 95 OSR2 " : "Microsoft Windows 95 ";
  }
  if (isVersion(_block, 4, 10)) return release == 'A' ? "Microsoft Windows 98 SE " : "Microsoft Windows 98 ";
  if (isVersion(_block, 4, 90)) return "Microsoft Windows Millennium Edition\n";
  return "";
}

std::string productName(const VersionBlock& _block) {
  if (isVersion(_block, 5, 2)) return "Microsoft Windows Server&nbsp;2003 family, ";
  if (isVersion(_block, 5, 1)) return "Microsoft Windows XP ";
  if (isVersion(_block, 5, 0)) return "Microsoft Windows 2000 ";
  return _block.major <= 4 ? "Microsoft Windows NT " : "";
}

std::string workstationEdition(const VersionBlock& _block) {
  if (_block.major == 4) return "Workstation 4.0 ";
  return hasSuite(_block, suite::personal) ? "Home Edition " : "Professional ";
}

std::string serverEdition(const VersionBlock& _block) {
  if (isVersion(_block, 5, 2)) {
    if (hasSuite(_block, suite::datacenter)) return "Datacenter Edition ";
    if (hasSuite(_block, suite::enterprise)) return "Enterprise Edition ";
    return _block.suiteMask == suite::blade ? "Web Edition " : "Standard Edition ";
  }
  if (isVersion(_block, 5, 0)) {
    if (hasSuite(_block, suite::datacenter)) return "Datacenter Server ";
    return hasSuite(_block, suite::enterprise) ? "Advanced Server " : "Server ";
  }
  return hasSuite(_block, suite::enterprise) ? "Server 4.0, Enterprise Edition " : "Server 4.0 ";
}

// By the extended block, which knows the product type.
std::string edition(const VersionBlock& _block) {
  if (_block.productType == productType::workstation) return workstationEdition(_block);
  return _block.productType == productType::server ? serverEdition(_block) : "";
}

// By the registry's name for the product type.
std::string editionByRegistry(const std::string& _productType) {
  if (equalsIgnoringCase(_productType, "WINNT")) return "Workstation ";
  if (equalsIgnoringCase(_productType, "LANMANNT")) return "Server ";
  return equalsIgnoringCase(_productType, "SERVERNT") ? "Advanced Server " : "";
}

bool appendEditionByRegistry(SystemFacts& _facts, const VersionBlock& _block, std::string& _text) {
  std::string type;
  if (_facts.readRegistryText(productOptionsKey, "ProductType", type) != platform::RegistryResult::done) return false;
  const std::string major = decimalText(_block.major);
  const std::string minor = decimalText(_block.minor);
  _facts.printToConsole(major + "." + minor + " ");
  _text += editionByRegistry(type) + major + minor;
  return true;
}

std::string servicePackAndBuild(SystemFacts& _facts, const VersionBlock& _block) {
  const std::string build = " (Build " + decimalText(_block.build & 0xFFFFU) + ")";
  if (_block.major == 4 && equalsIgnoringCase(_block.servicePack, "Service Pack 6")) {
    if (_facts.registryKeyExists(servicePack6aKey)) return "Service Pack 6a" + build + "\r";
    _facts.printToConsole(_block.servicePack + build + "\n");
  }
  return _block.servicePack + build + "\r";
}

}  // namespace

bool describeSystem(SystemFacts& _facts, std::string& _text) {
  VersionBlock block;
  const bool extended = _facts.queryVersion(platform::VersionQuery::extended, block);
  if (!extended && !_facts.queryVersion(platform::VersionQuery::basic, block)) return false;
  if (block.platformId == platformId::win32s) _text += "Microsoft Win32s\n";
  if (block.platformId == platformId::windows95Family) _text += windows95FamilyText(block);
  if (block.platformId != platformId::ntFamily) return true;
  _text += productName(block);
  if (extended) {
    _text += edition(block);
  } else if (!appendEditionByRegistry(_facts, block, _text)) {
    return false;
  }
  _text += servicePackAndBuild(_facts, block);
  return true;
}

}  // namespace Quillmark_logging
