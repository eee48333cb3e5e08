// SPDX-License-Identifier: MIT
#include "logsetup/periodic_file_appender.h"

#include "platform/clock.h"

namespace boost::logging {
namespace {

constexpr std::int32_t hour = 3600;
constexpr std::int32_t day = 24 * hour;

std::int64_t now() { return platform::wallClockMilliseconds() / 1000; }

}  // namespace

periodic_file_appender::periodic_file_appender(const std::string& _fileName, std::int32_t _periodSeconds,
                                               name_function _nameFn, bool _append)
    : file_appender(_fileName, _nameFn, _append), period_seconds(_periodSeconds), last_open(now()) {}

void periodic_file_appender::write(const std::string& _msg) {
  const std::int64_t time = now();
  if (time - last_open >= period_seconds) {
    file().out.close();
    file().open(false);
    last_open = time;
  }
  file_appender::write(_msg);
}

periodic_file_appender periodic_file_appender::hourly(const std::string& _fileName, name_function _nameFn,
                                                      bool _append) {
  return {_fileName, hour, _nameFn, _append};
}

periodic_file_appender periodic_file_appender::daily(const std::string& _fileName, name_function _nameFn,
                                                     bool _append) {
  return {_fileName, day, _nameFn, _append};
}

periodic_file_appender periodic_file_appender::weekly(const std::string& _fileName, name_function _nameFn,
                                                      bool _append) {
  return {_fileName, 7 * day, _nameFn, _append};
}

periodic_file_appender periodic_file_appender::monthly(const std::string& _fileName, name_function _nameFn,
                                                       bool _append) {
  return {_fileName, 31 * day, _nameFn, _append};
}

periodic_file_appender periodic_file_appender::yearly(const std::string& _fileName, name_function _nameFn,
                                                      bool _append) {
  return {_fileName, 365 * day, _nameFn, _append};
}

}  // namespace boost::logging
