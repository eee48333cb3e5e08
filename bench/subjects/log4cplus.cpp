// SPDX-License-Identifier: MIT
// log4cplus: FileAppender or RollingFileAppender with immediate flush and a pattern layout; queued: its AsyncAppender
// round a FileAppender, with a queue of 8192 messages.
#include <log4cplus/asyncappender.h>
#include <log4cplus/fileappender.h>
#include <log4cplus/initializer.h>
#include <log4cplus/layout.h>
#include <log4cplus/logger.h>
#include <log4cplus/loggingmacros.h>
#include <log4cplus/nullappender.h>

#include "bench/message.h"
#include "bench/subject.h"

namespace bench {
namespace {

using log4cplus::Logger;

class Log4cplus final : public Subject {
 public:
  bool openPlain(const std::string& _file) override {
    return use(new log4cplus::FileAppender(_file, std::ios_base::app, true));
  }

  bool openRolling(const std::string& _file, int _bytes, int _files) override {
    return use(new log4cplus::RollingFileAppender(_file, _bytes, _files - 1, true));
  }

  bool openQueued(const std::string& _file) override {
    log4cplus::SharedAppenderPtr file(new log4cplus::FileAppender(_file, std::ios_base::app, true));
    file->setLayout(layout());
    return use(new log4cplus::AsyncAppender(file, 8192));
  }

  void logLines(int _count) override {
    static const Logger log = Logger::getInstance(logName);
    for (int i = 0; i < _count; ++i) {
      LOG4CPLUS_INFO(log, BENCH_MESSAGE_HEAD << firstInteger + i << BENCH_MESSAGE_TAIL);
    }
  }

  bool logOffLines(int _count) override {
    Logger log = Logger::getInstance("off");
    log.setLogLevel(log4cplus::OFF_LOG_LEVEL);
    for (int i = 0; i < _count; ++i) {
      LOG4CPLUS_INFO(log, BENCH_MESSAGE_HEAD << firstInteger + i << BENCH_MESSAGE_TAIL);
    }
    return true;
  }

  bool makeLogs(int _logs) override {
    for (int i = 0; i < _logs; ++i) {
      names_.push_back(nameOf(i));
      Logger::getInstance(names_.back());
    }
    return true;
  }

  void updateLevels(int _logs) override {
    for (Logger& log : Logger::getCurrentLoggers()) {
      log.setLogLevel(log4cplus::OFF_LOG_LEVEL);
    }
    for (int i = 0; i < _logs; ++i) {
      Logger::getInstance(names_[static_cast<std::size_t>(i)]).setLogLevel(log4cplus::TRACE_LOG_LEVEL);
    }
  }

 private:
  static std::unique_ptr<log4cplus::Layout> layout() {
    return std::make_unique<log4cplus::PatternLayout>("[%c] %D{%Y%m%d %H:%M:%S.%q} %m%n");
  }

  static bool use(log4cplus::Appender* _appender) {
    const log4cplus::SharedAppenderPtr appender(_appender);
    appender->setLayout(layout());
    Logger log = Logger::getInstance(logName);
    log.setAdditivity(false);
    log.setLogLevel(log4cplus::TRACE_LOG_LEVEL);
    log.addAppender(appender);
    return true;
  }

  log4cplus::Initializer initializer_;
  std::vector<std::string> names_;
};

}  // namespace

std::unique_ptr<Subject> makeLog4cplus() { return std::make_unique<Log4cplus>(); }

}  // namespace bench
