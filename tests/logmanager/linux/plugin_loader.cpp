// SPDX-License-Identifier: MIT
#include <dlfcn.h>

#include <cstdio>

// plugin_loader PLUGIN FILE LOG_MANAGER: loads the plugin, lets it log and unloads it, twice. Says what went wrong.

namespace {

int fail(const char* _what) {
  std::fprintf(stderr, "%s: %s\n", _what, ::dlerror());
  return 1;
}

}  // namespace

int main(int _count, char** _arguments) {
  if (_count != 4) return 2;
  for (int round = 0; round < 2; ++round) {
    void* const plugin = ::dlopen(_arguments[1], RTLD_NOW | RTLD_LOCAL);
    if (plugin == nullptr) return fail("dlopen");
    const auto log = reinterpret_cast<void (*)(const char*, int)>(::dlsym(plugin, "logThroughPlugin"));
    if (log == nullptr) return fail("dlsym");
    log(_arguments[2], 1000);
    if (::dlclose(plugin) != 0) return fail("dlclose");
    if (::dlopen(_arguments[3], RTLD_NOW | RTLD_NOLOAD) != nullptr) return fail("the log manager is still loaded");
  }
  return 0;
}
