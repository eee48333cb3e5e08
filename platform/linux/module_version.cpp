// SPDX-License-Identifier: MIT
#include "platform/module_version.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "platform/fault.h"
#include "platform/linux/file_descriptor.h"
#include "platform/linux/module_search.h"
#include "platform/linux/open_file.h"
#include "platform/linux/version_note.h"

namespace platform {
namespace {

constexpr char libraryFile[] = "libqmrk_log.so";

// Modules are asked for by the names that they have on Windows.
std::string fileNameOf(const std::string& _module) {
  if (_module == "qmrk_log.dll") return libraryFile;
  if (_module == "LogTest.exe") return "LogTest";
  return _module;
}

int openModule(const std::string& _name) {
  for (std::string& folder : moduleFolders()) {
    const int file = openFile(folder.append("/").append(_name), O_RDONLY);
    if (file != -1) return file;
  }
  return _name == libraryFile ? openFile(ownFile(), O_RDONLY) : -1;
}

bool readAt(int _file, std::uint64_t _offset, unsigned char* _buffer, std::size_t _size) {
  while (_size > 0) {
    const ssize_t got = ::pread(_file, _buffer, _size, static_cast<off_t>(_offset));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;
    _buffer += got;
    _offset += static_cast<std::uint64_t>(got);
    _size -= static_cast<std::size_t>(got);
  }
  return true;
}

}  // namespace

bool readModuleVersion(const char* _module, FixedVersion& _version) {
  if (injectedFault(Call::moduleVersion) != noError) return false;
  const int file = openModule(fileNameOf(_module));
  if (file == -1) return false;
  const bool found = readVersionNote([file](std::uint64_t _offset, unsigned char* _buffer,
                                            std::size_t _size) { return readAt(file, _offset, _buffer, _size); },
                                     _version);
  closeDescriptor(file);
  return found;
}

}  // namespace platform
