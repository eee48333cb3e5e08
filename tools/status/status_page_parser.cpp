// SPDX-License-Identifier: MIT
#include "tools/status/status_page_parser.h"

#include <algorithm>
#include <limits>

#include "diagnostics/status_page_file_entry.h"
#include "diagnostics/status_page_layout.h"
#include "tools/status/valid_utf8.h"

namespace qmrkctl {
namespace {

using status::Field;

std::uint64_t littleEndian(std::string_view _bytes) {
  std::uint64_t number = 0;
  for (std::size_t place = _bytes.size(); place > 0; --place) {
    number = number << 8U | static_cast<unsigned char>(_bytes[place - 1]);
  }
  return number;
}

// The fields of a page, or of a part of it.
class Fields {
 public:
  explicit Fields(std::string_view _bytes) : bytes_(_bytes) {}

  std::string_view bytes(const Field& _field) const { return bytes_.substr(_field.offset, _field.size); }

  std::uint64_t wide(const Field& _field) const { return littleEndian(bytes(_field)); }

  std::uint32_t number(const Field& _field) const { return static_cast<std::uint32_t>(wide(_field)); }

  template <class Enumeration>
  Enumeration oneOf(const Field& _field, Enumeration _last) const {
    const auto value = static_cast<Enumeration>(number(_field));
    return value <= _last ? value : Enumeration{};
  }

  Moment moment(const Field& _field) const {
    const std::uint64_t value = wide(_field);
    if (value == 0 || value > std::numeric_limits<std::int64_t>::max()) return std::nullopt;
    return static_cast<std::int64_t>(value);
  }

  PageText text(const Field& _field) const {
    const std::string_view all = bytes(_field);
    const std::string_view room = all.substr(status::textHead);
    const std::uint64_t stored = std::min<std::uint64_t>(littleEndian(all.substr(0, 4)), room.size());
    const std::uint64_t whole = std::max(littleEndian(all.substr(4, 4)), stored);
    const std::string_view text = room.substr(0, stored);
    return {validUtf8(text), static_cast<std::uint32_t>(whole), whole > stored, std::string(text)};
  }

  // Calls _take(text, flags) for each entry.
  // @return how many entries were left out.
  template <class Take>
  std::uint32_t list(const Field& _field, Take _take) const {
    const std::string_view all = bytes(_field);
    std::string_view rest = all.substr(status::listHead);
    rest = rest.substr(0, littleEndian(all.substr(8, 4)));
    for (std::uint64_t left = littleEndian(all.substr(0, 4)); left > 0 && rest.size() >= status::entryHead; --left) {
      const std::uint64_t size = littleEndian(rest.substr(0, 2));
      const auto flags = static_cast<std::uint8_t>(rest[2]);
      rest.remove_prefix(status::entryHead);
      if (size > rest.size()) break;
      _take(validUtf8(rest.substr(0, size)), flags);
      rest.remove_prefix(size);
    }
    return static_cast<std::uint32_t>(littleEndian(all.substr(4, 4)));
  }

