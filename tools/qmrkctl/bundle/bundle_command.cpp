// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "quillmark_logging_names.h"
#include "quillmark_logging_version.h"
#include "tools/logs/log_files.h"
#include "tools/qmrkctl/argument_check.h"
#include "tools/qmrkctl/bundle/tar_archive.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/tail/viewpoints.h"
#include "tools/qmrkctl/utc_time.h"
#include "tools/system/elevation.h"
#include "tools/system/host.h"
#include "tools/system/own_program.h"
#include "tools/system/path_facts.h"
#include "tools/system/private_file.h"

namespace qmrkctl {
namespace {

constexpr std::size_t mostOfAPart = std::size_t{16} * 1024 * 1024;

// A file of the bundle.
struct Part {
  std::string name;
  std::string about;
  std::string bytes;
};

// What this program says to a command, with the choice of this call.
class OwnCommands {
 public:
  explicit OwnCommands(const Options& _options) {
    if (!_options.ca.empty()) add("--ca", _options.ca);
    if (!_options.user.empty()) add("--user", _options.user);
    if (_options.pid) add("--pid", std::to_string(*_options.pid));
    if (_options.allUsers) choice_.emplace_back("--all-users");
    add("--color", "never");
  }

  std::string output(std::vector<std::string> _words) const {
    _words.insert(_words.begin(), choice_.begin(), choice_.end());
    return toolsystem::runOwnProgram(_words, mostOfAPart).output;
  }

 private:
  void add(const std::string& _option, const std::string& _value) {
    choice_.push_back(_option);
    choice_.push_back(_value);
  }

