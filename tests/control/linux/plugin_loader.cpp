// SPDX-License-Identifier: MIT
// plugin_loader alone LIBRARY: loads the library and closes it again, and succeeds when it has stayed.
// plugin_loader log PLUGIN: lets the plugin log and closes it, twice.
// plugin_loader listen PLUGIN: lets the plugin start a listener, closes it and sets the event.
// Says what went wrong.
#include <dlfcn.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <thread>

#include "platform/named_event.h"

namespace {

int fail(const char* _what) {
  const char* const reason = ::dlerror();
  std::fprintf(stderr, "%s: %s\n", _what, reason == nullptr ? "" : reason);
  return 1;
}

// Looks again and again, for at most half a minute.
template <class Condition>
bool comesTrue(const Condition& _condition) {
  for (int looks = 0; looks < 30'000; ++looks) {
    if (_condition()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return false;
}

int callAndClose(const char* _plugin, const char* _function, bool (*_mayClose)()) {
  void* const plugin = ::dlopen(_plugin, RTLD_NOW | RTLD_LOCAL);
  if (plugin == nullptr) return fail("dlopen");
  const auto function = reinterpret_cast<int (*)()>(::dlsym(plugin, _function));
  if (function == nullptr) return fail("dlsym");
  if (function() != 1) return fail(_function);
  if (!_mayClose()) return fail("the plugin never got ready");
  if (::dlclose(plugin) != 0) return fail("dlclose");
  return ::dlopen(_plugin, RTLD_NOW | RTLD_NOLOAD) == nullptr ? 0 : fail("the plugin has stayed");
}

platform::Handle event() {
  static platform::Handle opened = nullptr;
  if (opened == nullptr) opened = platform::openEvent("QMRK_LOG_EVENT");
  return opened;
}

int listenWithoutThePlugin(const char* _plugin) {
  const int result =
      callAndClose(_plugin, "startListener", [] { return comesTrue([] { return event() != nullptr; }); });
  if (result != 0) return result;
  for (int settings = 0; settings < 2; ++settings) {
    if (!platform::setEvent(event())) return fail("setEvent");
    if (!comesTrue([] { return platform::waitForEvent(event(), 0) == platform::waitTimeout; })) return fail("no reset");
  }
  return 0;
}

int stayAlone(const char* _library) {
  void* const library = ::dlopen(_library, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) return fail("dlopen");
  if (::dlclose(library) != 0) return fail("dlclose");
  return ::dlopen(_library, RTLD_NOW | RTLD_NOLOAD) != nullptr ? 0 : fail("the library is gone");
}

}  // namespace

int main(int _count, char** _arguments) {
  if (_count != 3) return 2;
  const std::string action = _arguments[1];
  if (action == "alone") return stayAlone(_arguments[2]);
  if (action == "listen") return listenWithoutThePlugin(_arguments[2]);
  for (int round = 0; round < 2; ++round) {
    const int result = callAndClose(_arguments[2], "setUpAndLog", [] { return true; });
    if (result != 0) return result;
  }
  return 0;
}
