// SPDX-License-Identifier: MIT
// This library by its real path: a statement, the three modifiers of the default set-up, the appender of the set-up.
#include <string>
#include <vector>

#include "bench/message.h"
#include "bench/subject.h"
#include "boost/logging/format.hpp"
#include "boost/logging/logging.hpp"
#include "logsetup/rolling_file_appender.h"

namespace bench {
namespace {

namespace logging = boost::logging;

constexpr int index = 100;

class Qmrk : public Subject {
 public:
  bool openPlain(const std::string& _file) override { return connect(logging::write_to_file(_file, false)); }

  bool openRolling(const std::string& _file, int _bytes, int _files) override {
    return connect(logging::rolling_file_appender(_file, _bytes - 1, _files - 1, nullptr, true));
  }

  bool openQueued(const std::string& _file) override {
    return connect(logging::ts_appender(logging::write_to_file(_file, false), 0));
  }

  void logLines(int _count) override {
    static const logging::logger log(logName);
    for (int i = 0; i < _count; ++i) {
      QMRK_LOG(log) << BENCH_MESSAGE_HEAD << firstInteger + i << BENCH_MESSAGE_TAIL;
    }
  }

  bool logOffLines(int _count) override {
    static const logging::logger log("App.Module.debug");
    logging::enable_logs(logging::get_default_log_manager(), log.name(), logging::level_off);
    for (int i = 0; i < _count; ++i) {
      QMRK_LOG(log) << BENCH_MESSAGE_HEAD << firstInteger + i << BENCH_MESSAGE_TAIL;
    }
    return true;
  }

  bool makeLogs(int _logs) override {
    for (int i = 0; i < _logs; ++i) {
      logs_.emplace_back(nameOf(i));
      patterns_.push_back(nameOf(i));
    }
    return true;
  }

  void updateLevels(int _logs) override {
    auto& manager = logging::get_default_log_manager();
    logging::set_up_change change(manager);
    logging::enable_logs(manager, "*", logging::level_off);
    for (int i = 0; i < _logs; ++i) {
      logging::enable_logs(manager, patterns_[static_cast<std::size_t>(i)], logging::level_on);
    }
    change.apply();
  }

 private:
  static bool connect(const logging::appender& _appender) {
    auto& manager = logging::get_default_log_manager();
    logging::add_modifier(manager, "*", logging::prepend_time_ms("$yyyy$MM$dd $hh:$mm:$ss.$mss "), "stamp", index);
    logging::add_modifier(manager, "*", logging::prepend_prefix, "prefix", index);
    logging::add_modifier(manager, "*", logging::append_enter, "enter", index);
    logging::add_appender(manager, "App", _appender, "file", index);
    logging::flush_log_cache();
    return true;
  }

  std::vector<logging::logger> logs_;
  std::vector<std::string> patterns_;
};

/// The same by the form with a format.
class QmrkFormatted final : public Qmrk {
 public:
  void logLines(int _count) override {
    static const logging::logger log(logName);
    for (int i = 0; i < _count; ++i) {
      QMRK_LOGF(log, BENCH_MESSAGE_HEAD "{}" BENCH_MESSAGE_TAIL, firstInteger + i);
    }
  }

  bool logOffLines(int _count) override {
    static const logging::logger log("App.Module.debug");
    logging::enable_logs(logging::get_default_log_manager(), log.name(), logging::level_off);
    for (int i = 0; i < _count; ++i) {
      QMRK_LOGF(log, BENCH_MESSAGE_HEAD "{}" BENCH_MESSAGE_TAIL, firstInteger + i);
    }
    return true;
  }

  bool makeLogs(int /*_logs*/) override { return false; }
};

}  // namespace

std::unique_ptr<Subject> makeQmrk() { return std::make_unique<Qmrk>(); }

std::unique_ptr<Subject> makeQmrkFormatted() { return std::make_unique<QmrkFormatted>(); }

}  // namespace bench
