// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/schemas.h"

#include <string>

namespace qmrkctl {
namespace {

// What all commands have in common.
constexpr char envelope[] = R"({
  "$schema": "https://json-schema.org/draft/2020-12/schema",
  "type": "object",
  "additionalProperties": false,
  "required": ["schema", "time", "host", "version", "ok", "findings", "result"],
  "properties": {
    "schema": {"type": "string"},
    "time": {"type": "string", "format": "date-time"},
    "host": {"type": "string"},
    "version": {"type": "string"},
    "ok": {"type": "boolean"},
    "findings": {
      "type": "array",
      "items": {
        "type": "object",
        "additionalProperties": false,
        "required": ["code", "severity", "text", "effect", "fix"],
        "properties": {
          "code": {"type": "string", "pattern": "^Q[1-7][0-9][0-9]$"},
          "severity": {"enum": ["error", "warning", "note"]},
          "file": {"type": "string"},
          "line": {"type": "integer", "minimum": 1},
          "column": {"type": "integer", "minimum": 1},
          "text": {"type": "string"},
          "effect": {"type": "string"},
          "fix": {"type": "string"}
        }
      }
    },
    "result": {}
  }
})";

}  // namespace

Json schemaOf(const ResultSchema& _schema) {
  Json whole = Json::parse(envelope);
  const std::string name(_schema.name);
  whole["title"] = "What \"qmrkctl --json " + name + "\" prints";
  whole["properties"]["schema"] = {{"const", "qmrkctl." + name + "/1"}};
  whole["properties"]["result"] = Json::parse(_schema.text);
  return whole;
}

}  // namespace qmrkctl
