// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include "tools/qmrkctl/json.h"

namespace qmrkctl {

/// The JSON Schema of the key "result" of a command, the text of the file schemas/<name>.json.
struct ResultSchema {
  std::string_view name;
  std::string_view text;
};

/// All of them, by name.
const std::vector<ResultSchema>& resultSchemas();

/// The JSON Schema (draft 2020-12) of the whole object that a command prints with --json.
Json schemaOf(const ResultSchema& _schema);

}  // namespace qmrkctl
