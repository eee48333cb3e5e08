// SPDX-License-Identifier: MIT
#include "tests/tools/qmrkctl/linux/sleeping_listener.h"

#include <fcntl.h>
#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "diagnostics/status_page_values.h"
#include "platform/clock.h"
#include "platform/handle.h"
#include "platform/named_event.h"
#include "platform/running_process.h"
#include "platform/text_file.h"
#include "tests/tools/status/page_image.h"
#include "tools/qmrkctl/class_list_text.h"

namespace testsupport {
namespace {

using Names = std::vector<std::string>;

void orAbort(bool _isDone) {
  if (!_isDone) std::abort();
}

std::string entry(const std::string& _text, bool _flag) {
  return std::string(1, static_cast<char>(_text.size())) + std::string(1, '\0') + (_flag ? '\1' : '\0') + _text;
}

// The status page of the process, as a listener shows it.
class ShownPage {
 public:
  explicit ShownPage(const SleepingListener::Settings& _settings) : settings_(_settings) {
    const std::string folder = "/dev/shm/qmrk-" + std::to_string(::geteuid()) + "/apps";
    orAbort(::mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST);
    const auto self = static_cast<std::uint32_t>(::getpid());
    path_ = folder + "/" + std::to_string(self);
    open();
    page_.number(status::pid, self).number(status::startTime, platform::startTimeOf(self));
    list(status::applications, settings_.applications, [](const std::string&) { return false; });
    page_.text(status::initPath, settings_.listPath).text(status::commonLogPath, settings_.commonLog);
    page_.text(status::caInEffect, _settings.ca).text(status::listenerEvent, "QMRK_LOG_EVENT");
    page_.number(status::listenerState, 1);
  }

  void apply() {
    std::string text;
    platform::TextReader(settings_.listPath).readAll(text);
    const Names on = qmrkctl::classesIn(text);
    page_.number(status::classGeneration, ++generation_).number(status::classHash, status::hashOf(text));
    page_.text(status::classText, text);
    page_.number(status::updateAt,
                 1'000'000 * static_cast<std::uint64_t>(platform::wallClockMilliseconds()) + generation_);
    page_.number(status::updateResult, 1);
    list(status::logs, settings_.logs,
         [&on](const std::string& _log) { return std::find(on.begin(), on.end(), _log) != on.end(); });
  }

  void show() {
    if (settings_.replacesPage && sequence_ > 2) {
      orAbort(::unlink(path_.c_str()) == 0);
      ::close(file_);
      open();
    }
    page_.number(status::sequence, sequence_ - 1);
    write(page_.bytes().substr(status::sequence.offset, 8), status::sequence.offset);
    write(page_.bytes(), 0);
    page_.number(status::sequence, sequence_);
    write(page_.bytes().substr(status::sequence.offset, 8), status::sequence.offset);
    sequence_ += 2;
  }

 private:
  void open() {
    file_ = ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    orAbort(file_ != -1);
  }

  void write(const std::string& _bytes, std::size_t _offset) const {
    orAbort(::pwrite(file_, _bytes.data(), _bytes.size(), static_cast<off_t>(_offset)) ==
            static_cast<ssize_t>(_bytes.size()));
  }

  template <class IsFlagged>
  void list(const status::Field& _field, const Names& _names, IsFlagged _isFlagged) {
    std::string bytes;
    for (const std::string& name : _names)
      bytes += entry(name, _isFlagged(name));
    page_.listHead(_field, static_cast<std::uint32_t>(_names.size()), 0, static_cast<std::uint32_t>(bytes.size()));
    page_.raw(_field.offset + status::listHead, bytes);
  }

  const SleepingListener::Settings& settings_;
  PageImage page_;
  std::string path_;
  int file_ = -1;
  std::uint64_t generation_ = 0;
  std::uint64_t sequence_ = 2;
};

void becomeWhatIsSet(const SleepingListener::Settings& _settings) {
  if (_settings.hasPrivateMemory) {
    orAbort(::unshare(CLONE_NEWNS) == 0);
    orAbort(::mount("qmrk-test", "/dev/shm", "tmpfs", 0, "mode=1777") == 0);
  }
  if (_settings.userId != 0) orAbort(::setresuid(_settings.userId, _settings.userId, _settings.userId) == 0);
}

// Never returns.
void live(const SleepingListener::Settings& _settings, int _ready) {
  becomeWhatIsSet(_settings);
  const platform::Handle event = platform::createEvent("QMRK_LOG_EVENT");
  orAbort(event != nullptr);
  if (_settings.applications.empty()) {
    orAbort(::write(_ready, "r", 1) == 1);
    for (;;)
      ::pause();
  }
  ShownPage page(_settings);
  if (!_settings.listPath.empty()) page.apply();
  page.show();
  orAbort(::write(_ready, "r", 1) == 1);
  while (!_settings.listPath.empty()) {
    orAbort(platform::waitForEvent(event, platform::waitForever) == platform::waitObject);
    page.apply();
    page.show();
    platform::resetEvent(event);
  }
  for (;;)
    ::pause();
}

}  // namespace

SleepingListener::SleepingListener(const Settings& _settings) {
  int ends[2];
  orAbort(::pipe(ends) == 0);
  process_ = ::fork();
  orAbort(process_ != -1);
  if (process_ == 0) live(_settings, ends[1]);
  ::close(ends[1]);
  char ready = 0;
  orAbort(::read(ends[0], &ready, 1) == 1);
  ::close(ends[0]);
}

SleepingListener::~SleepingListener() {
  ::kill(process_, SIGKILL);
  ::waitpid(process_, nullptr, 0);
}

void SleepingListener::stop() const {
  orAbort(::kill(process_, SIGSTOP) == 0);
  orAbort(::waitpid(process_, nullptr, WUNTRACED) == process_);
}

}  // namespace testsupport
