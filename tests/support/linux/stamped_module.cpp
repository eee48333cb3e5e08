// SPDX-License-Identifier: MIT
#include "tests/support/stamped_module.h"

#include "platform/linux/version_note.h"
#include "tests/support/linux/elf_image.h"
#include "tests/support/temporary_folder.h"

namespace testsupport {
namespace {

using namespace std::string_literals;

std::string pathOf(const std::string& _folder, const std::string& _module) {
  return _folder + "/" + (_module == "qmrk_log.dll" ? "libqmrk_log.so" : "LogTest");
}

}  // namespace

void writeStampedModule(const std::string& _folder, const std::string& _module,
                        const platform::FixedVersion& _version) {
  ElfImage image;
  image.segment(4).note(std::string(platform::versionNoteOwner, sizeof platform::versionNoteOwner),
                        platform::versionNoteType,
                        image.words({_version.fileMostSignificant, _version.fileLeastSignificant,
                                     _version.productMostSignificant, _version.productLeastSignificant}));
  writeFile(pathOf(_folder, _module), image.bytes());
}

void writeUnstampedModule(const std::string& _folder, const std::string& _module) {
  writeFile(pathOf(_folder, _module), ElfImage().segment(4).note("GNU\0"s, 3, "build id").bytes());
}

}  // namespace testsupport
