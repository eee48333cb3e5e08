// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>
#include <string>

#include "tools/qmrkctl/argument_check.h"
#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/schemas.h"
#include "tools/qmrkctl/shown_text.h"

namespace qmrkctl {
namespace {

std::string namesText() {
  std::string text;
  for (const ResultSchema& schema : resultSchemas())
    text += (text.empty() ? "" : ", ") + std::string(schema.name);
  return text;
}

int printSchema(const std::string& _name, Report& _report) {
  for (const ResultSchema& schema : resultSchemas()) {
    if (schema.name != _name) continue;
    const Json whole = schemaOf(schema);
    _report.result() = whole;
    _report.line(whole.dump(2));
    return exitOk;
  }
  Report::message("no command \"" + shown(_name) + "\" has a schema; there are: " + namesText());
  return exitNotFound;
}

int listSchemas(Report& _report) {
  Json names = Json::array();
  for (const ResultSchema& schema : resultSchemas()) {
    names.push_back(schema.name);
    _report.line(schema.name);
  }
  _report.result()["names"] = names;
  return exitOk;
}

}  // namespace

void addSchemaCommand(CLI::App& _program, Choice& _choice) {
  CLI::App* const command =
      _program.add_subcommand("schema", "Print the JSON Schema of what a command prints with --json");
  const auto name = std::make_shared<std::string>();
  command->add_option("name", *name, "Of the command; without it, all names")->type_name("NAME")->check(checkNotEmpty);
  command->callback([name, &_choice] {
    _choice = {"schema", [name](const Options&, Report& _report) {
                 return name->empty() ? listSchemas(_report) : printSchema(*name, _report);
               }};
  });
}

}  // namespace qmrkctl
