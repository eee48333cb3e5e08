// SPDX-License-Identifier: MIT
// plugin_host PLUGIN ROUNDS: loads the plugin, lets it log and unloads it, so often. Prints how many files and threads
// the process has after the tenth round and after the last.
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>

namespace {

long entriesOf(const char* _folder) {
  return std::distance(std::filesystem::directory_iterator(_folder), std::filesystem::directory_iterator());
}

void printUse() { std::printf("%ld files, %ld threads\n", entriesOf("/proc/self/fd"), entriesOf("/proc/self/task")); }

bool playRound(const char* _plugin, int _round) {
  void* const plugin = ::dlopen(_plugin, RTLD_NOW | RTLD_LOCAL);
  if (plugin == nullptr) return false;
  const auto logOnce = reinterpret_cast<int (*)(int)>(::dlsym(plugin, "logOnce"));
  return logOnce != nullptr && logOnce(_round) == 1 && ::dlclose(plugin) == 0;
}

}  // namespace

int main(int _count, char** _arguments) {
  if (_count != 3) return 2;
  const int rounds = std::atoi(_arguments[2]);
  for (int round = 1; round <= rounds; ++round) {
    if (!playRound(_arguments[1], round)) {
      const char* const reason = ::dlerror();
      std::fprintf(stderr, "round %d: %s\n", round, reason == nullptr ? "no set-up" : reason);
      return 1;
    }
    if (round == 10 || round == rounds) printUse();
  }
  return 0;
}
