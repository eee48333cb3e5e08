// SPDX-License-Identifier: MIT
#include "logsetup/setup_status.h"
#include "quillmark_logging.h"
#include "trace/trace_line.h"

namespace Quillmark_logging {
namespace {

void showUnregistered(const std::string& _appName) {
  const SetupStatus shown(status::Call::none);
  SetupStatus::noteUnregistered(_appName);
}

}  // namespace

bool unregisterApplication(const std::string& _appName) {
  traceLine("<=> Quillmark_logging::unregisterApplication() _appName=%s\r\n", _appName.c_str());
  showUnregistered(_appName);
  return true;
}

bool unregisterApplication(const std::string& _appName, const std::string& /*_ca*/) {
  traceLine("<=> Quillmark_logging::unregisterApplication() _appName=%s\r\n", _appName.c_str());
  showUnregistered(_appName);
  return true;
}

}  // namespace Quillmark_logging
