// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/native_path.h"
#include "tools/qmrkctl/argument_check.h"
#include "tools/qmrkctl/asked_viewpoint.h"
#include "tools/qmrkctl/ca_choice.h"
#include "tools/qmrkctl/class_entries.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/configuration.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/known_keys.h"
#include "tools/qmrkctl/shown_text.h"

namespace qmrkctl {
namespace {

// A key as it counts.
struct ShownSetting {
  std::string key;
  std::string value;
  const Setting* setting = nullptr;  // null: the default
};

std::vector<ShownSetting> shownSettings(const ConfigurationFile& _cfg) {
  std::vector<ShownSetting> all;
  for (const KnownKey& known : knownKeys) {
    const Setting* const setting = _cfg.setting(known.key);
    all.push_back(
        {std::string(known.key), setting != nullptr ? setting->value : std::string(known.defaultValue), setting});
  }
  const auto isKnown = [](const Setting& _setting) {
    return std::any_of(knownKeys.begin(), knownKeys.end(),
                       [&_setting](const KnownKey& _known) { return _known.key == _setting.key; });
  };
  for (const Setting& setting : _cfg.settings) {
    if (!setting.isReplaced && !isKnown(setting)) all.push_back({setting.key, setting.value, &setting});
  }
  return all;
}

std::string placeText(const Setting* _setting) {
  if (_setting == nullptr) return "default";
  return platform::nativePath(_setting->file) + ":" + std::to_string(_setting->keyPlace.line);
}

Json settingJson(const ShownSetting& _shown) {
  Json object = {{"key", _shown.key}, {"value", _shown.value}, {"default", _shown.setting == nullptr}};
  if (_shown.setting != nullptr) {
    object["file"] = platform::nativePath(_shown.setting->file);
    object["line"] = _shown.setting->keyPlace.line;
  }
  return object;
}

// The class list in one line, as it is applied.
std::string classText(const Configuration& _configuration) {
  std::string text;
  for (const ClassEntry& entry : enabledClasses(_configuration.init.text))
    text += entry.pattern + ";";
  return text;
}

// What stands in the way of showing anything.
int refusal(const Configuration& _configuration) {
  const ConfigurationFile& cfg = _configuration.cfg;
  if (cfg.isRead) return exitOk;
  const std::string path = shown(platform::nativePath(cfg.path));
  const bool isDenied = cfg.facts.kind == toolsystem::PathKind::file && !cfg.rights.isReadable;
  if (isDenied) {
    Report::message("permission denied for " + path + "; root may: sudo qmrkctl show");
    return exitNoPermission;
  }
  const std::string failure = shown(platform::nativePath(_configuration.failure));
  Report::message(failure.empty() ? "there is no readable file " + path : failure);
  return exitNotFound;
}

int showAll(const Configuration& _configuration, Report& _report) {
  _report.line(shown(caText(_configuration)));
  _report.result() = {{"ca", caJson(_configuration)}, {"settings", Json::array()}};
  for (const ShownSetting& each : shownSettings(_configuration.cfg)) {
    const std::string place =
        each.setting == nullptr ? _report.painted("default", Style::faint) : shown(placeText(each.setting));
    _report.line(shown(each.key) + "=" + shown(each.value) + "  (" + place + ")");
    _report.result()["settings"].push_back(settingJson(each));
  }
  _report.line("classes " + shown(classText(_configuration)) + "  (" +
               shown(platform::nativePath(_configuration.init.path)) + ")");
  _report.result()["classes"] = classText(_configuration);
  _report.result()["init"] = platform::nativePath(_configuration.init.path);
  return exitOk;
}

// One line for a key that differs, and both values.
void tellDifference(const std::string& _key, const std::string& _one, const std::string& _other, Report& _report) {
  if (_one == _other) return;
  _report.line(shown(_key));
  _report.line("  " + _report.painted("- " + shown(_one), Style::bad));
  _report.line("  " + _report.painted("+ " + shown(_other), Style::good));
  _report.result()["differences"].push_back({{"key", _key}, {"value", _one}, {"other", _other}});
}

std::string valueIn(const std::vector<ShownSetting>& _settings, const std::string& _key) {
  for (const ShownSetting& each : _settings) {
    if (each.key == _key) return each.value;
  }
  return "";
}

int showDifferences(const Configuration& _one, const Configuration& _other, Report& _report) {
  _report.result() = {{"ca", caJson(_one)}, {"other", caJson(_other)}, {"differences", Json::array()}};
  _report.line("- " + shown(caText(_one)));
  _report.line("+ " + shown(caText(_other)));
  const std::vector<ShownSetting> ones = shownSettings(_one.cfg);
  const std::vector<ShownSetting> others = shownSettings(_other.cfg);
  for (const ShownSetting& each : ones)
    tellDifference(each.key, each.value, valueIn(others, each.key), _report);
  for (const ShownSetting& each : others) {
    if (std::none_of(ones.begin(), ones.end(),
                     [&each](const ShownSetting& _shown) { return _shown.key == each.key; })) {
      tellDifference(each.key, "", each.value, _report);
    }
  }
  tellDifference("classes", classText(_one), classText(_other), _report);
  return _report.result()["differences"].empty() ? exitOk : exitNegative;
}

int show(const Options& _options, const std::string& _otherCa, Report& _report) {
  int exitCode = exitOk;
  const std::optional<Viewpoint> viewpoint = askedViewpoint(_options, exitCode);
  if (!viewpoint) return exitCode;
  const Configuration configuration = readConfiguration(*viewpoint, _options.ca);
  exitCode = refusal(configuration);
  if (exitCode != exitOk) return exitCode;
  tellOtherCa(configuration);
  if (_otherCa.empty()) return showAll(configuration, _report);
  const Configuration other = readConfiguration(*viewpoint, _otherCa);
  exitCode = other.isFallenBack ? exitNotFound : refusal(other);
  if (other.isFallenBack) Report::message("there is no " + shown(platform::nativePath(other.asked.path)));
  return exitCode == exitOk ? showDifferences(configuration, other, _report) : exitCode;
}

}  // namespace

void addShowCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* const command =
      _program.add_subcommand("show", "Show every key with its value and where that stands, and the class list");
  const auto other = std::make_shared<std::string>();
  command->add_option("--diff", *other, "Show only what differs from another CA; ends with 1 when something does")
      ->type_name("CA2")
      ->check(checkNotEmpty);
  command->footer("Example: qmrkctl show --ca CA12 --diff CA13");
  command->callback([other, &_choice] {
    _choice = {"show", [other](const Options& _options, Report& _report) { return show(_options, *other, _report); }};
  });
}

}  // namespace qmrkctl
