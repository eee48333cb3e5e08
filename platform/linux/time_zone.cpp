// SPDX-License-Identifier: MIT
#include "platform/linux/time_zone.h"

#include <sys/stat.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>

namespace platform {
namespace {

constexpr std::int64_t secondsBetweenLooks = 30;
constexpr char zoneVariable[] = "TZ";
constexpr char zoneFolder[] = "/usr/share/zoneinfo";

constinit std::atomic<std::int64_t> nextLook{0};

/// What tells one zone file from its replacement. All zero for none.
struct ZoneFile {
  std::int64_t device = 0;
  std::int64_t number = 0;
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;

  bool operator==(const ZoneFile&) const = default;
};

// Of the latest look.
constinit ZoneFile latestFile;

/// The file that a value of TZ names; one that is a rule by itself leads to none.
ZoneFile fileOf(const char* _zone) {
  const char* const name = *_zone == ':' ? _zone + 1 : _zone;
  const char* const folder = std::getenv("TZDIR");
  const std::string path = *name == '/' ? name : std::string(folder != nullptr ? folder : zoneFolder) + "/" + name;
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return {};
  return {static_cast<std::int64_t>(status.st_dev), static_cast<std::int64_t>(status.st_ino), status.st_mtim.tv_sec,
          status.st_mtim.tv_nsec};
}

/// The C library reads a zone file again only when TZ has another text. So the file gets another spelling for a moment,
/// "//file" for "/file" or "./name" for "name". Where the variable exists, glibc's setenv exchanges one pointer and
/// keeps the former text, so that another thread that reads the variable finds one of the two.
void readZoneFileAgain(const std::string& _zone) {
  const std::string name = _zone.substr(_zone.front() == ':' ? 1 : 0);
  const std::string other = (name.front() == '/' ? "/" : "./") + name;
  if (::setenv(zoneVariable, other.c_str(), 1) != 0) return;
  ::tzset();
  // Unless somebody has set another zone meanwhile.
  const char* const now = std::getenv(zoneVariable);
  if (now != nullptr && other == now) ::setenv(zoneVariable, _zone.c_str(), 1);
}

void followNamedZone() {
  const char* const zone = std::getenv(zoneVariable);
  if (zone == nullptr || std::strlen(zone) < 2) return;
  const ZoneFile file = fileOf(zone);
  const bool isAnother = file != latestFile && latestFile != ZoneFile{};
  latestFile = file;
  if (isAnother && file != ZoneFile{}) readZoneFileAgain(zone);
}

}  // namespace

void followTimeZone(std::int64_t _now) {
  std::int64_t due = nextLook.load(std::memory_order_relaxed);
  // A look that is due later than that was planned before the process was moved to another system, with another clock.
  if (_now < due && due - _now <= secondsBetweenLooks) return;
  // One of the threads that come here at once is enough.
  if (!nextLook.compare_exchange_strong(due, _now + secondsBetweenLooks, std::memory_order_relaxed)) return;
  followNamedZone();
  ::tzset();
}

}  // namespace platform
