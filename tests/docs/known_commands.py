# SPDX-License-Identifier: MIT
"""Whether a command of a page names only what there is: scripts and their options, presets, targets, steps, tests, commands
and options of qmrkctl and LogTest. Nothing is built or changed for that."""

import functools
import json
import os
import re
import shlex
import subprocess

STEPS = re.compile(r"^  ([a-z][\w-]+) +\S", re.MULTILINE)
_PLACEHOLDER = re.compile(r"<([\w-]+)>")


def simple_commands(block):
    """The words of each command of a block; comments and the operators of the shell stand between them."""
    text = _PLACEHOLDER.sub(r"\1", block.replace("\\\n", " "))
    for line in text.splitlines():
        lexer = shlex.shlex(line, posix=True, punctuation_chars=True)
        lexer.whitespace_split = True
        words = []
        for token in lexer:
            if token and set(token) <= set("();<>|&"):
                if words:
                    yield words
                words = []
            else:
                words.append(token)
        if words:
            yield words


def _option_names(words):
    return [word.split("=")[0] for word in words if re.match(r"--?[a-zA-Z]", word)]


def _word_behind(words, option):
    return (words[words.index(option) + 1:] + [""])[0]


class Checker:
    """Of the sources ROOT and of a build of them with the tools and tests."""

    def __init__(self, root, build):
        self.root, self.build = root, build
        self.presets = json.loads((root / "CMakePresets.json").read_text(encoding="utf-8"))
        self.programs = {"cmake": self._cmake, "ctest": self._ctest, "qmrkctl": self._qmrkctl, "LogTest": self._log_test,
                         "sudo": lambda words: self.fault_of(words[1:])}

    def knows(self, words):
        """Whether there is something to compare the command with."""
        return words[0] in self.programs or self._is_script(words[0])

    def fault_of(self, words):
        """What is wrong with the command; None if nothing is, or if it is not one that is known."""
        if not words or not self.knows(words):
            return None
        return self._script(words) if self._is_script(words[0]) else self.programs[words[0]](words)

    @staticmethod
    def _is_script(name):
        return re.match(r"(scripts|tests|bench)/.*\w$", name) is not None

    def names_of(self, kind):
        """The presets of a kind that one can name."""
        return {preset["name"] for preset in self.presets[kind] if not preset.get("hidden")}

    def _preset(self, kind, words):
        name = _word_behind(words, "--preset")
        return None if name in self.names_of(kind) else f"no preset {name} in {kind}"

    def _cmake(self, words):
        if "--preset" in words:
            fault = self._preset("buildPresets" if "--build" in words else "configurePresets", words)
            if fault:
                return fault
        elif {"--build", "--install"} & set(words):
            folder = _word_behind(words, "--build" if "--build" in words else "--install")
            if folder.startswith("build/") and self._preset("configurePresets", ["--preset", folder[6:]]):
                return f"no preset builds in {folder}"
        if "--target" in words and _word_behind(words, "--target") not in self._targets():
            return f"no target {_word_behind(words, '--target')}"
        return None

    @functools.lru_cache(maxsize=None)
    def _targets(self):
        files = [self.root / "CMakeLists.txt", *self.root.glob("*/**/CMakeLists.txt"), *self.root.glob("cmake/*.cmake")]
        text = "\n".join(file.read_text(encoding="utf-8") for file in files if self.root / "build" not in file.parents)
        return set(re.findall(r"add_(?:custom_target|library|executable)\(([\w-]+)", text))

    def _ctest(self, words):
        if "--preset" not in words:
            return "without a preset, ctest finds no tests in the sources"
        fault = self._preset("testPresets", words)
        if fault or "-R" not in words:
            return fault
        pattern = _word_behind(words, "-R")
        return None if any(re.search(pattern, name) for name in self._tests()) else f"no test is called {pattern}"

    @functools.lru_cache(maxsize=None)
    def _tests(self):
        listed = subprocess.run(["ctest", "--test-dir", str(self.build), "-N"], capture_output=True, text=True, check=True)
        return re.findall(r"(?m)^ *Test +#\d+: (.*)$", listed.stdout)

    @functools.lru_cache(maxsize=None)
    def _usage(self, script):
        """What the script says of itself: with --help, or, if it is only for the tests, at its beginning."""
        if script.startswith("scripts/") and script.count("/") == 1:
            told = subprocess.run([str(self.root / script), "--help"], capture_output=True, text=True, check=False)
            return told.stdout if told.returncode == 0 else ""
        return "\n".join((self.root / script).read_text(encoding="utf-8").splitlines()[:12])

    def _script(self, words):
        script = self.root / words[0]
        if not script.is_file() or not os.access(script, os.X_OK):
            return f"there is no program {words[0]}"
        usage = self._usage(words[0])
        if words[0].split("/")[-1] not in usage:
            return f"{words[0]} does not say how it is used"
        if words[0] == "tests/support/with_private_processes":
            return self.fault_of(words[1:])
        unknown = [name for name in _option_names(words[1:]) if not re.search(rf"(?<![\w-]){name}(?![\w-])", usage)
                   and name != "--help"]
        if words[0] == "scripts/test":
            unknown += [word for word in words[1:] if word[0] != "-" and word not in STEPS.findall(usage)]
        return f"{words[0]} does not have {', '.join(unknown)}" if unknown else None

    @functools.lru_cache(maxsize=None)
    def _help(self, program, *command):
        """(the options, the commands) of a program or of one of its commands; what is known of a program is known below."""
        path = {"qmrkctl": "tools/qmrkctl/qmrkctl", "LogTest": "tools/LogTest"}[program]
        told = subprocess.run([str(self.build / path), *command, "--help"], capture_output=True, text=True, check=True).stdout
        options, _, commands = told.partition("\nSubcommands:\n")
        names = {name for names in re.findall(r"(?m)^  (-[\w,-]+)", options) for name in names.split(",")}
        above = self._help(program, *command[:-1])[0] if command else set()
        return names | above, set(re.findall(r"(?m)^  ([a-z-]+) ", commands))

    def _log_test(self, words):
        unknown = set(_option_names(words[1:])) - self._help("LogTest")[0]
        return f"LogTest does not have {', '.join(sorted(unknown))}" if unknown else None

    def _qmrkctl(self, words):
        command = []
        for word in words[1:]:
            if word in self._help("qmrkctl", *command)[1]:
                command.append(word)
        rest = [word for word in words[1:] if word[0] != "-"]
        if rest and not command:
            return f"qmrkctl has no command {rest[0]}"
        options, commands = self._help("qmrkctl", *command)
        if commands and rest[len(command):]:
            return f"qmrkctl {' '.join(command)} has no command {rest[len(command)]}"
        unknown = set(_option_names(words[1:])) - options
        return f"qmrkctl {' '.join(command)} does not have {', '.join(sorted(unknown))}" if unknown else None
