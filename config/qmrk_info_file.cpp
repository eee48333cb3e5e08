// SPDX-License-Identifier: MIT
#include "config/qmrk_info_file.h"

#include "platform/text_file.h"

namespace Quillmark_logging {
namespace {

std::string twoDigits(int _number) { return (_number < 10 ? "0" : "") + std::to_string(_number); }

}  // namespace

std::string recordStamp(const platform::LocalTime& _time) {
  const std::string date = std::to_string(_time.year) + "/" + twoDigits(_time.month) + "/" + twoDigits(_time.day);
  const std::string time = twoDigits(_time.hour) + ":" + twoDigits(_time.minute) + ":" + twoDigits(_time.second);
  return date + " " + time + " ";
}

RecordResult appendRecord(const std::string& _file, const std::string& _text) {
  platform::TextWriter file(_file, platform::TextWriter::Mode::append);
  if (!file.isOpen()) return RecordResult::notOpened;
  const std::string lineEnd = platform::endsInsideLine(_file) ? "\n" : "";
  const bool written = file.write(lineEnd + recordStamp(platform::localTime()) + _text + "\n");
  return written ? RecordResult::written : RecordResult::notWritten;
}

}  // namespace Quillmark_logging
