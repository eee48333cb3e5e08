// SPDX-License-Identifier: MIT
#include "tools/logtest/options.h"

#include <CLI/CLI.hpp>
#include <iostream>

namespace logtest {
namespace {

constexpr char description[] =
    "Sets up the default logs as an application does, logs lines into some classes, and tells which classes are on.\n"
    "Exit code: 0 done, 1 the set-up failed, 2 wrong usage.";

constexpr int mostLines = 1000000;

}  // namespace

Parsed parseOptions(int _argc, const char* const* _argv, Options& _options) {
  CLI::App app(description, "LogTest");
  const auto* ca =
      app.add_option("--ca", _options.ca, "customer adaptation; without it DEFAULT_CA_NR of the environment, else GE")
          ->type_name("CA");
  app.add_flag("--cout", _options.writeToCout, "log to the standard output too");
  app.add_option("--classes", _options.classes, "classes to log into, each ended by \";\"")
      ->type_name("LIST")
      ->capture_default_str();
  app.add_option("--lines", _options.lines, "lines into each class")
      ->type_name("N")
      ->check(CLI::Range(0, mostLines))
      ->capture_default_str();
  try {
    app.parse(_argc, _argv);
  } catch (const CLI::Success& asked) {
    app.exit(asked);
    return Parsed::done;
  } catch (const CLI::ParseError& error) {
    std::cerr << "LogTest: " << error.what() << "\nLogTest --help tells how it is used.\n";
    return Parsed::wrong;
  }
  _options.hasCa = ca->count() > 0;
  return Parsed::run;
}

}  // namespace logtest
