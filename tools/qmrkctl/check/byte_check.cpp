// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string_view>

#include "tools/qmrkctl/check/checks.h"

namespace qmrkctl {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

constexpr FindingKind byteTable[] = {
    {"Q101", Severity::error, "The file begins with a byte-order mark",
     "the mark becomes part of the first key or class of the file, which is then not found",
     "save the file as plain UTF-8 or ASCII, without a byte-order mark (\"UTF-8 without BOM\")",
     "\\xef\\xbb\\xbfLOG_STATE=TRUE"},
    {"Q102", Severity::error, "The file is UTF-16", "every second byte is zero, so no key and no class is recognised",
     "save the file as plain UTF-8 or ASCII", "a file that Notepad saved as \"Unicode\""},
    {"Q103", Severity::error, "The file has a zero byte",
     "the byte is part of the key, value or class in which it stands, which is then not recognised; a path ends at it",
     "delete the byte, or restore the file from a copy: it may be damaged", "LOG_STATE=TRUE\\x00"},
    {"Q104", Severity::error, "A carriage return stands alone",
     "only a carriage return with a line feed behind it ends a line: this one becomes part of a key, value or class",
     "save the file with line ends of LF or CR LF", "lines that end with CR alone; CR CR LF"},
    {"Q105", Severity::error, "The last line has no line end",
     "a pair ends at its line feed, so the last setting is not read", "end the last line with a line feed",
     "LOG_STATE=TRUE at the end of the file"},
    {"Q106", Severity::note, "A file has more faults than are shown", "others may follow when these are mended",
     "see whether it is the right file, mend these, and check again", ""},
};

// Of many such bytes the first is shown.
void addFirst(std::string_view _code, const ConfigurationFile& _file, std::size_t _position, const std::string& _text,
              Findings& _findings) {
  _findings.push_back(findingOf(_code, placeIn(_file, TextPlaces(_file.bytes).of(_position)), _text));
}

bool isUtf16(std::string_view _bytes) {
  if (_bytes.starts_with("\xFF\xFE") || _bytes.starts_with("\xFE\xFF")) return true;
  const auto zeros = std::count(_bytes.begin(), _bytes.end(), '\0');
  return _bytes.size() >= 4 && static_cast<std::size_t>(zeros) * 5 >= _bytes.size() * 2;
}

std::size_t loneCarriageReturn(std::string_view _bytes) {
  std::size_t position = _bytes.find('\r');
  while (position != std::string_view::npos && position + 1 < _bytes.size() && _bytes[position + 1] == '\n')
    position = _bytes.find('\r', position + 1);
  return position;
}

// A setting that the end of the file cuts off. What else stands there is no loss.
void checkLastLine(const ConfigurationFile& _file, Findings& _findings) {
  if (_file.text.empty() || _file.text.back() == '\n') return;
  const std::vector<Setting> whole = settingsOf(_file.path, _file.text + "\n");
  if (whole.size() == _file.settings.size()) return;
  const Setting& last = whole.back();
  _findings.push_back(findingOf("Q105", placeIn(_file, last.keyPlace),
                                "the line of " + last.key + " is the last one and has no line end", "",
                                last.key + " is not read: a pair ends at its line feed"));
}

}  // namespace

std::span<const FindingKind> byteKinds() { return byteTable; }

void checkBytes(const ConfigurationFile& _file, FileRole _role, Findings& _findings) {
  if (!_file.isRead) return;
  if (isUtf16(_file.bytes)) {
    _findings.push_back(findingOf("Q102", placeIn(_file, {}), "the file is UTF-16"));
    return;
  }
  if (_file.bytes.starts_with(byteOrderMark))
    addFirst("Q101", _file, 0, "the file begins with a byte-order mark", _findings);
  const std::size_t zero = _file.bytes.find('\0');
  if (zero != std::string::npos) addFirst("Q103", _file, zero, "the file has a zero byte", _findings);
  const std::size_t carriageReturn = loneCarriageReturn(_file.bytes);
  if (carriageReturn != std::string::npos) {
    addFirst("Q104", _file, carriageReturn, "a carriage return stands alone", _findings);
  }
  if (_role == FileRole::cfg) checkLastLine(_file, _findings);
}

}  // namespace qmrkctl
