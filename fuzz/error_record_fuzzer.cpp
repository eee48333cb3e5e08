// SPDX-License-Identifier: MIT
// Any line of a file of error records: what is found stands in the line. A name without brackets, at the end of a
// record of either kind, is found again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "tools/logs/error_record.h"

namespace {

using qmrkctl::ErrorRecord;
using qmrkctl::RecordKind;

void expect(bool _condition) {
  if (!_condition) std::abort();
}

void checkParts(const std::string& _line, const ErrorRecord& _record) {
  expect(_line.ends_with(_record.text));
  expect(_line.find(_record.ca) != std::string::npos);
  expect(_line.find(_record.caller) != std::string::npos);
  expect(_line.find(_record.file) != std::string::npos);
  expect(!explanationOf(_record).empty());
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the name is that of libFuzzer
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* _data, std::size_t _size) {
  const std::string line(_data, _data + _size);
  if (const auto record = qmrkctl::parseErrorRecord(line)) checkParts(line, *record);
  const std::string stamp = "2007/01/05 09:03:07 ";
  const auto any = qmrkctl::parseErrorRecord(stamp + line);
  expect(any.has_value());
  checkParts(stamp + line, *any);
  if (line.empty() || line.find_first_of("[]") != std::string::npos) return 0;
  const auto setUp = qmrkctl::parseErrorRecord(stamp + "Unspecified error. x [Called by " + line + "]");
  expect(setUp && setUp->kind == RecordKind::noConfiguration && setUp->caller == line);
  const auto store = qmrkctl::parseErrorRecord(stamp + "Failed to open file /x [" + line + "] ");
  expect(store && store->kind == RecordKind::unreadableClassList && store->ca == line && store->file == "/x");
  return 0;
}
