// SPDX-License-Identifier: MIT
#include "tools/system/linux/process_maps.h"

#include <sys/sysmacros.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace toolsystem {
namespace {

constexpr std::string_view deletedMark = " (deleted)";

// Calls _take with each line, without its end.
template <class Take>
void forEachLine(std::string_view _text, Take _take) {
  while (!_text.empty()) {
    const std::size_t end = std::min(_text.find('\n'), _text.size());
    _take(_text.substr(0, end));
    _text.remove_prefix(std::min(end + 1, _text.size()));
  }
}

// The file of a line of maps, whose path begins with the first slash; empty: there is none.
std::string_view pathOf(std::string_view _line) {
  const std::size_t begin = _line.find('/');
  if (begin == std::string_view::npos) return {};
  std::string_view path = _line.substr(begin);
  if (path.ends_with(deletedMark)) path.remove_suffix(deletedMark.size());
  return path;
}

std::string_view nameOf(std::string_view _path) { return _path.substr(_path.find_last_of('/') + 1); }

// "NAME" of ".../qmrk-<digits>/NAME"; empty for any other file.
std::string_view eventOf(std::string_view _path) {
  const std::string_view name = nameOf(_path);
  if (name.size() + 1 >= _path.size()) return {};
  std::string_view folder = nameOf(_path.substr(0, _path.size() - name.size() - 1));
  constexpr std::string_view prefix = "qmrk-";
  if (!folder.starts_with(prefix)) return {};
  folder.remove_prefix(prefix.size());
  const bool isNumber = !folder.empty() && folder.find_first_not_of("0123456789") == std::string_view::npos;
  return isNumber ? name : std::string_view();
}

// The next word of a line that is separated by blanks.
std::string_view takeWord(std::string_view& _line) {
  _line.remove_prefix(std::min(_line.find_first_not_of(' '), _line.size()));
  const std::string_view word = _line.substr(0, _line.find(' '));
  _line.remove_prefix(word.size());
  return word;
}

std::string fileText(std::uint64_t _device, std::uint64_t _file) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%02x:%02x:%llu", major(_device), minor(_device),
                static_cast<unsigned long long>(_file));
  return text.data();
}

}  // namespace

bool mapsLibrary(std::string_view _maps) {
  bool found = false;
  forEachLine(_maps, [&found](std::string_view _line) {
    found = found || nameOf(pathOf(_line)).starts_with("libqmrk_log.so");
  });
  return found;
}

std::vector<std::string> mappedEvents(std::string_view _maps) {
  std::vector<std::string> events;
  forEachLine(_maps, [&events](std::string_view _line) {
    const std::string_view event = eventOf(pathOf(_line));
    if (!event.empty() && std::find(events.begin(), events.end(), event) == events.end()) events.emplace_back(event);
  });
  return events;
}

std::size_t countEventUsers(std::string_view _locks, std::uint64_t _device, const std::vector<std::uint64_t>& _except) {
  const std::string devicePrefix = fileText(_device, 0).substr(0, fileText(_device, 0).rfind(':') + 1);
  std::size_t count = 0;
  forEachLine(_locks, [&](std::string_view _line) {
    takeWord(_line);  // the number of the lock
    const std::string_view kind = takeWord(_line);
    takeWord(_line);  // ADVISORY
    const std::string_view access = takeWord(_line);
    takeWord(_line);  // -1: an open file has no owner
    const std::string_view file = takeWord(_line);
    const bool isOnUsersByte = takeWord(_line) == "0" && takeWord(_line) == "0";
    if (kind != "OFDLCK" || access != "READ" || !isOnUsersByte || !file.starts_with(devicePrefix)) return;
    const bool isExcepted = std::any_of(_except.begin(), _except.end(),
                                        [&](std::uint64_t _file) { return fileText(_device, _file) == file; });
    if (!isExcepted) ++count;
  });
  return count;
}

std::size_t settledCount(const std::function<std::size_t()>& _look) {
  constexpr int mostLooks = 10;
  std::size_t count = _look();
  for (int look = 1; look < mostLooks; ++look) {
    const std::size_t former = count;
    count = _look();
    if (count == former) break;
  }
  return count;
}

}  // namespace toolsystem