  std::vector<std::string> choice_;
};

// Only these: an environment may hold secrets.
std::string environmentText(const Viewpoint& _viewpoint) {
  std::string text;
  for (const char* const name : {Quillmark_logging::DEFAULT_CA_NR, "QMRK_APPDATA", "QMRK_COMMON_PROGRAM_FILES",
                                 "QMRK_COMMON_APPDATA", "XDG_DATA_HOME", "HOME", "TZ"}) {
    const auto found = _viewpoint.environment.find(name);
    text +=
        name + (found == _viewpoint.environment.end() ? std::string(" is not set") : "=" + shown(found->second)) + "\n";
  }
  return text;
}

std::string versionsText() {
  return "qmrkctl " + std::string(QMRK_LOG_VERSION_STRING) + "\nhost " + shown(toolsystem::hostName()) + "\ntime " +
         utcNow() + "\n";
}

// A name for a file of an archive.
std::string fileName(const std::string& _text) {
  std::string name = _text;
  const auto isPlain = [](unsigned char _c) { return std::isalnum(_c) != 0 || _c == '.' || _c == '_' || _c == '-'; };
  std::ranges::replace_if(
      name, [&](unsigned char _c) { return !isPlain(_c); }, '_');
  return name.substr(0, 40);
}

void addLogs(const Viewpoint& _viewpoint, const std::string& _ca, const OwnCommands& _commands,
             std::vector<Part>& _parts) {
  _parts.push_back({"common_log.txt", "last 5000 lines of the common log", _commands.output({"tail", "-n", "5000"})});
  const Configuration configuration = readConfiguration(_viewpoint, _ca);
  if (!configuration.logs) return;
  for (const std::string& name : applicationLogsIn(reachedPath(_viewpoint, configuration.logs->applicationFolder))) {
    _parts.push_back({"application_log_" + fileName(name) + ".txt", "last 1000 lines of the log of " + name,
                      _commands.output({"--app", name, "tail", "-n", "1000"})});
  }
}

std::vector<Part> partsOf(const Viewpoint& _viewpoint, const Options& _options) {
  const OwnCommands commands(_options);
  std::vector<Part> parts = {
      {"versions.txt", "version of this program, host and time", versionsText()},
      {"environment.txt", "the documented variables of the environment, and no others", environmentText(_viewpoint)},
      {"doctor.txt", "what qmrkctl doctor says", commands.output({"doctor", "--verbose"})},
      {"doctor.json", "the same as JSON", commands.output({"doctor", "--json"})},
      {"show.txt", "the configuration with its files and lines", commands.output({"show"})},
      {"where.txt", "the paths of all files", commands.output({"where"})},
      {"apps.txt", "running applications", commands.output({"apps"})},
      {"apps.json", "the same as JSON", commands.output({"apps", "--json"})},
      {"history.txt", "changes of the class list", commands.output({"history"})},
      {"errors.txt", "error records", commands.output({"errors", "--verbose"})}};
  addLogs(_viewpoint, _options.ca, commands, parts);
  std::string contents;
  for (const Part& part : parts)
    contents += part.name + ": " + part.about + "\n";
  parts.insert(parts.begin(), {"contents.txt", "this list", contents});
  return parts;
}

int failure(int _error, const std::string& _file) {
  const std::string text = shown(_file) + " cannot be written: ";
  if (_error == EEXIST) {
    Report::message(shown(_file) + " is there already; name another file with --out");
    return exitNegative;
  }
  if (_error == EACCES || _error == EPERM || _error == EROFS) {
    Report::message(text + "no permission; " + toolsystem::elevated("qmrkctl bundle") + " has it, or --out elsewhere");
    return exitNoPermission;
  }
  Report::message(text + toolsystem::errorText(_error));
  return _error == ENOENT ? exitNotFound : exitInternal;
}

// Why a file cannot be created, as far as that can be seen beforehand; 0: for no reason.
int reasonAgainst(const std::string& _file) {
  const auto isMissing = [](const std::string& _path) {
    return toolsystem::factsOf(_path).kind == toolsystem::PathKind::missing;
  };
  if (!isMissing(_file)) return EEXIST;
  const std::string folder = std::filesystem::path(_file).parent_path().string();
  return !folder.empty() && isMissing(folder) ? ENOENT : 0;
}

int writeBundle(const std::string& _out, const Options& _options, Report& _report) {
  const ViewpointChoice choice = viewpointsOf(_options);
  if (choice.viewpoints.empty()) {
    Report::message(shown(choice.problem));
    return exitNotFound;
  }
  std::string moment = utcNow().substr(0, 19);
  std::erase(moment, ':');
  const std::string name = "qmrk-bundle-" + fileName(toolsystem::hostName()) + "-" + moment;
  const std::string file = _out.empty() ? name + ".tar.gz" : _out;
  // Before anything is marked or read for it.
  if (const int error = reasonAgainst(file); error != 0) return failure(error, file);
  // The logs of the bundle then show when it was made.
  OwnCommands(_options).output({"mark", "bundle " + name});
  const std::vector<Part> parts = partsOf(choice.viewpoints.front(), _options);
  TarArchive archive(millisecondsNow() / 1000);
  _report.line("the bundle holds, in the folder " + name + ":");
  _report.result()["file"] = file;
  _report.result()["parts"] = Json::array();
  for (const Part& part : parts) {
    archive.add(name + "/" + part.name, part.bytes);
    _report.line("  " + part.name + "  " + shown(part.about) + ", " + std::to_string(part.bytes.size()) + " bytes");
    _report.result()["parts"].push_back({{"name", part.name}, {"about", part.about}, {"bytes", part.bytes.size()}});
  }
  const std::string bytes = gzipped(archive.bytes());
  const int error = bytes.empty() ? ENOMEM : toolsystem::writePrivateFile(file, bytes);
  if (error != 0) return failure(error, file);
  _report.line("written: " + shown(file) + ", " + std::to_string(bytes.size()) + " bytes");
  return exitOk;
}

}  // namespace

void addBundleCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* command = _program.add_subcommand(
      "bundle", "Pack what helps to find a fault into one file: findings, configuration, applications, ends of logs");
  const auto out = std::make_shared<std::string>();
  command->add_option("--out", *out, "The file; it must not exist. Else a name with host and time")
      ->type_name("FILE")
      ->check(checkNotEmpty);
  command->footer(
      "Says what is inside before it writes. Of the environment only the documented variables are in it; the ends of "
      "logs are in it as they are.\nExample: sudo qmrkctl bundle --out /tmp/case-17.tar.gz");
  command->callback([out, &_choice] {
    _choice = {"bundle",
               [out](const Options& _options, Report& _report) { return writeBundle(*out, _options, _report); }};
  });
}

}  // namespace qmrkctl
