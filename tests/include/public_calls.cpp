/* SPDX-License-Identifier: MIT */
/* The calls of an application. With REFUSED_CALL, one more that must not compile. */

#include "quillmark_logging.h"
#include "quillmark_logging_names.h"

namespace {

struct Switch {
  operator bool() const { return true; } /* NOLINT(google-explicit-constructor): as applications have them */
};

}  // namespace

bool calls(const char* _text, int _number);
bool calls(const char* _text, int _number) {
  using namespace Quillmark_logging;
  const std::string ca(GENERIC_CA);
  bool ok = initDefaultLogs("App", true) && initDefaultLogs("App", 0) && initDefaultLogs("App", _number);
  ok = ok && initDefaultLogs(_text, _text != nullptr) && initDefaultLogs("App", Switch());
  ok = ok && initDefaultLogs("App", "GE", false) && initDefaultLogs("App", ca, 1) && initDefaultLogs(ca, _text, ok);
  ok = ok && createApplicationSpecificLogFile("App", "file", true) && createApplicationSpecificLogFile("*", ca, 0);
  ok = ok && createApplicationSpecificLogFile("App", "file", "CA12", true);
  ok = ok && createApplicationSpecificLogFile("App", "file", ca, Switch());
  std::string path;
  ok = ok && getCommonLogFilePath(path, ca) && setInitialLogLevels(path, ca);
  ok = ok && updateLogLevels() && updateLogLevels("CA12") && unregisterApplication("App");
  enableSpecifiedLogs("App.*");
#if REFUSED_CALL == 1
  ok = ok && initDefaultLogs("App", "CA12");
#elif REFUSED_CALL == 2
  ok = ok && initDefaultLogs(path, _text);
#elif REFUSED_CALL == 3
  ok = ok && initDefaultLogs("App", "CA12", "true");
#elif REFUSED_CALL == 4
  ok = ok && createApplicationSpecificLogFile("App", "file", "CA12");
#elif REFUSED_CALL == 5
  ok = ok && createApplicationSpecificLogFile("App", path, _text);
#elif REFUSED_CALL == 6
  ok = ok && createApplicationSpecificLogFile("App", "file", "CA12", "true");
#endif
  return ok;
}
