// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include "tools/qmrkctl/json.h"

namespace qmrkctl {

/// The JSON Schema of a command's key "result": the text of schemas/<name>.json.
struct ResultSchema {
  std::string_view name;
  std::string_view text;
};

/// All schemas, sorted by name and valid as long as the program.
const std::vector<ResultSchema>& resultSchemas();

/// The JSON Schema (draft 2020-12) of the whole object that a command prints with --json.
Json schemaOf(const ResultSchema& _schema);

}  // namespace qmrkctl
