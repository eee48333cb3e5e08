// SPDX-License-Identifier: MIT
// log4cxx: FileAppender or RollingFileAppender (fixed window, size-based) with immediate flush and a pattern layout;
// queued: its AsyncAppender with a buffer of 8192 messages.
#include <log4cxx/asyncappender.h>
#include <log4cxx/fileappender.h>
#include <log4cxx/level.h>
#include <log4cxx/logger.h>
#include <log4cxx/patternlayout.h>
#include <log4cxx/rolling/fixedwindowrollingpolicy.h>
#include <log4cxx/rolling/rollingfileappender.h>
#include <log4cxx/rolling/sizebasedtriggeringpolicy.h>

#include <vector>

#include "bench/message.h"
#include "bench/subject.h"

namespace bench {
namespace {

using log4cxx::Level;
using log4cxx::Logger;
using log4cxx::LoggerPtr;

class Log4cxx final : public Subject {
 public:
  bool openPlain(const std::string& _file) override { return use(plain(_file)); }

  bool openRolling(const std::string& _file, int _bytes, int _files) override {
    const auto window = std::make_shared<log4cxx::rolling::FixedWindowRollingPolicy>();
    window->setMinIndex(1);
    window->setMaxIndex(_files - 1);
    window->setFileNamePattern(_file + ".%i");
    const auto trigger = std::make_shared<log4cxx::rolling::SizeBasedTriggeringPolicy>();
    trigger->setMaxFileSize(static_cast<std::size_t>(_bytes));
    const auto appender = std::make_shared<log4cxx::rolling::RollingFileAppender>();
    appender->setLayout(layout());
    appender->setFile(_file);
    appender->setRollingPolicy(window);
    appender->setTriggeringPolicy(trigger);
    appender->setImmediateFlush(true);
    activate(*appender);
    return use(appender);
  }

  bool openQueued(const std::string& _file) override {
    const auto appender = std::make_shared<log4cxx::AsyncAppender>();
    appender->setBufferSize(8192);
    appender->addAppender(plain(_file));
    activate(*appender);
    return use(appender);
  }

  void logLines(int _count) override {
    static const LoggerPtr log = Logger::getLogger(logName);
    for (int i = 0; i < _count; ++i) {
      LOG4CXX_INFO(log, BENCH_MESSAGE_HEAD << firstInteger + i << BENCH_MESSAGE_TAIL);
    }
  }

  bool logOffLines(int _count) override {
    const LoggerPtr log = Logger::getLogger("off");
    log->setLevel(Level::getOff());
    for (int i = 0; i < _count; ++i) {
      LOG4CXX_INFO(log, BENCH_MESSAGE_HEAD << firstInteger + i << BENCH_MESSAGE_TAIL);
    }
    return true;
  }

  bool makeLogs(int _logs) override {
    for (int i = 0; i < _logs; ++i) {
      names_.push_back(nameOf(i));
      Logger::getLogger(names_.back());
    }
    return true;
  }

  void updateLevels(int _logs) override {
    for (const LoggerPtr& log : Logger::getRootLogger()->getLoggerRepository()->getCurrentLoggers()) {
      log->setLevel(Level::getOff());
    }
    for (int i = 0; i < _logs; ++i) {
      Logger::getLogger(names_[static_cast<std::size_t>(i)])->setLevel(Level::getTrace());
    }
  }

 private:
  static void activate(log4cxx::AppenderSkeleton& _appender) {
    log4cxx::helpers::Pool pool;
    _appender.activateOptions(pool);
  }

  static log4cxx::LayoutPtr layout() {
    return std::make_shared<log4cxx::PatternLayout>("[%c] %d{yyyyMMdd HH:mm:ss.SSS} %m%n");
  }

  static log4cxx::AppenderPtr plain(const std::string& _file) {
    const auto appender = std::make_shared<log4cxx::FileAppender>(layout(), _file, true);
    appender->setImmediateFlush(true);
    return appender;
  }

  static bool use(const log4cxx::AppenderPtr& _appender) {
    const LoggerPtr log = Logger::getLogger(logName);
    log->setAdditivity(false);
    log->setLevel(Level::getTrace());
    log->addAppender(_appender);
    return true;
  }

  std::vector<std::string> names_;
};

}  // namespace

std::unique_ptr<Subject> makeLog4cxx() { return std::make_unique<Log4cxx>(); }

}  // namespace bench
