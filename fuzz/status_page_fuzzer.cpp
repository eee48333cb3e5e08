// SPDX-License-Identifier: MIT
// Whatever a page holds, the reader stays within it, and every text that it hands out is valid UTF-8.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "diagnostics/status_page_file_entry.h"
#include "diagnostics/status_page_layout.h"
#include "tools/status/status_page_parser.h"
#include "tools/status/valid_utf8.h"

namespace {

namespace status = Quillmark_logging::status;

void expect(bool _condition) {
  if (!_condition) std::abort();
}

void expectValid(const std::string& _text, std::size_t _room) {
  expect(qmrkctl::validUtf8(_text) == _text);
  // A byte that is replaced takes three.
  expect(_text.size() <= 3 * _room);
}

}  // namespace

// The input stands behind the head of a page, as often as it fits: few inputs would pass the head, and none would be as
// long as a page.
// NOLINTNEXTLINE(readability-identifier-naming): the name is that of libFuzzer
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* _data, std::size_t _size) {
  std::string page(status::magic);
  page += std::string("\1\0\0\0\0\0\1\0\2\0\0\0\0\0\0\0", 16);
  const std::string input(reinterpret_cast<const char*>(_data), _size);
  while (!input.empty() && page.size() < status::pageSize)
    page += input;
  page.resize(status::pageSize);
  expect(!qmrkctl::parseStatusPage(input) || _size == status::pageSize);
  const auto process = qmrkctl::parseStatusPage(page);
  expect(process.has_value());
  expectValid(process->program.text, status::program.size);
  expectValid(process->classes.text.text, status::classText.size);
  expect(process->applications.size() <= status::applications.size / status::entryHead);
  for (const auto& application : process->applications)
    expectValid(application.name, status::applications.size);
  expect(process->classes.logs.size() <= status::logs.size / status::entryHead);
  for (const auto& log : process->classes.logs)
    expectValid(log.name, status::logs.size);
  expect(process->files.size() <= status::fileCount);
  for (const auto& file : process->files)
    expectValid(file.path.text, status::filePath.size);
  return 0;
}
