// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/usage_error.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "tools/qmrkctl/check/similar_name.h"
#include "tools/qmrkctl/command_model.h"
#include "tools/qmrkctl/shown_text.h"

namespace qmrkctl {
namespace {

bool isOption(const std::string& _word) { return _word.size() > 1 && _word.front() == '-'; }

// The place that the commands of the line have led to.
PlaceModel placeReached(const CLI::App& _program) {
  std::string path = _program.get_name();
  for (const CLI::App* command = &_program; !command->get_subcommands().empty();) {
    command = command->get_subcommands().front();
    path += " " + command->get_name();
  }
  const std::vector<PlaceModel> places = commandModel(_program).places;
  return *std::find_if(places.begin(), places.end(), [&path](const auto& _place) { return _place.path == path; });
}

std::string withSimilar(const std::string& _text, const std::string& _word, const std::vector<std::string>& _known) {
  const std::string similar = similarName(_word, std::vector<std::string_view>(_known.begin(), _known.end()));
  return _text + " \"" + shown(_word) + "\"" + (similar.empty() ? "" : "; did you mean \"" + similar + "\"?");
}

// About the first word that nothing takes; empty if the parser's own text says it.
std::string unknownWordText(const CLI::App& _program) {
  const std::vector<std::string> left = _program.remaining(true);
  if (left.empty()) return "";
  const PlaceModel place = placeReached(_program);
  if (isOption(left.front())) {
    std::vector<std::string> options;
    for (const WordModel& word : place.words) {
      if (isOption(word.word)) options.push_back(word.word);
    }
    return withSimilar("there is no option", left.front().substr(0, left.front().find('=')), options);
  }
  return place.commands.empty() ? "" : withSimilar("there is no command", left.front(), place.commands);
}

}  // namespace

std::string usageText(const CLI::App& _program, const CLI::Error& _error) {
  const std::string unknown = unknownWordText(_program);
  return _program.get_name() + ": " + (unknown.empty() ? shown(_error.what()) : unknown) +
         "\nRun with --help for more information.\n";
}

}  // namespace qmrkctl
