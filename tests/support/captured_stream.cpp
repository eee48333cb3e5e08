// SPDX-License-Identifier: MIT
#include "tests/support/captured_stream.h"

#include <chrono>

namespace testsupport {
namespace {

int occurrences(const std::string& _text, const std::string& _wanted) {
  int found = 0;
  for (std::size_t at = _text.find(_wanted); at != std::string::npos; at = _text.find(_wanted, at + 1)) {
    ++found;
  }
  return found;
}

}  // namespace

std::string CapturedStream::text() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return text_;
}

int CapturedStream::count(const std::string& _text) const { return occurrences(text(), _text); }

bool CapturedStream::waitFor(const std::string& _text, int _times) const {
  std::unique_lock<std::mutex> lock(mutex_);
  return changed_.wait_for(lock, std::chrono::seconds(30), [&] { return occurrences(text_, _text) >= _times; });
}

CapturedStream::int_type CapturedStream::overflow(int_type _character) {
  if (traits_type::eq_int_type(_character, traits_type::eof())) return traits_type::not_eof(_character);
  const char character = traits_type::to_char_type(_character);
  xsputn(&character, 1);
  return _character;
}

std::streamsize CapturedStream::xsputn(const char* _characters, std::streamsize _number) {
  const std::lock_guard<std::mutex> lock(mutex_);
  text_.append(_characters, static_cast<std::size_t>(_number));
  changed_.notify_all();
  return _number;
}

}  // namespace testsupport
