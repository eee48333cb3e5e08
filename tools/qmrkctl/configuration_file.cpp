// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/configuration_file.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>

#include "config/cfg_parser.h"
#include "platform/native_path.h"
#include "platform/text_file.h"
#include "tools/qmrkctl/file_bytes.h"
#include "tools/system/named_path.h"

namespace qmrkctl {
namespace {

void markReplaced(std::vector<Setting>& _settings) {
  std::map<std::string_view, Setting*> latest;
  for (Setting& setting : _settings) {
    Setting*& former = latest[setting.key];
    if (former != nullptr) former->isReplaced = true;
    former = &setting;
  }
}

// Reads a file whose facts are known.
// @param _reached where this program reaches it, with separators of either kind.
void readTexts(const std::string& _reached, ConfigurationFile& _file) {
  if (_file.facts.kind != toolsystem::PathKind::file) return;
  platform::TextReader reader(_reached);
  _file.isRead = reader.readAll(_file.text);
  if (!_file.isRead) return;
  _file.bytes = bytesOfFile(_reached).value_or("");
  if (_file.path.ends_with(".cfg")) _file.settings = settingsOf(_file.path, _file.text);
}

}  // namespace

bool ConfigurationFile::isUsable() const {
  return rights.exists && rights.isReadable && facts.kind == toolsystem::PathKind::file &&
         facts.size <= platform::largestTextFile;
}

const Setting* ConfigurationFile::setting(std::string_view _key) const {
  for (const Setting& each : settings) {
    if (each.key == _key && !each.isReplaced) return &each;
  }
  return nullptr;
}

std::vector<Setting> settingsOf(const std::string& _file, std::string_view _text) {
  const TextPlaces places(_text);
  std::vector<Setting> settings;
  const auto take = [&](std::string_view _key, std::string_view _value, const Quillmark_logging::CfgPairPlace& _place) {
    const std::string_view value = _value.substr(0, _value.find_last_not_of(" \t") + 1);
    settings.push_back({Quillmark_logging::withTabsExpanded(_key), Quillmark_logging::withTabsExpanded(value), _file,
                        places.of(_place.key), places.of(_place.value), _place.key, _place.value, _place.end, false});
  };
  Quillmark_logging::forEachCfgPair(_text, take);
  markReplaced(settings);
  return settings;
}

ConfigurationFile readConfigurationFile(const Viewpoint& _viewpoint, const std::string& _path,
                                        const std::string& _rule) {
  ConfigurationFile file;
  file.path = _path;
  file.rule = _rule;
  if (_path.empty()) return file;
  file.systemPath = platform::nativePath(_path);
  file.facts = factsOf(_viewpoint, _path);
  file.rights = rightsOn(_viewpoint, _path);
  readTexts(reachedPath(_viewpoint, _path), file);
  return file;
}

ConfigurationFile readNamedFile(const Viewpoint& _viewpoint, const std::string& _systemPath) {
  ConfigurationFile file;
  file.path = _systemPath;
  file.systemPath = _systemPath;
  file.rule = "named on the command line";
  file.facts = toolsystem::factsOf(_systemPath);
  file.rights = toolsystem::rightsOn({_systemPath}, _viewpoint.account, "").front();
  const toolsystem::NamedPath reached(_systemPath);
  readTexts(reached.inLibraryForm(), file);
  return file;
}

std::vector<std::string> fileNamesIn(const Viewpoint& _viewpoint, const std::string& _folder) {
  std::vector<std::string> found;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(reachedPath(_viewpoint, _folder), error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code ignored;
    if (!entry->is_directory(ignored)) found.push_back(entry->path().filename().string());
  }
  std::sort(found.begin(), found.end());
  return found;
}

}  // namespace qmrkctl
