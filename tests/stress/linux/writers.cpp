// SPDX-License-Identifier: MIT
#include "tests/stress/linux/writers.h"

#include <unistd.h>

#include <boost/logging/logging.hpp>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "quillmark_logging.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/temporary_folder.h"
#include "trace/trace_flags.h"

namespace stress {
namespace {

constexpr char logName[] = "Stress.writer";
constexpr int backupCount = 60;

}  // namespace

Writers::Writers() {
  const std::string common =
      "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\n"
      "SPEC_LOG_FILE_LIMIT=20000\nSPEC_NR_OF_LOG_FILES=" +
      std::to_string(backupCount + 1) + "\n";
  sandbox_.writeCfg("CA12", common + "COMMON_LOG_FILE_FILTER=Stress;\n");
  sandbox_.writeCfg("CA13", common + "COMMON_LOG_FILE_FILTER=Other;\n");
  sandbox_.writeCfg("CA14", common + "COMMON_LOG_FILE_FILTER=Other;\nSPEC_LOG_ROTATION=TRUE\n");
  for (const char* ca : {"CA12", "CA13", "CA14"})
    sandbox_.writeInit(ca, "Stress;Other;");
}

bool Writers::setUp(Way _way) {
  const bool isCommon = _way == Way::commonLog || _way == Way::threadSafe;
  const std::string ca = isCommon ? "CA12" : _way == Way::applicationFile ? "CA13" : "CA14";
  Quillmark_logging::setTsMode(_way == Way::threadSafe);
  return Quillmark_logging::initDefaultLogs("Stress", ca, false) &&
         (isCommon || Quillmark_logging::createApplicationSpecificLogFile("Stress;", "Stress", ca, false));
}

void Writers::logLines(Oracle& _oracle, std::uint32_t _writer, int _count, std::size_t _largestFiller) {
  const boost::logging::logger log(logName);
  for (int i = 0; i < _count; ++i) {
    // All lengths come, the long ones less often.
    const std::size_t size = (_writer * 7919U + static_cast<std::size_t>(i) * 104729U) % (_largestFiller + 1);
    const std::string text = _oracle.next(_writer, i % 10 == 0 ? size : size % 200);
    QMRK_LOG(log) << text;
    _oracle.acknowledge(_writer);
  }
}

pid_t Writers::start(Way _way, const std::function<void()>& _function) {
  const pid_t process = ::fork();
  if (process != 0) return process;
  ::alarm(300);
  if (!setUp(_way)) ::_exit(2);
  _function();
  std::exit(0);
}

std::string Writers::path(Way _way) const {
  const bool isCommon = _way == Way::commonLog || _way == Way::threadSafe;
  return sandbox_.logFolder() + (isCommon ? "\\common.log" : "\\Application logs\\Stress_log.txt");
}

std::string Writers::text(Way _way) const {
  std::string text;
  for (int backup = backupCount; backup > 0; --backup) {
    const std::string name = path(_way) + "." + std::to_string(backup);
    if (testsupport::exists(name)) text += testsupport::readFile(name);
  }
  // Who is killed in the middle of a roll leaves none of this name.
  return testsupport::exists(path(_way)) ? text + testsupport::readFile(path(_way)) : text;
}

void expectNormalEnds(const std::vector<pid_t>& _processes) {
  for (const pid_t process : _processes)
    EXPECT_EQ(testsupport::exitCodeOf(process), 0);
}

bool comesTrue(const std::function<bool()>& _condition) {
  const auto giveUp = std::chrono::steady_clock::now() + std::chrono::minutes(2);
  while (!_condition()) {
    if (std::chrono::steady_clock::now() > giveUp) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

}  // namespace stress