 private:
  std::string_view bytes_;
};

bool isPage(std::string_view _bytes) {
  if (_bytes.size() != status::pageSize) return false;
  const Fields fields(_bytes);
  return fields.bytes(status::magicField) == status::magic && fields.number(status::version) == status::layoutVersion &&
         fields.number(status::size) == status::pageSize && fields.wide(status::sequence) % 2 == 0 &&
         fields.wide(status::sequence) != 0;
}

void parseProcess(const Fields& _fields, ProcessStatus& _process) {
  _process.pid = _fields.number(status::pid);
  _process.startTime = _fields.wide(status::startTime);
  _process.pidNamespace = _fields.wide(status::pidNamespace);
  _process.userId = _fields.number(status::userId);
  _process.user = _fields.text(status::user).text;
  _process.program = _fields.text(status::program);
  _process.libraryVersion = _fields.text(status::libraryVersion).text;
  _process.writtenAt = _fields.moment(status::writtenAt);
  _process.isThreadSafe = (_fields.number(status::modes) & status::threadSafeMode) != 0;
  _process.traces = (_fields.number(status::modes) & status::traceMode) != 0;
  _process.applicationsLeftOut = _fields.list(status::applications, [&](std::string _name, std::uint8_t _flags) {
    _process.applications.push_back({std::move(_name), (_flags & status::isUnregistered) != 0});
  });
  _process.caAsked = _fields.text(status::caAsked).text;
  _process.caInEffect = _fields.text(status::caInEffect).text;
  _process.caSource = _fields.oneOf(status::caSource, status::CaSource::generic);
  _process.caChanges = _fields.number(status::caChanges);
  _process.cfgPath = _fields.text(status::cfgPath);
  _process.initPath = _fields.text(status::initPath);
  _process.commonLogPath = _fields.text(status::commonLogPath);
}

SetupStatus parseSetUp(const Fields& _fields) {
  SetupStatus setUp;
  setUp.call = _fields.oneOf(status::setUpCall, status::Call::disableAllLogs);
  setUp.at = _fields.moment(status::setUpAt);
  setUp.result = _fields.oneOf(status::setUpResult, status::Result::failed);
  setUp.failure = _fields.oneOf(status::setUpFailure, status::Failure::exception);
  setUp.error = _fields.text(status::setUpError);
  return setUp;
}

ClassStatus parseClasses(const Fields& _fields) {
  ClassStatus classes;
  classes.generation = _fields.wide(status::classGeneration);
  classes.appliedAt = _fields.moment(status::classesAt);
  classes.hash = _fields.wide(status::classHash);
  classes.text = _fields.text(status::classText);
  classes.ca = _fields.text(status::classCa).text;
  classes.filter = _fields.text(status::filter);
  classes.logsLeftOut = _fields.list(status::logs, [&](std::string _name, std::uint8_t _flags) {
    classes.logs.push_back({std::move(_name), (_flags & status::isOn) != 0});
  });
  classes.updatedAt = _fields.moment(status::updateAt);
  classes.updateResult = _fields.oneOf(status::updateResult, status::Result::failed);
  classes.updateFailure = _fields.oneOf(status::updateFailure, status::Failure::exception);
  classes.updateError = _fields.text(status::updateError);
  classes.ownChangeAt = _fields.moment(status::ownChangeAt);
  classes.ownChange = _fields.oneOf(status::ownChange, status::Call::disableAllLogs);
  classes.ownPattern = _fields.text(status::ownPattern);
  return classes;
}

ListenerStatus parseListener(const Fields& _fields) {
  ListenerStatus listener;
  listener.state = _fields.oneOf(status::listenerState, status::ListenerState::failed);
  listener.threads = _fields.number(status::listenerThreads);
  listener.event = _fields.text(status::listenerEvent).text;
  listener.ca = _fields.text(status::listenerCa).text;
  listener.generation = _fields.wide(status::listenerGeneration);
  listener.wakes = _fields.wide(status::listenerWakes);
  listener.changedAt = _fields.moment(status::listenerAt);
  listener.failedAt = _fields.moment(status::listenerFailedAt);
  listener.error = _fields.number(status::listenerError);
  listener.failure = _fields.text(status::listenerFailure);
  return listener;
}

LogFileStatus parseFile(const Fields& _fields) {
  const std::uint32_t state = _fields.number(status::fileState);
  LogFileStatus file;
  file.path = _fields.text(status::filePath);
  file.kind = _fields.oneOf(status::fileKind, status::FileKind::rolling);
  file.isFailing = (state & status::isFailing) != 0;
  file.hasOwnThread = (state & status::hasOwnThread) != 0;
  file.lost = _fields.wide(status::fileLost);
  file.dropped = _fields.wide(status::fileDropped);
  file.failedAt = _fields.moment(status::fileFailedAt);
  file.error = _fields.number(status::fileError);
  file.held = _fields.wide(status::fileHeld);
  return file;
}

}  // namespace

std::optional<ProcessStatus> parseStatusPage(std::string_view _bytes) {
  if (!isPage(_bytes)) return std::nullopt;
  const Fields fields(_bytes);
  ProcessStatus process;
  parseProcess(fields, process);
  process.setUp = parseSetUp(fields);
  process.classes = parseClasses(fields);
  process.listener = parseListener(fields);
  const std::uint32_t used = std::min(fields.number(status::filesUsed), status::fileCount);
  for (std::uint32_t place = 0; place < used; ++place) {
    const std::size_t begin = std::size_t{place} * status::fileSize;
    process.files.push_back(parseFile(Fields(fields.bytes(status::files).substr(begin, status::fileSize))));
  }
  process.filesLeftOut = fields.number(status::filesLeftOut);
  return process;
}

}  // namespace qmrkctl
