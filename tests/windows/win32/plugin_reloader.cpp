// SPDX-License-Identifier: MIT
// plugin_reloader PLUGIN ROUNDS: loads the plugin, lets it log and unloads it, again and again. Says what went wrong.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <initializer_list>

namespace {

int fail(const char* _what, int _round) {
  std::fprintf(stderr, "%s in round %d, error %lu\n", _what, _round, ::GetLastError());
  return 1;
}

}  // namespace

int main(int _count, char** _arguments) {
  if (_count != 3) return 2;
  const int rounds = std::atoi(_arguments[2]);
  for (int round = 1; round <= rounds; ++round) {
    const HMODULE plugin = ::LoadLibraryA(_arguments[1]);
    if (plugin == nullptr) return fail("the plugin is not loaded", round);
    const FARPROC entry = ::GetProcAddress(plugin, "setUpAndLog");
    if (entry == nullptr) return fail("the plugin has no entry", round);
    if (reinterpret_cast<int (*)()>(reinterpret_cast<void*>(entry))() == 0) return fail("the set-up failed", round);
    if (!::FreeLibrary(plugin)) return fail("the plugin is not unloaded", round);
    for (const char* library : {"qmrk_log.dll", "boost_log-vc80-mt-1_33.dll"}) {
      if (::GetModuleHandleA(library) != nullptr) return fail("a library is still loaded", round);
    }
  }
  return 0;
}
