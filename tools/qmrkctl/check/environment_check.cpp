// SPDX-License-Identifier: MIT
#include <algorithm>

#include "quillmark_logging_names.h"
#include "tools/qmrkctl/check/checks.h"
#include "tools/qmrkctl/check/similar_name.h"
#include "tools/system/file_name.h"

namespace qmrkctl {
namespace {

constexpr FindingKind environmentTable[] = {
    {"Q701", Severity::error, "A variable that moves a folder is no absolute path",
     "the variable is ignored: the default folder is used", "write an absolute path", "QMRK_APPDATA=logs"},
    {"Q702", Severity::warning, "HOME is unset or no absolute path",
     "the home of the password entry is taken; \"~\" and other programs may mean another folder",
     "set HOME for the service", "a daemon that is started with an empty environment"},
    {"Q703", Severity::error, "The system knows no folder of the user", "initDefaultLogs fails and leaves no record",
     "set HOME, XDG_DATA_HOME or QMRK_APPDATA to an absolute path",
     "a numeric user of a container without a password entry, HOME unset"},
    {"Q704", Severity::error, "DEFAULT_CA_NR is longer than 255 characters",
     "it counts as empty: every set-up fails and leaves no record", "name the CA alone", ""},
    {"Q708", Severity::warning, "A variable has almost the name of one that the library reads", "it is ignored",
     "correct its name", "QMRK_APP_DATA=/data"},
};

constexpr const char* moving[] = {"QMRK_APPDATA", "QMRK_COMMON_PROGRAM_FILES", "QMRK_COMMON_APPDATA", "XDG_DATA_HOME"};

constexpr std::string_view ofFolders[] = {"QMRK_APPDATA", "QMRK_COMMON_PROGRAM_FILES", "QMRK_COMMON_APPDATA"};
constexpr std::string_view ofCa[] = {Quillmark_logging::DEFAULT_CA_NR};

class EnvironmentCheck {
 public:
  EnvironmentCheck(const Viewpoint& _viewpoint, Findings& _findings) : viewpoint_(_viewpoint), findings_(_findings) {}

  void checkFolders() {
    for (const char* const name : moving) {
      const std::string* const value = valueOf(name);
      if (value != nullptr && !value->empty() && value->front() != '/') {
        add("Q701", std::string(name) + " is \"" + *value + "\", which is no absolute path");
      }
    }
    if (!isAbsolute("HOME") && !isAbsolute("QMRK_APPDATA") && !isAbsolute("XDG_DATA_HOME") &&
        !viewpoint_.account.home.empty()) {
      add("Q702", "HOME is unset or no absolute path; the home is " + viewpoint_.account.home);
    }
  }

  // Other programs have a default CA, too, which is that of a certificate.
  void checkNames() {
    const std::vector<std::string> cas = installedCas(viewpoint_);
    const auto isCa = [&cas](const std::string& _value) {
      return std::ranges::any_of(cas, [&_value](const std::string& _ca) { return isSameIgnoringCase(_ca, _value); });
    };
    for (const auto& [name, value] : viewpoint_.environment) {
      if (toolsystem::foldersFollowEnvironment() && isSameIgnoringCase(name.substr(0, 5), "QMRK_")) {
        checkName(name, similarName(name, ofFolders));
      } else if (isCa(value)) {
        checkName(name, similarName(name, ofCa));
      }
    }
  }

  void add(std::string_view _code, const std::string& _text) { findings_.push_back(findingOf(_code, {}, _text)); }

  const std::string* valueOf(const std::string& _name) const {
    const auto found = viewpoint_.environment.find(_name);
    return found == viewpoint_.environment.end() ? nullptr : &found->second;
  }

 private:
  // Whoever has set the right one as well knows it.
  void checkName(const std::string& _name, const std::string& _meant) {
    if (_meant.empty() || toolsystem::isSameFileName(_name, _meant) || valueOf(_meant) != nullptr) return;
    findings_.push_back(
        findingOf("Q708", {}, "nothing reads " + _name + "; did you mean " + _meant + "?", "rename it to " + _meant));
  }

  bool isAbsolute(const std::string& _name) const {
    const std::string* const value = valueOf(_name);
    return value != nullptr && value->starts_with('/');
  }

  const Viewpoint& viewpoint_;
  Findings& findings_;
};

}  // namespace

std::span<const FindingKind> environmentKinds() { return environmentTable; }

void checkEnvironment(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings) {
  EnvironmentCheck check(_viewpoint, _findings);
  if (toolsystem::foldersFollowEnvironment()) check.checkFolders();
  check.checkNames();
  if (_configuration.userBase.empty()) check.add("Q703", "there is no folder of the application data of the user");
  if (_configuration.caAsked.empty() && _configuration.origin == CaOrigin::environment) {
    const std::string* const value = check.valueOf(Quillmark_logging::DEFAULT_CA_NR);
    const std::string length = std::to_string(value == nullptr ? 0 : value->size());
    check.add("Q704", "DEFAULT_CA_NR has " + length + " characters");
  }
}

}  // namespace qmrkctl
