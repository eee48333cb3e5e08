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
constexpr unsigned int off = 4294967295U;

double perLogger(const std::vector<std::string>& _names) {
  const auto start = bench::nanoseconds();
  for (const std::string& name : _names) {
    const boost::logging::logger log(name);
    asm volatile("" : : "g"(&log) : "memory");
  }
  return static_cast<double>(bench::nanoseconds() - start) / static_cast<double>(_names.size());
}

void createLoggersOfExistingName(int _count) {
  const std::vector<std::string> names(static_cast<std::size_t>(_count), bench::logName);
  const boost::logging::logger first(names.front());
  bench::report("existing_name_ns", perLogger(names));
}

void createLoggersOfNewNames(int _count) {
  auto& manager = boost::logging::get_default_log_manager();
  for (int i = 0; i < rules; ++i) {
    boost::logging::enable_logs(manager, "Rule" + std::to_string(i), off);
  }
  std::vector<std::string> names;
  for (int i = 0; i < _count; ++i) {
    names.push_back("New.Module" + std::to_string(i) + ".info");
  }
  bench::report("new_name_ns", perLogger(names));
}

}  // namespace

int main(int _argc, char** _argv) {
  CLI::App app("Creates loggers and prints what one takes.");
  int existing = 1000000;
  int created = 100000;
  app.add_option("--existing", existing)->check(CLI::PositiveNumber);
  app.add_option("--new", created)->check(CLI::PositiveNumber);
  CLI11_PARSE(app, _argc, _argv);
  createLoggersOfExistingName(existing);
  createLoggersOfNewNames(created);
  return 0;
}
