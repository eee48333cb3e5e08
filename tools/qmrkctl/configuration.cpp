// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/configuration.h"

#include <algorithm>

#include "config/cfg_data_manager.h"
#include "config/cfg_path_rules.h"
#include "config/generic_cfg_text.h"
#include "platform/native_path.h"
#include "platform/text_file.h"
#include "quillmark_logging_names.h"

namespace qmrkctl {
namespace {

namespace names = Quillmark_logging;
using names::CfgFileKind;
using platform::ShellFolder;

constexpr std::size_t longestVariable = 255;
constexpr char applicationLogs[] = "\\Application logs";

std::string upper(const std::string& _text) { return CfgDataManager::getInstance(false)->toUpperCopy(_text); }

// The path less its name.
std::string folderOf(const std::string& _path) { return _path.substr(0, _path.rfind('\\')); }

void chooseCa(const Viewpoint& _viewpoint, const std::string& _ca, Configuration& _configuration) {
  _configuration.caAsked = _ca.empty() ? names::GENERIC_CA : _ca;
  _configuration.origin = _ca.empty() ? CaOrigin::builtIn : CaOrigin::option;
  const auto variable = _viewpoint.environment.find(names::DEFAULT_CA_NR);
  if (!_ca.empty() || variable == _viewpoint.environment.end() || variable->second.empty()) return;
  // The library has no room for a longer one, and takes an empty value instead.
  _configuration.caAsked = variable->second.size() > longestVariable ? "" : variable->second;
  _configuration.origin = CaOrigin::environment;
}

// The CA to which a generated generic file leads; empty: none can be generated.
std::string generatedRedirection(const Viewpoint& _viewpoint, const Configuration& _configuration) {
  const std::vector<std::string> files = fileNamesIn(_viewpoint, _configuration.cfgFolder);
  const auto first = std::find_if(files.begin(), files.end(), names::isCaCfgFileName);
  const bool isWritable =
      mayWrite(_viewpoint, _configuration.generic.exists() ? _configuration.generic.path : _configuration.cfgFolder);
  return first == files.end() || !isWritable ? "" : names::caOfFileName(*first);
}

// What answers a request for "GE".
struct GenericAnswer {
  std::string ca;
  std::string cfg;
  std::string init;
  std::string rule;
};

GenericAnswer answerOf(const Configuration& _configuration, const std::string& _redirectCa, const std::string& _rule) {
  const std::string init = cfgFilePath(CfgFileKind::init, _configuration.initBase, names::GENERIC_CA);
  return {_redirectCa, redirectedPath(CfgFileKind::cfg, _configuration.generic.path, _redirectCa),
          redirectedPath(CfgFileKind::init, init, _redirectCa), _rule};
}

GenericAnswer genericAnswer(const Configuration& _configuration) {
  const Setting* const redirection =
      _configuration.generic.isUsable() ? _configuration.generic.setting(names::REDIRECT_CA_NR) : nullptr;
  if (redirection == nullptr) {
    return {names::GENERIC_CA, _configuration.generic.path, _configuration.generic.path,
            "the generic file names no other CA"};
  }
  return answerOf(
      _configuration, redirection->value,
      "REDIRECT_CA_NR in line " + std::to_string(redirection->keyPlace.line) + " of " + names::GENERIC_CFG_FILE_NAME);
}

void useGeneric(const Viewpoint& _viewpoint, const GenericAnswer& _answer, const std::string& _reason,
                Configuration& _configuration) {
  _configuration.caInEffect = names::GENERIC_CA;
  _configuration.caOfFiles = _answer.ca;
  _configuration.isRedirected = _answer.ca != names::GENERIC_CA;
  _configuration.cfg = readConfigurationFile(_viewpoint, _answer.cfg, _reason + _answer.rule);
  _configuration.init = readConfigurationFile(
      _viewpoint, _answer.init,
      _answer.init == _answer.cfg ? "\"GE\" without REDIRECT_CA_NR has no class list of its own" : _answer.rule);
}

void generate(const Viewpoint& _viewpoint, Configuration& _configuration) {
  const std::string ca = generatedRedirection(_viewpoint, _configuration);
  if (ca.empty()) {
    _configuration.failure =
        "there is no configuration, and none can be generated in " + platform::nativePath(_configuration.cfgFolder);
    return;
  }
  _configuration.wouldBeGenerated = true;
  useGeneric(_viewpoint, answerOf(_configuration, ca, "a generic file would be generated, which redirects to " + ca),
             "", _configuration);
  if (_configuration.cfg.exists()) return;
  // The name of another file, such as "qmrk_logging_CA12.cfg.bak", was taken for that of a CA.
  _configuration.wouldBeGenerated = false;
  _configuration.failure = "a generic file that is generated leads to " + ca + ", whose .cfg file is missing";
}

void chooseFiles(const Viewpoint& _viewpoint, Configuration& _configuration) {
  const std::string ca = upper(_configuration.caAsked);
  const GenericAnswer generic = genericAnswer(_configuration);
  if (ca == names::GENERIC_CA) {
    useGeneric(_viewpoint, generic, "", _configuration);
    _configuration.asked = _configuration.cfg;
  } else {
    _configuration.caInEffect = _configuration.caOfFiles = ca;
    const auto read = [&](CfgFileKind _kind, const std::string& _base) {
      return readConfigurationFile(_viewpoint, cfgFilePath(_kind, _base, ca), "the CA asked for");
    };
    _configuration.asked = _configuration.cfg = read(CfgFileKind::cfg, _configuration.cfgBase);
    _configuration.init = read(CfgFileKind::init, _configuration.initBase);
  }
  if (_configuration.cfg.exists()) return;
  _configuration.isFallenBack = true;
  if (ca != names::GENERIC_CA) {
    useGeneric(_viewpoint, generic, "the .cfg file of " + ca + " is missing; ", _configuration);
  }
  if (!_configuration.cfg.exists()) generate(_viewpoint, _configuration);
}

LogPlaces placesBelow(const std::string& _userFolder, const ConfigurationFile& _cfg) {
  const Setting* const root = _cfg.isUsable() ? _cfg.setting(names::COMMON_LOG_FILE_ROOT) : nullptr;
  const Setting* const name = _cfg.isUsable() ? _cfg.setting(names::COMMON_LOG_FILE_NAME) : nullptr;
  LogPlaces places;
  places.folder = _userFolder + "\\" + (root != nullptr ? root->value : names::DEFAULT_COMMON_LOG_FILE_ROOT);
  if (name != nullptr) places.commonLog = places.folder + "\\" + name->value;
  places.applicationFolder = places.folder + applicationLogs;
  places.errorRecords = places.folder + names::ERROR_INFO_FILE_NAME;
  return places;
}

void findLogs(const Viewpoint& _viewpoint, const GenericAnswer& _generic, Configuration& _configuration) {
  if (_configuration.userBase.empty()) return;
  _configuration.logs = placesBelow(_configuration.userBase, _configuration.cfg);
  _configuration.genericLogs =
      placesBelow(_configuration.userBase, readConfigurationFile(_viewpoint, _generic.cfg, ""));
}

// What stops a set-up that has found its .cfg file.
std::string failureOf(const Configuration& _configuration) {
  const ConfigurationFile& cfg = _configuration.cfg;
  if (!_configuration.failure.empty() || !cfg.exists()) return _configuration.failure;
  if (!cfg.rights.isReadable)
    return "the configuration cannot be read: permission denied for " + platform::nativePath(cfg.path);
  if (cfg.facts.size > platform::largestTextFile)
    return "the configuration is too large to be read: " + platform::nativePath(cfg.path);
  return "";
}

}  // namespace

std::string redirectedCfgPath(const Configuration& _configuration, const std::string& _redirectCa) {
  return redirectedPath(CfgFileKind::cfg, _configuration.generic.path, _redirectCa);
}

const std::string* Configuration::value(std::string_view _key) const {
  const Setting* const found = cfg.isUsable() ? cfg.setting(_key) : nullptr;
  return found == nullptr ? nullptr : &found->value;
}

bool Configuration::isOn(std::string_view _key) const {
  const std::string* const text = value(_key);
  return text != nullptr && upper(*text) == "TRUE";
}

Configuration readConfiguration(const Viewpoint& _viewpoint, const std::string& _ca) {
  Configuration configuration;
  chooseCa(_viewpoint, _ca, configuration);
  // Stays empty when there is none.
  baseFolder(_viewpoint, ShellFolder::userAppData, configuration.userBase);
  if (!baseFolder(_viewpoint, ShellFolder::commonProgramFiles, configuration.cfgBase) ||
      !baseFolder(_viewpoint, ShellFolder::commonAppData, configuration.initBase)) {
    configuration.failure = "the system does not know the folder of the configuration files";
    return configuration;
  }
  configuration.generic =
      readConfigurationFile(_viewpoint, names::genericCfgPath(configuration.cfgBase), "the generic file");
  configuration.cfgFolder = folderOf(configuration.generic.path);
  configuration.initFolder = folderOf(cfgFilePath(CfgFileKind::init, configuration.initBase, names::GENERIC_CA));
  if (configuration.caAsked.empty()) {
    configuration.failure = "the customer adaptation is empty";
    return configuration;
  }
  chooseFiles(_viewpoint, configuration);
  findLogs(_viewpoint, genericAnswer(configuration), configuration);
  configuration.failure = failureOf(configuration);
  return configuration;
}

std::vector<std::string> installedCas(const Viewpoint& _viewpoint) {
  std::string base;
  std::vector<std::string> cas;
  if (!baseFolder(_viewpoint, ShellFolder::commonProgramFiles, base)) return cas;
  // "qmrk_logging_" and ".cfg" around the CA.
  const std::string pattern = names::CFG_FILE_NAME;
  const std::string beginning = pattern.substr(0, pattern.find('X'));
  const std::string ending = pattern.substr(pattern.rfind('X') + 1);
  for (const std::string& name : fileNamesIn(_viewpoint, folderOf(names::genericCfgPath(base)))) {
    if (name.size() <= beginning.size() + ending.size()) continue;
    if (!name.starts_with(beginning) || !name.ends_with(ending)) continue;
    cas.push_back(name.substr(beginning.size(), name.size() - beginning.size() - ending.size()));
  }
  return cas;
}

std::vector<std::string> casToName(const Viewpoint& _viewpoint) {
  std::vector<std::string> cas = installedCas(_viewpoint);
  const Configuration ofGeneric = readConfiguration(_viewpoint, names::GENERIC_CA);
  std::erase_if(cas, [&](const std::string& _ca) { return _ca == ofGeneric.caOfFiles && _ca != upper(_ca); });
  return cas;
}

}  // namespace qmrkctl
