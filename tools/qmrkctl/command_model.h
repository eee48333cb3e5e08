// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace qmrkctl {

/// Something that may stand on a command line: a command, an option, or a value out of a fixed set.
struct WordModel {
  std::string word;
  std::string description;
};

/// What may follow the words that lead to a command.
struct PlaceModel {
  std::string path;  ///< "qmrkctl classes"
  std::vector<std::string> commands;
  std::vector<WordModel> words;  ///< the commands among them
};

/// What may follow an option that takes a value.
struct ValueModel {
  std::vector<std::string> names;    ///< of the option, with their dashes: "-n", "--lines"
  std::vector<std::string> choices;  ///< empty: any value
};

/// A program as shells complete it.
struct CommandModel {
  std::string name;
  std::vector<PlaceModel> places;
  std::vector<ValueModel> values;
};

/// What the definitions of a program say. The options of the program count behind each of its commands, too.
CommandModel commandModel(const CLI::App& _program);

}  // namespace qmrkctl
