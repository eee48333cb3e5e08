// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/command_model.h"

#include <algorithm>
#include <sstream>

namespace qmrkctl {
namespace {

// The parser tells the values that it admits only as "{a,b,c}" behind the type.
std::vector<std::string> choicesOf(const CLI::Option& _option) {
  const std::string type = _option.get_type_name();
  const std::size_t begin = type.find('{');
  const std::size_t end = type.find('}');
  std::vector<std::string> choices;
  if (begin == std::string::npos || end == std::string::npos) return choices;
  std::istringstream list(type.substr(begin + 1, end - begin - 1));
  for (std::string choice; std::getline(list, choice, ',');)
    choices.push_back(choice);
  return choices;
}

std::vector<std::string> namesOf(const CLI::Option& _option) {
  std::vector<std::string> names;
  for (const std::string& name : _option.get_snames())
    names.push_back("-" + name);
  for (const std::string& name : _option.get_lnames())
    names.push_back("--" + name);
  return names;
}

class ModelMaker {
 public:
  explicit ModelMaker(CommandModel& _model) : model_(_model) {}

  void take(const CLI::App& _command, const std::string& _path, const std::vector<WordModel>& _common) {
    PlaceModel place{_path, {}, {}};
    const auto commands = _command.get_subcommands([](const CLI::App*) { return true; });
    for (const CLI::App* command : commands) {
      place.commands.push_back(command->get_name());
      place.words.push_back({command->get_name(), command->get_description()});
    }
    std::vector<WordModel> common = _common;
    for (const CLI::Option* option : _command.get_options()) {
      const std::vector<WordModel> words = takeOption(*option);
      place.words.insert(place.words.end(), words.begin(), words.end());
      // The parser's own two, for help and the version, count here alone, and so does what has its place here.
      const bool isHandedDown =
          option->nonpositional() && option != _command.get_help_ptr() && option != _command.get_version_ptr();
      if (isHandedDown) common.insert(common.end(), words.begin(), words.end());
    }
    place.words.insert(place.words.end(), _common.begin(), _common.end());
    model_.places.push_back(place);
    for (const CLI::App* command : commands)
      take(*command, _path + " " + command->get_name(), common);
  }

 private:
  // The words for an option; where it has no name, those for its value.
  std::vector<WordModel> takeOption(const CLI::Option& _option) {
    const std::vector<std::string> names = namesOf(_option);
    const std::vector<std::string> choices = choicesOf(_option);
    if (!names.empty() && _option.get_items_expected_max() > 0) model_.values.push_back({names, choices});
    std::vector<WordModel> words;
    for (const std::string& word : names.empty() ? choices : names)
      words.push_back({word, _option.get_description()});
    return words;
  }

  CommandModel& model_;
};

}  // namespace

CommandModel commandModel(const CLI::App& _program) {
  CommandModel model{_program.get_name(), {}, {}};
  ModelMaker(model).take(_program, model.name, {});
  return model;
}

}  // namespace qmrkctl
