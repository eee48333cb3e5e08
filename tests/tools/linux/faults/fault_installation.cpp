// SPDX-License-Identifier: MIT
#include "tests/tools/linux/faults/fault_installation.h"

#include <sys/mount.h>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "platform/native_path.h"
#include "tests/support/linux/shared_memory_mount.h"

namespace testsupport {
namespace {

namespace fs = std::filesystem;

constexpr const char* classes[] = {"Demo.App.error", "Demo.App.info", "Demo.Net.error", "Demo.Net.info"};

std::size_t listeners() {
  const std::string apps = runProgram(QMRKCTL, {"apps", "--json"}).output;
  std::size_t found = 0;
  for (std::size_t at = 0; (at = apps.find("\"listens\": \"yes\"", at)) != std::string::npos; ++at)
    ++found;
  return found;
}

}  // namespace

FaultInstallation::FaultInstallation()
    : lines_{"CA_NR=CA12\n",
             "LOG_STATE=TRUE\n",
             "COMMON_LOG_FILE_NAME=common.log\n",
             "COMMON_LOG_FILE_ROOT=Logs\\Common\n",
             "COMMON_LOG_FILE_FILTER=Demo.App;Demo.Net;\n",
             "SPEC_LOG_ROTATION=TRUE\n",
             "SPEC_LOG_FILE_LIMIT=5000\n",
             "SPEC_NR_OF_LOG_FILES=3\n"} {
  write();
  generic("CA_NR=GE\nREDIRECT_CA_NR=CA12\n");
  init("Demo.App;\nDemo.Net.error;\n");
}

FaultInstallation::~FaultInstallation() {
  for (const std::string& name : variables_)
    setEnvironment(name, "");
  if (isDataMounted_ && ::umount2(data().c_str(), MNT_DETACH) != 0) std::abort();
  if (isMounted_) unmountSharedMemory();
}

void FaultInstallation::cfgLine(int _line, const std::string& _text) {
  lines_.at(static_cast<std::size_t>(_line) - 1) = _text;
  write();
}

std::string FaultInstallation::cfgText() const {
  std::string text;
  for (const std::string& line : lines_)
    text += line;
  return text;
}

void FaultInstallation::write() const { cfg(cfgText()); }

std::string FaultInstallation::cfgPath() const { return platform::nativePath(sandbox_.cfgPath("CA12")); }
std::string FaultInstallation::genericPath() const { return platform::nativePath(sandbox_.cfgPath("GE")); }
std::string FaultInstallation::initPath() const { return platform::nativePath(sandbox_.initPath("CA12")); }

void FaultInstallation::runAs(unsigned int _uid) {
  uid_ = std::to_string(_uid);
  for (const std::string program : {QMRK_LOGTEST, QMRKCTL, QMRK_LIBRARY, QMRK_MANAGER_LIBRARY}) {
    fs::copy(program, programs_.path() + "/" + fs::path(program).filename().string());
  }
  environment("LD_LIBRARY_PATH", programs_.path());
}

void FaultInstallation::environment(const std::string& _name, const std::string& _value) {
  setEnvironment(_name, _value);
  variables_.push_back(_name);
}

void FaultInstallation::fillDisk() {
  mountSharedMemory("size=4k");
  isMounted_ = true;
  environment("QMRK_APPDATA", "/dev/shm");
  std::ofstream("/dev/shm/filler") << std::string(4096, 'x');
}

// Not the place of the status page, which needs room too.
void FaultInstallation::almostFillDisk() {
  mountSharedMemory("");
  isMounted_ = true;
  if (::mount("qmrk-test", data().c_str(), "tmpfs", MS_NOSUID | MS_NODEV, "size=128k") != 0) std::abort();
  isDataMounted_ = true;
  std::ofstream(data() + "/filler") << std::string(std::size_t{84} * 1024, 'x');
}

void FaultInstallation::exhaustInodes() {
  mountSharedMemory("nr_inodes=3");
  isMounted_ = true;
  environment("QMRK_APPDATA", "/dev/shm");
}

void FaultInstallation::protectDisk() {
  mountSharedMemory("");
  isMounted_ = true;
  environment("QMRK_APPDATA", "/dev/shm");
  fs::create_directories("/dev/shm/Logs/Common");
  if (::mount(nullptr, "/dev/shm", nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0) std::abort();
}

void FaultInstallation::start(const std::string& _arguments, const std::string& _limits) {
  const std::string program = "exec " + std::string(QMRK_LOGTEST) + " --listen 600 " + _arguments;
  companions_.emplace_back(std::vector<std::string>{"/bin/sh", "-c", "echo $$; " + _limits + program});
  running_ = std::stoi(companions_.back().readLine());
  if (companions_.back().readLine().find(" is o") == std::string::npos) std::abort();
  // Its listener is a thread that has only begun to start; those of the ones before it listen.
  while (listeners() < companions_.size())
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

void FaultInstallation::replaceLibrary() const {
  const std::string library = programs_.path() + "/" + fs::path(QMRK_LIBRARY).filename().string();
  fs::copy(QMRK_LIBRARY, library + ".new");
  fs::rename(library + ".new", library);
}

void FaultInstallation::signal(int _signal) const {
  if (::kill(running_, _signal) != 0) std::abort();
  if (_signal == SIGSTOP && ::waitpid(running_, nullptr, WUNTRACED) != running_) std::abort();
}

ChildResult FaultInstallation::run(const std::string& _program, const std::vector<std::string>& _arguments) const {
  if (uid_.empty()) return runProgram(_program, _arguments);
  std::vector<std::string> arguments = {"--reuid=" + uid_, "--regid=" + uid_, "--clear-groups",
                                        programs_.path() + "/" + fs::path(_program).filename().string()};
  arguments.insert(arguments.end(), _arguments.begin(), _arguments.end());
  return runProgram("/usr/bin/setpriv", arguments);
}

ChildResult FaultInstallation::logTest(const std::vector<std::string>& _arguments) const {
  return run(QMRK_LOGTEST, _arguments);
}

ChildResult FaultInstallation::qmrkctl(const std::vector<std::string>& _arguments) const {
  return run(QMRKCTL, _arguments);
}

std::vector<std::string> FaultInstallation::classesIn(const std::string& _log) {
  std::vector<std::string> found;
  std::error_code error;
  if (!fs::is_regular_file(_log, error)) return found;
  const std::string text = readFile(_log);
  for (const char* const each : classes) {
    if (text.find("[" + std::string(each) + "]") != std::string::npos) found.emplace_back(each);
  }
  return found;
}

}  // namespace testsupport
