// SPDX-License-Identifier: MIT
#include "tests/tools/qmrkctl/linux/sleeping_listener.h"

#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "platform/named_event.h"
#include "platform/running_process.h"
#include "tests/tools/status/page_image.h"

namespace testsupport {
namespace {

void orAbort(bool _isDone) {
  if (!_isDone) std::abort();
}

std::string listBytes(const std::vector<std::string>& _names) {
  std::string bytes;
  for (const std::string& name : _names) {
    bytes += static_cast<char>(name.size());
    bytes += std::string(2, '\0') + name;
  }
  return bytes;
}

void showPage(const std::vector<std::string>& _applications) {
  const auto self = static_cast<std::uint32_t>(::getpid());
  const std::string entries = listBytes(_applications);
  PageImage page;
  page.number(status::pid, self).number(status::startTime, platform::startTimeOf(self));
  page.listHead(status::applications, static_cast<std::uint32_t>(_applications.size()), 0,
                static_cast<std::uint32_t>(entries.size()));
  page.raw(status::applications.offset + status::listHead, entries);
  const std::string folder = "/dev/shm/qmrk-" + std::to_string(::geteuid()) + "/apps";
  ::mkdir(folder.c_str(), 0700);
  const std::string path = folder + "/" + std::to_string(self);
  std::ofstream(path, std::ios::binary) << page.bytes();
  orAbort(::chmod(path.c_str(), 0600) == 0);
}

void begin(const SleepingListener::Settings& _settings) {
  if (_settings.hasPrivateMemory) {
    orAbort(::unshare(CLONE_NEWNS) == 0);
    orAbort(::mount("qmrk-test", "/dev/shm", "tmpfs", 0, "mode=1777") == 0);
  }
  if (_settings.userId != 0) orAbort(::setresuid(_settings.userId, _settings.userId, _settings.userId) == 0);
  orAbort(platform::createEvent("QMRK_LOG_EVENT") != nullptr);
  if (!_settings.applications.empty()) showPage(_settings.applications);
}

}  // namespace

SleepingListener::SleepingListener(const Settings& _settings) {
  int ends[2];
  orAbort(::pipe(ends) == 0);
  process_ = ::fork();
  orAbort(process_ != -1);
  if (process_ == 0) {
    begin(_settings);
    orAbort(::write(ends[1], "r", 1) == 1);
    for (;;)
      ::pause();
  }
  ::close(ends[1]);
  char ready = 0;
  orAbort(::read(ends[0], &ready, 1) == 1);
  ::close(ends[0]);
}

SleepingListener::~SleepingListener() {
  ::kill(process_, SIGKILL);
  ::waitpid(process_, nullptr, 0);
}

}  // namespace testsupport
