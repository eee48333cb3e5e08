// SPDX-License-Identifier: MIT
// A logger for a name that exists, and for a new name while 1,000 rules are in force. Prints nanoseconds per logger.
#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "bench/harness.h"
#include "bench/message.h"
#include "boost/logging/logging.hpp"

namespace {

constexpr int rules = 1000;

void create(const std::string& _name) {
  const boost::logging::logger log(_name);
  asm volatile("" : : "g"(&log) : "memory");
}

void createLoggersOfExistingName(int _count) {
  const std::string name = bench::logName;
  create(name);
  const auto start = bench::nanoseconds();
  for (int i = 0; i < _count; ++i) {
    create(name);
  }
  bench::report("existing_name_ns", static_cast<double>(bench::nanoseconds() - start) / _count);
}

void createLoggersOfNewNames(int _count) {
  auto& manager = boost::logging::get_default_log_manager();
  for (int i = 0; i < rules; ++i) {
    boost::logging::enable_logs(manager, "Rule" + std::to_string(i), boost::logging::level_off);
  }
  std::vector<std::string> names;
  for (int i = 0; i < _count; ++i) {
    names.push_back("New.Module" + std::to_string(i) + ".info");
  }
  const auto start = bench::nanoseconds();
  for (const std::string& name : names) {
    create(name);
  }
  bench::report("new_name_ns", static_cast<double>(bench::nanoseconds() - start) / _count);
}

}  // namespace

int main(int _argc, char** _argv) {
  CLI::App app("Creates loggers and prints what one takes.");
  int existing = 1000000;
  int created = 10000;
  app.add_option("--existing", existing)->check(CLI::PositiveNumber);
  app.add_option("--new", created)->check(CLI::PositiveNumber);
  CLI11_PARSE(app, _argc, _argv);
  createLoggersOfExistingName(existing);
  createLoggersOfNewNames(created);
  return 0;
}
