// SPDX-License-Identifier: MIT
// plugin_host PLUGIN ROUNDS: loads the plugin, lets it log and unloads it, so often. Prints how many files and threads
// the process has after the tenth round and after the last, where it waits at most 30 s until they are no more than
// before: a writer that was replaced ends a moment later.
#include <dlfcn.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <thread>

namespace {

long entriesOf(const char* _folder) {
  return std::distance(std::filesystem::directory_iterator(_folder), std::filesystem::directory_iterator());
}

struct Use {
  long files = entriesOf("/proc/self/fd");
  long threads = entriesOf("/proc/self/task");

  void print() const { std::printf("%ld files, %ld threads\n", files, threads); }
};

Use settled(const Use& _before) {
  Use use;
  for (int look = 0; look < 3000 && (use.files > _before.files || use.threads > _before.threads); ++look) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    use = Use();
  }
  return use;
}

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
  Use early;
  for (int round = 1; round <= rounds; ++round) {
    if (!playRound(_arguments[1], round)) {
      const char* const reason = ::dlerror();
      std::fprintf(stderr, "round %d: %s\n", round, reason == nullptr ? "no set-up" : reason);
      return 1;
    }
    if (round == 10) early = Use();
  }
  early.print();
  settled(early).print();
  return 0;
}
