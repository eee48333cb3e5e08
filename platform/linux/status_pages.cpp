// SPDX-License-Identifier: MIT
#include "platform/status_pages.h"

#include <dirent.h>

#include <chrono>
#include <memory>
#include <string_view>
#include <thread>

#include "platform/linux/mapped_file.h"
#include "platform/linux/process_names.h"
#include "platform/linux/status_page_files.h"

namespace platform {
namespace {

constexpr std::size_t mostPages = 4096;
constexpr std::chrono::milliseconds betweenTries{1};
constexpr int mostTries = 50;

// The names in a folder that has been opened, at most so many of those that are wanted.
template <class IsWanted>
std::vector<std::string> namesIn(const FileDescriptor& _folder, IsWanted _isWanted) {
  std::vector<std::string> names;
  FileDescriptor copy = openFolderBelow(_folder.get(), ".");
  if (!copy.isOpen()) return names;
  const std::unique_ptr<DIR, int (*)(DIR*)> list(::fdopendir(copy.get()), &::closedir);
  if (list == nullptr) return names;
  copy.release();
  for (const dirent* entry = ::readdir(list.get()); entry != nullptr && names.size() < mostPages;
       entry = ::readdir(list.get())) {
    if (_isWanted(std::string_view(entry->d_name))) names.emplace_back(entry->d_name);
  }
  return names;
}

bool isUserFolder(std::string_view _name) {
  return _name.starts_with(statusUserFolderPrefix) &&
         numberOfName(_name.substr(statusUserFolderPrefix.size())).has_value();
}

ErrorCode copyWhole(int _file, const StatusPageForm& _form, std::string& _bytes) {
  ErrorCode error = tryToCopyStatusPage(_file, _form, _bytes);
  for (int tries = 1; error == errorBusy && tries < mostTries; ++tries) {
    std::this_thread::sleep_for(betweenTries);
    error = tryToCopyStatusPage(_file, _form, _bytes);
  }
  return error;
}

ErrorCode copyPage(const StatusUserFolder& _folder, const std::string& _name, const StatusPageForm& _form,
                   StatusPageCopy& _copy) {
  FileDescriptor file;
  struct stat status {};
  const ErrorCode error = openStatusPage(_folder, _name, _form, file, status);
  if (error != noError) return error;
  _copy.isInUse = mapsFile(_copy.processId, status.st_dev, status.st_ino);
  return copyWhole(file.get(), _form, _copy.bytes);
}

void addPages(int _sharedMemory, const std::string& _name, const StatusPagePlace& _place, const StatusPageForm& _form,
              std::vector<StatusPageCopy>& _copies) {
  StatusUserFolder folder;
  StatusPageCopy copy;
  copy.path = _place.root + "/dev/shm/" + _name;
  copy.error = openStatusUserFolder(_sharedMemory, _name, _place.root.empty(), folder);
  copy.userId =
      folder.pages.isOpen() ? folder.owner : numberOfName(_name.substr(statusUserFolderPrefix.size())).value_or(0);
  if (copy.error != noError) _copies.push_back(copy);
  if (copy.error != noError || !folder.pages.isOpen()) return;
  const ProcessNames names(_place.root);
  for (const std::string& page : namesIn(folder.pages, [](auto _page) { return numberOfName(_page).has_value(); })) {
    StatusPageCopy& added = _copies.emplace_back(copy);
    added.path += "/apps/" + page;
    added.pageProcessId = numberOfName(page).value_or(0);
    added.processId = names.processId(added.pageProcessId);
    added.error = copyPage(folder, page, _form, added);
    if (added.error != noError) added.bytes.clear();
    // It was removed meanwhile.
    if (added.error == errorPathNotFound) _copies.pop_back();
  }
}

}  // namespace

std::vector<StatusPageCopy> copyStatusPages(const StatusPagePlace& _place, const StatusPageForm& _form) {
  std::vector<StatusPageCopy> copies;
  const FileDescriptor sharedMemory = openSharedMemory(_place.root);
  if (!sharedMemory.isOpen()) return copies;
  if (_place.userId) {
    addPages(sharedMemory.get(), std::string(statusUserFolderPrefix) + std::to_string(*_place.userId), _place, _form,
             copies);
    return copies;
  }
  for (const std::string& name : namesIn(sharedMemory, isUserFolder)) {
    addPages(sharedMemory.get(), name, _place, _form, copies);
  }
  return copies;
}

}  // namespace platform
