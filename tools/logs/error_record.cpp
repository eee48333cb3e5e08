// SPDX-License-Identifier: MIT
#include "tools/logs/error_record.h"

#include "tools/logs/text_scanner.h"

namespace qmrkctl {
namespace {

constexpr std::string_view callerBegin = " [Called by ";
constexpr std::string_view missingBegin = "Invalid of missing configuration file for ";
constexpr std::string_view genericHint =
    " (could also be the REDIRECT_CA_NR variable that's pointing at an invalid or missing configuration file). ";
constexpr std::string_view redirection = " Redirecting to configuration file appointed by qmrk_logging_GE.cfg instead.";

// "2007/01/05 09:03:07 "
bool takeRecordStamp(TextScanner& _scanner, CivilTime& _time) {
  platform::LocalTime time;
  const bool isStamp = _scanner.takeNumber(4, time.year) && _scanner.take("/") && _scanner.takeNumber(2, time.month) &&
                       _scanner.take("/") && _scanner.takeNumber(2, time.day) && _scanner.take(" ") &&
                       _scanner.takeNumber(2, time.hour) && _scanner.take(":") && _scanner.takeNumber(2, time.minute) &&
                       _scanner.take(":") && _scanner.takeNumber(2, time.second) && _scanner.take(" ");
  const std::optional<CivilTime> civil = isStamp ? civilTime(time) : std::nullopt;
  _time = civil.value_or(0);
  return civil.has_value();
}

bool takeEnd(std::string_view& _text, std::string_view _end) {
  if (!_text.ends_with(_end)) return false;
  _text.remove_suffix(_end.size());
  return true;
}

// What stands between the last beginning and the end of the text; the text loses all of it.
bool takeBracketed(std::string_view& _text, std::string_view _begin, std::string_view _end, std::string& _inside) {
  if (!_text.ends_with(_end)) return false;
  const std::size_t begin = _text.rfind(_begin);
  if (begin == std::string_view::npos || begin + _begin.size() > _text.size() - _end.size()) return false;
  const std::size_t first = begin + _begin.size();
  _inside = _text.substr(first, _text.size() - _end.size() - first);
  _text = _text.substr(0, begin);
  return true;
}

// The record of a set-up, without its caller.
bool parseSetUpText(std::string_view _text, ErrorRecord& _record) {
  TextScanner scanner(_text);
  if (scanner.take(missingBegin)) {
    std::string_view rest = scanner.rest();
    takeEnd(rest, redirection);
    takeEnd(rest, genericHint);
    takeEnd(rest, ".");
    _record.kind = RecordKind::missingConfiguration;
    _record.ca = rest;
    return true;
  }
  if (scanner.take("Faulty file permissions. ")) {
    std::string_view rest = scanner.rest();
    takeEnd(rest, " does not have read permission.");
    _record.kind = RecordKind::unreadableConfiguration;
    _record.file = rest;
    return true;
  }
  if (!scanner.take("Unspecified error. ")) return false;
  _record.kind = RecordKind::noConfiguration;
  if (scanner.take("Failed to get configuration file path for ")) _record.ca = scanner.rest();
  return true;
}

// The record of the class store, without its CA.
bool parseClassStoreText(std::string_view _text, ErrorRecord& _record) {
  TextScanner scanner(_text);
  if (scanner.take("Failed to open file ")) {
    std::string_view rest = scanner.rest();
    const bool isWriting = takeEnd(rest, ".The doesn't have WRITE permission.");
    _record.kind = isWriting ? RecordKind::unwritableClassList : RecordKind::unreadableClassList;
    _record.file = rest;
    return true;
  }
  if (_text == "Failed to get path to the enabled log class/es file.") {
    _record.kind = RecordKind::noClassListPath;
    return true;
  }
  if (!scanner.take("The file ")) return false;
  std::string_view rest = scanner.rest();
  if (!takeEnd(rest, " doesn't have READ permission.")) return false;
  _record.kind = RecordKind::unreadableClassList;
  _record.file = rest;
  return true;
}

}  // namespace

std::optional<ErrorRecord> parseErrorRecord(std::string_view _line) {
  TextScanner scanner(_line);
  ErrorRecord record;
  if (!takeRecordStamp(scanner, record.time)) return {};
  std::string_view text = scanner.rest();
  record.text = text;
  if (takeBracketed(text, callerBegin, "]", record.caller) && parseSetUpText(text, record)) return record;
  record.caller.clear();
  text = scanner.rest();
  if (takeBracketed(text, " [", "] ", record.ca) && parseClassStoreText(text, record)) return record;
  record.ca.clear();
  return record;
}

std::string_view recordKindName(RecordKind _kind) {
  switch (_kind) {
    case RecordKind::missingConfiguration:
      return "missing configuration";
    case RecordKind::unreadableConfiguration:
      return "unreadable configuration";
    case RecordKind::noConfiguration:
      return "no configuration";
    case RecordKind::unreadableClassList:
      return "unreadable class list";
    case RecordKind::noClassListPath:
      return "no class list";
    case RecordKind::unwritableClassList:
      return "unwritable class list";
    case RecordKind::unknown:
      break;
  }
  return "unknown";
}

std::string explanationOf(const ErrorRecord& _record) {
  switch (_record.kind) {
    case RecordKind::missingConfiguration:
      return "There was no qmrk_logging_" + _record.ca +
             ".cfg; the application went on with what qmrk_logging_GE.cfg names. Install the file, or ask for another "
             "CA.";
    case RecordKind::unreadableConfiguration:
      return "The application was not allowed to read the file, and logged nothing. Give its user the right to read.";
    case RecordKind::noConfiguration:
      return "The application found no configuration at all, and logged nothing. See \"qmrkctl doctor\".";
    case RecordKind::unreadableClassList:
      return "The list of enabled classes could not be read; classes stayed as they were, at a start all of them on. "
             "Create the file, or give the user the right to read.";
    case RecordKind::noClassListPath:
      return "No folder for the list of enabled classes is known; classes stayed as they were, at a start all of them "
             "on.";
    case RecordKind::unwritableClassList:
      return "The list of enabled classes could not be changed. Give the user the right to write.";
    case RecordKind::unknown:
      break;
  }
  return "No record of the library; something else wrote into the file.";
}

}  // namespace qmrkctl
