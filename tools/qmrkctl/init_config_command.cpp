// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "config/cfg_data_manager.h"
#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/qmrkctl/argument_check.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/starting_files.h"
#include "tools/system/host.h"
#include "tools/system/new_file.h"

namespace qmrkctl {
namespace {

struct NewFile {
  std::string path;  // in the system's form
  std::string text;
  bool mayExist = false;
};

struct Place {
  std::string cfgFolder;
  std::string initFolder;
};

std::string nameOfFile(const char* _ending, const std::string& _ca) { return "/qmrk_logging_" + _ca + _ending; }

std::vector<NewFile> filesFor(const std::string& _ca, const Place& _place) {
  return {{_place.cfgFolder + nameOfFile(".cfg", _ca), startingCfg(_ca)},
          {_place.initFolder + nameOfFile(".init", _ca), startingInit()},
          // Another CA may have been installed before.
          {_place.cfgFolder + nameOfFile(".cfg", Quillmark_logging::GENERIC_CA), startingGeneric(_ca), true}};
}

int failed(const std::string& _path, int _error, const std::string& _ca) {
  const std::string text = "cannot create " + shown(_path) + ": " + toolsystem::errorText(_error);
  const bool isDenied = _error == EACCES || _error == EPERM;
  Report::message(isDenied ? text + "; root may: sudo qmrkctl init-config --ca " + _ca + " --install" : text);
  return isDenied ? exitNoPermission : exitInternal;
}

// Nothing is written when one of the files of the CA is there.
bool areNew(const std::vector<NewFile>& _files) {
  for (const NewFile& file : _files) {
    if (file.mayExist || toolsystem::factsOf(file.path).kind == toolsystem::PathKind::missing) continue;
    Report::message(shown(file.path) + " exists; nothing was written");
    return false;
  }
  return true;
}

// All or none.
// @param _created receives the paths of those that did not exist; on failure that of the one that failed.
// @return 0, or an errno value.
int createFiles(const std::vector<NewFile>& _files, std::vector<std::string>& _created) {
  for (const NewFile& file : _files) {
    const int error = toolsystem::writeNewFile(file.path, file.text);
    if (error == EEXIST && file.mayExist) continue;
    if (error != 0) {
      for (const std::string& created : _created)
        std::remove(created.c_str());
      _created = {file.path};
      return error;
    }
    _created.push_back(file.path);
  }
  return 0;
}

int writeFiles(const std::string& _ca, const Place& _place, Report& _report) {
  _report.result() = {{"ca", _ca}, {"created", Json::array()}, {"kept", Json::array()}};
  const std::vector<NewFile> files = filesFor(_ca, _place);
  if (!areNew(files)) return exitNegative;
  for (const std::string& folder : {_place.cfgFolder, _place.initFolder}) {
    const int error = toolsystem::makeFolders(folder);
    if (error != 0) return failed(folder, error, _ca);
  }
  std::vector<std::string> created;
  if (const int error = createFiles(files, created); error != 0) return failed(created.front(), error, _ca);
  for (const NewFile& file : files) {
    const bool isCreated = std::find(created.begin(), created.end(), file.path) != created.end();
    _report.line((isCreated ? "created " : "kept    ") + shown(file.path));
    _report.result()[isCreated ? "created" : "kept"].push_back(file.path);
  }
  return exitOk;
}

Place installedPlace() {
  const Configuration configuration = readConfiguration(ownViewpoint(), "");
  return {platform::nativePath(configuration.cfgFolder), platform::nativePath(configuration.initFolder)};
}

int initConfig(const Options& _options, const std::string& _folder, bool _isInstalled, Report& _report) {
  if (!isNameOfCa(_options.ca)) {
    Report::message(_options.ca.empty() ? "name the CA: qmrkctl init-config --ca CA12"
                                        : "\"" + shown(_options.ca) + "\" cannot name a CA of its own");
    return exitUsage;
  }
  const std::string ca = CfgDataManager::getInstance(false)->toUpperCopy(_options.ca);
  const int exitCode = writeFiles(ca, _isInstalled ? installedPlace() : Place{_folder, _folder}, _report);
  if (exitCode == exitOk && !_isInstalled) {
    const Place place = installedPlace();
    _report.line("the .cfg files belong into " + shown(place.cfgFolder));
    _report.line("the .init file belongs into " + shown(place.initFolder));
  }
  return exitCode;
}

}  // namespace

void addInitConfigCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* const command =
      _program.add_subcommand("init-config", "Write commented files with which a new CA starts, never over others");
  struct Arguments {
    std::string folder = ".";
    bool isInstalled = false;
  };
  const auto arguments = std::make_shared<Arguments>();
  CLI::Option* const folder =
      command->add_option("folder", arguments->folder, "Folder for the files, by default the current one");
  folder->type_name("FOLDER")->check(checkNotEmpty);
  command->add_flag("--install", arguments->isInstalled, "Into the folders where the library finds them")
      ->excludes(folder);
  command->footer("Example: sudo qmrkctl init-config --ca CA12 --install");
  command->callback([arguments, &_choice] {
    _choice = {"init-config", [arguments](const Options& _options, Report& _report) {
                 return initConfig(_options, arguments->folder, arguments->isInstalled, _report);
               }};
  });
}

}  // namespace qmrkctl
