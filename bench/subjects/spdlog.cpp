// SPDX-License-Identifier: MIT
// spdlog: a basic or rotating file sink, flushed at every message; queued: its asynchronous logger with the default
// queue of 8192 messages and one thread, which blocks when the queue is full.
#include <spdlog/async.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/sinks/null_sink.h>
#include <spdlog/sinks/rotating_file_sink.h>
#include <spdlog/spdlog.h>

#include "bench/message.h"
#include "bench/subject.h"

namespace bench {
namespace {

class Spdlog final : public Subject {
 public:
  ~Spdlog() override { spdlog::shutdown(); }

  bool openPlain(const std::string& _file) override {
    return use(spdlog::basic_logger_mt(logName, _file), spdlog::level::trace);
  }

  bool openRolling(const std::string& _file, int _bytes, int _files) override {
    return use(spdlog::rotating_logger_mt(logName, _file, static_cast<std::size_t>(_bytes),
                                          static_cast<std::size_t>(_files - 1)),
               spdlog::level::trace);
  }

  bool openQueued(const std::string& _file) override {
    return use(spdlog::basic_logger_mt<spdlog::async_factory>(logName, _file), spdlog::level::off);
  }

  void logLines(int _count) override {
    for (int i = 0; i < _count; ++i) {
      logger_->info(BENCH_MESSAGE_HEAD "{}" BENCH_MESSAGE_TAIL, firstInteger + i);
      if (queued_ && i + 1 == _count) {
        logger_->flush();
      }
    }
  }

  bool logOffLines(int _count) override {
    const auto log = spdlog::null_logger_mt("off");
    log->set_level(spdlog::level::off);
    for (int i = 0; i < _count; ++i) {
      log->info(BENCH_MESSAGE_HEAD "{}" BENCH_MESSAGE_TAIL, firstInteger + i);
    }
    return true;
  }

  bool makeLogs(int _logs) override {
    for (int i = 0; i < _logs; ++i) {
      spdlog::null_logger_mt(nameOf(i));
      names_.push_back(nameOf(i));
    }
    return true;
  }

  void updateLevels(int _logs) override {
    spdlog::apply_all([](const std::shared_ptr<spdlog::logger>& _log) { _log->set_level(spdlog::level::off); });
    for (int i = 0; i < _logs; ++i) {
      spdlog::get(names_[static_cast<std::size_t>(i)])->set_level(spdlog::level::trace);
    }
  }

 private:
  bool use(std::shared_ptr<spdlog::logger> _logger, spdlog::level::level_enum _flush) {
    logger_ = std::move(_logger);
    logger_->set_pattern("[%n] %Y%m%d %H:%M:%S.%e %v");
    logger_->flush_on(_flush);
    queued_ = _flush == spdlog::level::off;
    return true;
  }

  std::shared_ptr<spdlog::logger> logger_;
  std::vector<std::string> names_;
  bool queued_ = false;
};

}  // namespace

std::unique_ptr<Subject> makeSpdlog() { return std::make_unique<Spdlog>(); }

}  // namespace bench
