// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/command_report.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "quillmark_logging_version.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/qmrkctl/utc_time.h"
#include "tools/system/host.h"
#include "tools/system/terminal.h"

namespace qmrkctl {
namespace {

bool isSet(const char* _variable) {
  const char* const value = std::getenv(_variable);
  return value != nullptr && *value != '\0';
}

// NO_COLOR: by the convention of no-color.org.
bool wantsColor(ColorMode _mode) {
  if (_mode != ColorMode::automatic) return _mode == ColorMode::always;
  const char* const terminal = std::getenv("TERM");
  const bool isDumb = terminal != nullptr && std::string_view(terminal) == "dumb";
  return !isSet("NO_COLOR") && !isDumb && toolsystem::isTerminal(toolsystem::Stream::output);
}

const char* colorOf(Style _style) {
  switch (_style) {
    case Style::good:
      return "32";
    case Style::bad:
      return "31";
    case Style::doubtful:
      return "33";
    case Style::faint:
      return "2";
    case Style::strong:
      return "1";
    case Style::plain:
      break;
  }
  return "0";
}

}  // namespace

Report::Report(const Options& _options) : options_(_options), isColored_(wantsColor(_options.color)) {}

void Report::write(std::string_view _text) {
  if (writeError_ != 0) return;
  errno = 0;
  if (std::fwrite(_text.data(), 1, _text.size(), stdout) != _text.size() || std::fflush(stdout) != 0) {
    writeError_ = errno != 0 ? errno : EIO;
  }
}

void Report::line(std::string_view _text) { bytes(std::string(_text) + "\n"); }

void Report::detail(std::string_view _text) {
  if (options_.verbosity == Verbosity::verbose) line(_text);
}

void Report::bytes(std::string_view _text) {
  if (!options_.json && options_.verbosity != Verbosity::quiet) write(_text);
}

void Report::message(std::string_view _text) {
  const std::string line = "qmrkctl: " + std::string(_text) + "\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
}

void Report::add(const Finding& _finding) {
  findings_.push_back(_finding);
  const std::string text = findingText(_finding);
  const std::string_view severity = severityName(_finding.severity);
  const Style style = _finding.severity == Severity::error     ? Style::bad
                      : _finding.severity == Severity::warning ? Style::doubtful
                                                               : Style::faint;
  bytes(painted(severity, style) + text.substr(severity.size()));
}

std::string Report::painted(std::string_view _text, Style _style) const {
  if (!isColored_ || _style == Style::plain) return std::string(_text);
  return std::string("\x1b[") + colorOf(_style) + "m" + std::string(_text) + "\x1b[0m";
}

int Report::finish(std::string_view _command, int _exitCode) {
  if (options_.json) {
    Json object = {{"schema", "qmrkctl." + std::string(_command) + "/1"},
                   {"time", utcNow()},
                   {"host", toolsystem::hostName()},
                   {"version", QMRK_LOG_VERSION_STRING},
                   {"ok", _exitCode == exitOk},
                   {"findings", Json::array()},
                   {"result", result_}};
    std::transform(findings_.begin(), findings_.end(), std::back_inserter(object["findings"]), findingJson);
    // Bytes that are no UTF-8 cannot stand in JSON.
    write(object.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
  }
  if (writeError_ == 0 || writeError_ == EPIPE) return _exitCode;
  message("the results cannot be written (" + toolsystem::errorText(writeError_) + ")");
  return exitInternal;
}

}  // namespace qmrkctl
