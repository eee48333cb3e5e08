// SPDX-License-Identifier: MIT
// Log classes that follow the .init file while the application runs. Start it, add "Demo.Net.details;" to
// qmrk_logging_CA12.init, then run: qmrkctl signal

#include <quillmark_logging.h>
#include <boost/logging/logging.hpp>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <thread>

static boost::logging::logger details("Demo.Net.details");

int main() {
  // The trap: the set-up below names its CA, but a listener re-reads the class list of the *default* CA. So the name
  // also goes into DEFAULT_CA_NR, before a thread is started that could read the environment.
  static char defaultCa[] = "DEFAULT_CA_NR=CA12";
  putenv(defaultCa);
  if (!Quillmark_logging::initDefaultLogs("listener", "CA12", false)) return 1;

  LogEventHandler listener;  // its thread waits for the event that "qmrkctl signal" sets
  if (listener.isCreated() == 0) return 1;

  std::cout << "waiting until Demo.Net.details is on" << std::endl;
  while (!details.is_enabled())
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  QMRK_LOG(details) << "switched on while the application ran";
}
