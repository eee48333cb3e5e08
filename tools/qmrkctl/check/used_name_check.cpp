// SPDX-License-Identifier: MIT
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "quillmark_logging_names.h"
#include "tools/logs/log_files.h"
#include "tools/qmrkctl/check/checks.h"
#include "tools/system/file_name.h"

namespace qmrkctl {
namespace {

namespace names = Quillmark_logging;

constexpr std::string_view applicationLogsName = "Application logs";

// The parts of a path below a folder, as the system goes through them.
std::vector<std::string> stepsOf(std::string_view _path) {
  std::vector<std::string> steps;
  for (std::size_t begin = 0; begin <= _path.size();) {
    const std::size_t end = std::min(_path.find_first_of("\\/", begin), _path.size());
    const std::string_view part = _path.substr(begin, end - begin);
    if (part == ".." && !steps.empty()) {
      steps.pop_back();
    } else if (!part.empty() && part != ".") {
      steps.emplace_back(part);
    }
    begin = end + 1;
  }
  return steps;
}

// The application that has a file of that name for its log or for a backup of it.
std::optional<std::string> applicationWithLog(const std::string& _name) {
  const std::string_view suffix = names::APPL_SPEC_LOG_FILE_SUFFIX;
  const std::size_t begin = _name.rfind(suffix);
  if (begin == std::string::npos) return std::nullopt;
  const std::string log = _name.substr(0, begin + suffix.size());
  if (log != _name && backupNumber(_name, log) == 0) return std::nullopt;
  return _name.substr(0, begin);
}

}  // namespace

void checkUsedName(const ConfigurationFile& _cfg, const Setting& _name, Findings& _findings) {
  const std::vector<std::string> steps = stepsOf(_name.value);
  if (steps.empty()) return;
  const auto add = [&](const std::string& _whose, const std::string& _effect) {
    _findings.push_back(findingOf("Q330", placeIn(_cfg, _name.valuePlace),
                                  "COMMON_LOG_FILE_NAME is " + inQuotes(_name.value) + ", the name of " + _whose, "",
                                  _effect));
  };
  const std::string_view records = std::string_view(names::ERROR_INFO_FILE_NAME).substr(1);
  if (steps.size() == 1 && toolsystem::isSameFileName(steps.front(), records)) {
    add("the file of the error records",
        "lines and error records are mixed: \"qmrkctl errors\" knows neither from the "
        "other");
  } else if (toolsystem::isSameFileName(steps.front(), applicationLogsName)) {
    if (steps.size() == 1) {
      add("the folder of the application logs",
          "what is opened first wins: every line of the applications' own logs is lost, or every line of the common "
          "log");
    } else if (const std::optional<std::string> application = applicationWithLog(steps.back())) {
      add("the log of an application " + *application,
          "should it have one, both logs are one file, and whatever rotates or empties the one does so to the other");
    }
  }
}

}  // namespace qmrkctl
