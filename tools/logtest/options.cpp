// SPDX-License-Identifier: MIT
#include "tools/logtest/options.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <iostream>

namespace logtest {
namespace {

constexpr char description[] =
    "Sets up the default logs as an application does, logs lines into some classes, and tells which classes are on.\n"
    "Exit code: 0 done, 1 the set-up failed, 2 wrong usage.";

constexpr int mostLines = 1000000;
constexpr double mostSeconds = 1000000;

// What is not a number ("nan") is in every range.
std::string isNumber(const std::string& _text) {
  double value = 0;
  return CLI::detail::lexical_cast(_text, value) && !std::isnan(value) ? "" : _text + " is not a number";
}

CLI::Option* addSetUpOptions(CLI::App& _app, Options& _options) {
  _app.add_flag("--cout", _options.writeToCout, "log to the standard output too");
  auto* const name =
      _app.add_option("--app", _options.app,
                      "connect the classes, with their list as it is written, to the file NAME_log.txt too")
          ->type_name("NAME");
  _app.add_flag("--overwrite", _options.overWrite, "empty that file at its first line, unless it is rotated")
      ->needs(name);
  return _app
      .add_option("--ca", _options.ca, "customer adaptation; without it DEFAULT_CA_NR of the environment, else GE")
      ->type_name("CA");
}

void addLineOptions(CLI::App& _app, Options& _options) {
  _app.add_option("--classes", _options.classes, "classes to log into, each ended by \";\"")
      ->type_name("LIST")
      ->capture_default_str();
  auto* const lines = _app.add_option("--lines", _options.lines, "lines into each class")
                          ->type_name("N")
                          ->check(CLI::Range(0, mostLines))
                          ->capture_default_str();
  _app.add_option("--listen", _options.listen,
                  "apply changed classes whenever the event QMRK_LOG_EVENT is set, and log a line into each class "
                  "every 100 ms, for so long")
      ->type_name("SECONDS")
      ->check(CLI::Range(0.0, mostSeconds))
      ->check(isNumber)
      ->excludes(lines);
  _app.add_flag("--stamps", _options.stamps, "put process, thread and location in front of each line");
}

}  // namespace

Parsed parseOptions(int _argc, const char* const* _argv, Options& _options) {
  CLI::App app(description, "LogTest");
  const auto* const ca = addSetUpOptions(app, _options);
  addLineOptions(app, _options);
  app.add_flag("--version", _options.version, "only tell the versions of the library and of this program");
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
