// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "tests/tools/status/all_fields.h"

namespace {

namespace status = Quillmark_logging::status;

const char* nameOf(status::Kind _kind) {
  constexpr const char* names[] = {"bytes", "number", "text", "list", "files"};
  return names[static_cast<int>(_kind)];
}

template <class Fields>
void addRows(const Fields& _fields, std::vector<std::string>& _rows) {
  for (const status::Field& field : _fields) {
    _rows.push_back("| `" + std::string(field.name) + "` | " + nameOf(field.kind) + " | " +
                    std::to_string(field.offset) + " | " + std::to_string(field.size) + " |");
  }
}

std::vector<std::string> rowsOfReference() {
  std::ifstream page(QMRK_STATUS_PAGE_REFERENCE);
  const std::regex row(R"((\| `\w+` \| \w+ \| \d+ \| \d+ \|).*)");
  std::vector<std::string> rows;
  std::smatch match;
  for (std::string line; std::getline(page, line);) {
    if (std::regex_match(line, match, row)) rows.push_back(match[1]);
  }
  return rows;
}

TEST(StatusPageReference, ListsEveryFieldWithItsPlace) {
  std::vector<std::string> rows;
  addRows(status::allFields, rows);
  addRows(status::allFileFields, rows);
  EXPECT_EQ(rows, rowsOfReference());
}

template <class Fields>
void expectNoOverlap(const Fields& _fields, std::size_t _size) {
  std::size_t end = 0;
  for (const status::Field& field : _fields) {
    EXPECT_LE(end, field.offset) << field.name;
    const std::size_t alignment = field.kind == status::Kind::number ? field.size : 8;
    EXPECT_EQ(0u, field.offset % alignment) << field.name;
    end = field.offset + field.size;
  }
  EXPECT_LE(end, _size);
}

TEST(StatusPageReference, GivesEveryFieldItsOwnPlace) {
  expectNoOverlap(status::allFields, status::pageSize);
  expectNoOverlap(status::allFileFields, status::fileSize);
}

}  // namespace
