// SPDX-License-Identifier: MIT
#include "platform/linux/module_search.h"

#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>

namespace platform {
namespace {

std::string programFile() {
  std::array<char, PATH_MAX> path{};
  const ssize_t size = ::readlink("/proc/self/exe", path.data(), path.size());
  return {path.data(), size > 0 ? static_cast<std::size_t>(size) : 0};
}

// The folders that the loader searches for the libraries of the program: its run path, LD_LIBRARY_PATH as it was when
// the program started, the system's library folders.
std::vector<std::string> foldersOfLoader() {
  std::vector<std::string> folders;
  void* const program = ::dlopen(nullptr, RTLD_LAZY);
  Dl_serinfo head{};
  if (program != nullptr && ::dlinfo(program, RTLD_DI_SERINFOSIZE, &head) == 0) {
    std::vector<std::max_align_t> memory(head.dls_size / sizeof(std::max_align_t) + 1);
    auto* const list = reinterpret_cast<Dl_serinfo*>(memory.data());
    *list = head;
    if (::dlinfo(program, RTLD_DI_SERINFO, list) == 0) {
      const Dl_serpath* const paths = list->dls_serpath;
      for (unsigned int i = 0; i < list->dls_cnt; ++i) {
        folders.emplace_back(paths[i].dls_name);
      }
    }
  }
  if (program != nullptr) ::dlclose(program);
  return folders;
}

void append(std::vector<std::string>& _folders, const std::vector<std::string>& _more) {
  _folders.insert(_folders.end(), _more.begin(), _more.end());
}

void appendFolderOf(std::vector<std::string>& _folders, const std::string& _file) {
  const std::size_t separator = _file.rfind('/');
  if (separator != std::string::npos) _folders.push_back(_file.substr(0, separator));
}

}  // namespace

std::string ownFile() {
  // Not dladdr: it tells the name by which the file was loaded, which may be relative to a folder left long ago.
  const auto address = reinterpret_cast<std::uintptr_t>(&ownFile);
  std::ifstream mappings("/proc/self/maps");
  for (std::string line; std::getline(mappings, line);) {
    std::istringstream range(line);
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;
    char dash = 0;
    range >> std::hex >> begin >> dash >> end;
    if (begin <= address && address < end) {
      const std::size_t path = line.find('/');
      return path == std::string::npos ? "" : line.substr(path);
    }
  }
  return "";
}

std::vector<std::string> moduleFolders() {
  std::vector<std::string> folders;
  appendFolderOf(folders, programFile());
  appendFolderOf(folders, ownFile());
  append(folders, foldersOfList(::secure_getenv("LD_LIBRARY_PATH"), ":;"));
  append(folders, foldersOfLoader());
  append(folders, foldersOfList(::secure_getenv("PATH"), ":"));
  return folders;
}

std::vector<std::string> foldersOfList(const char* _list, const char* _separators) {
  std::vector<std::string> folders;
  while (_list != nullptr) {
    const std::size_t size = std::strcspn(_list, _separators);
    folders.push_back(size == 0 ? "." : std::string(_list, size));
    _list = _list[size] == '\0' ? nullptr : _list + size + 1;
  }
  return folders;
}

}  // namespace platform
