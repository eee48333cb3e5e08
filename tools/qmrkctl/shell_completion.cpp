// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/shell_completion.h"

namespace qmrkctl {
namespace {

std::string joined(const std::vector<std::string>& _words, const std::string& _separator) {
  std::string text;
  for (const std::string& word : _words)
    text += (text.empty() ? "" : _separator) + word;
  return text;
}

std::string joinedWords(const std::vector<WordModel>& _words) {
  std::string text;
  for (const WordModel& word : _words)
    text += (text.empty() ? "" : " ") + word.word;
  return text;
}

// Between apostrophes no character has a meaning to a shell but the apostrophe itself.
std::string quoted(const std::string& _text) {
  std::string text = "'";
  for (const char c : _text)
    c == '\'' ? text += "'\\''" : text += c;
  return text + "'";
}

// The same for fish, where a backslash escapes inside apostrophes.
std::string fishQuoted(const std::string& _text) {
  std::string text = "'";
  for (const char c : _text) {
    if (c == '\'' || c == '\\') text += '\\';
    text += c;
  }
  return text + "'";
}

// What leads from the words so far to the place of a command: "qmrkctl classes" and so on, each quoted.
std::string steps(const CommandModel& _program, const std::string& _separator) {
  std::vector<std::string> all;
  for (const PlaceModel& place : _program.places) {
    for (const std::string& command : place.commands)
      all.push_back(quoted(place.path + " " + command));
  }
  return joined(all, _separator);
}

void replace(std::string& _text, const std::string& _mark, const std::string& _by) {
  for (std::size_t at = _text.find(_mark); at != std::string::npos; at = _text.find(_mark, at + _by.size())) {
    _text.replace(at, _mark.size(), _by);
  }
}

std::string filledIn(std::string _script, const CommandModel& _program, const std::string& _steps,
                     const std::string& _values, const std::string& _places) {
  replace(_script, "@NAME@", _program.name);
  replace(_script, "@STEPS@", _steps);
  replace(_script, "@VALUES@", _values);
  replace(_script, "@PLACES@", _places);
  return _script;
}

constexpr char bashScript[] =
    R"(# Completion of @NAME@ for bash: source it, or install it as bash-completion/completions/@NAME@.
_@NAME@() {
  local word=${COMP_WORDS[COMP_CWORD]} place=@NAME@ i
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; i++)); do
    case "$place ${COMP_WORDS[i]}" in
      @STEPS@) place="$place ${COMP_WORDS[i]}" ;;
    esac
  done
  case ${COMP_WORDS[COMP_CWORD - 1]} in
@VALUES@  esac
  case $place in
@PLACES@  esac
}
complete -o default -F _@NAME@ @NAME@
)";

constexpr char zshScript[] = R"(#compdef @NAME@
# Completion of @NAME@ for zsh: install it as _@NAME@ in a folder of fpath, or source it after compinit.
_@NAME@() {
  local place=@NAME@ word
  local -a entries
  for word in "${(@)words[2,CURRENT-1]}"; do
    case "$place $word" in
      @STEPS@) place="$place $word" ;;
    esac
  done
  case ${words[CURRENT-1]} in
@VALUES@  esac
  case $place in
@PLACES@  esac
  _describe -o @NAME@ entries || _files
}
if [[ ${funcstack[1]} == _@NAME@ ]]; then _@NAME@ "$@"; else compdef _@NAME@ @NAME@; fi
)";

constexpr char fishScript[] = R"(# Completion of @NAME@ for fish: install it as fish/completions/@NAME@.fish.
function __@NAME@_at
  set -l place @NAME@
  for word in (commandline -opc)[2..-1]
    switch "$place $word"
      case @STEPS@
        set place "$place $word"
    end
  end
  test "$place" = "$argv[1]"
end
@PLACES@)";

}  // namespace

std::string bashCompletion(const CommandModel& _program) {
  std::string values;
  for (const ValueModel& value : _program.values) {
    values += "    " + joined(value.names, " | ") + ")";
    if (!value.choices.empty()) {
      values += " mapfile -t COMPREPLY < <(compgen -W " + quoted(joined(value.choices, " ")) + " -- \"$word\")";
    }
    values += "\n      return ;;\n";
  }
  std::string places;
  for (const PlaceModel& place : _program.places) {
    places += "    " + quoted(place.path) + ")\n      mapfile -t COMPREPLY < <(compgen -W " +
              quoted(joinedWords(place.words)) + " -- \"$word\") ;;\n";
  }
  return filledIn(bashScript, _program, steps(_program, " | "), values, places);
}

std::string zshCompletion(const CommandModel& _program) {
  std::string values;
  for (const ValueModel& value : _program.values) {
    const std::string action = value.choices.empty() ? "_files" : "compadd -- " + joined(value.choices, " ");
    values += "    " + joined(value.names, " | ") + ") " + action + "; return ;;\n";
  }
  std::string places;
  for (const PlaceModel& place : _program.places) {
    places += "    " + quoted(place.path) + ") entries=(\n";
    for (const WordModel& word : place.words)
      places += "      " + quoted(word.word + ":" + word.description) + "\n";
    places += "    ) ;;\n";
  }
  return filledIn(zshScript, _program, steps(_program, " | "), values, places);
}

std::string fishCompletion(const CommandModel& _program) {
  std::string places;
  for (const PlaceModel& place : _program.places) {
    const std::string condition =
        "complete -c " + _program.name + " -n " + fishQuoted("__" + _program.name + "_at " + fishQuoted(place.path));
    // Where a command is to follow, names of files are of no use.
    if (!place.commands.empty()) places += condition + " -f\n";
    for (const WordModel& word : place.words) {
      places += condition + " -a " + fishQuoted(word.word) + " -d " + fishQuoted(word.description) + "\n";
    }
  }
  for (const ValueModel& value : _program.values) {
    if (value.choices.empty()) continue;
    places += "complete -c " + _program.name + " -f -n 'contains -- (commandline -opc)[-1] " +
              joined(value.names, " ") + "' -a " + fishQuoted(joined(value.choices, " ")) + "\n";
  }
  return filledIn(fishScript, _program, steps(_program, " "), "", places);
}

}  // namespace qmrkctl
