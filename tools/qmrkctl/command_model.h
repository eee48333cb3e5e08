// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace qmrkctl {

/// A word of a command line: a command, an option, or a value from a fixed set.
struct WordModel {
  std::string word;
  std::string description;
};

/// The words that may follow a command.
struct PlaceModel {
  std::string path;  ///< "qmrkctl classes"
  std::vector<std::string> commands;
  std::vector<WordModel> words;  ///< the commands among them
};

/// The values that may follow an option.
struct ValueModel {
  std::vector<std::string> names;    ///< of the option, with their dashes: "-n", "--lines"
  std::vector<std::string> choices;  ///< empty: any value
};

/// A program as a shell completes it.
struct CommandModel {
  std::string name;
  std::vector<PlaceModel> places;
  std::vector<ValueModel> values;
};

/// The model of a program, from its definitions. The program's own options may follow each command, too.
CommandModel commandModel(const CLI::App& _program);

}  // namespace qmrkctl
