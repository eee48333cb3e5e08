// SPDX-License-Identifier: MIT
#include "tests/support/stamped_module.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/win32/windows_api.h"

namespace testsupport {
namespace {

// The head of a version resource: its length, the length of its value, its type and its key; then the value, at an
// offset that is a multiple of four.
struct VersionResource {
  WORD length = sizeof(VersionResource);
  WORD valueLength = sizeof(VS_FIXEDFILEINFO);
  WORD type = 0;
  WCHAR key[16] = L"VS_VERSION_INFO";
  WORD padding = 0;
  VS_FIXEDFILEINFO value{};
};
static_assert(sizeof(VersionResource) == 40 + sizeof(VS_FIXEDFILEINFO));

void orAbort(bool _done, const char* _what) {
  if (_done) return;
  std::fprintf(stderr, "%s failed with error %lu\n", _what, ::GetLastError());
  std::abort();
}

std::string copyOfModule(const std::string& _folder, const std::string& _module) {
  std::string path = _folder + "\\" + _module;
  orAbort(::CopyFileA(QMRK_UNSTAMPED_MODULE, path.c_str(), FALSE) != 0, "CopyFile");
  return path;
}

}  // namespace

void writeStampedModule(const std::string& _folder, const std::string& _module,
                        const platform::FixedVersion& _version) {
  VersionResource resource;
  resource.value.dwSignature = 0xFEEF04BD;
  resource.value.dwStrucVersion = 0x00010000;
  resource.value.dwFileVersionMS = _version.fileMostSignificant;
  resource.value.dwFileVersionLS = _version.fileLeastSignificant;
  resource.value.dwProductVersionMS = _version.productMostSignificant;
  resource.value.dwProductVersionLS = _version.productLeastSignificant;
  const std::string path = copyOfModule(_folder, _module);
  const HANDLE update = ::BeginUpdateResourceA(path.c_str(), FALSE);
  orAbort(update != nullptr, "BeginUpdateResource");
  const WORD language = MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL);
  orAbort(
      ::UpdateResourceA(update, MAKEINTRESOURCEA(16), MAKEINTRESOURCEA(1), language, &resource, sizeof resource) != 0,
      "UpdateResource");
  orAbort(::EndUpdateResourceA(update, FALSE) != 0, "EndUpdateResource");
}

void writeUnstampedModule(const std::string& _folder, const std::string& _module) { copyOfModule(_folder, _module); }

}  // namespace testsupport
