// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "tests/support/child_process.h"

namespace {

using testsupport::ChildResult;
using testsupport::runProgram;

// Each script is read by the shell that it is for, which then completes a line. The words come back one a line.
ChildResult completeInBash(const std::string& _words, const std::string& _last) {
  return runProgram(
      "/bin/bash",
      {"-c", std::string("source <(") + QMRKCTL + " completion bash) && COMP_WORDS=(" + _words + " '" + _last +
                 "') && COMP_CWORD=$((${#COMP_WORDS[@]} - 1)) && _qmrkctl && " + "printf '%s\\n' \"${COMPREPLY[@]}\""});
}

ChildResult completeInFish(const std::string& _line) {
  return runProgram("/usr/bin/fish", {"--no-config", "-c",
                                      std::string(QMRKCTL) + " completion fish | source; complete -C '" + _line + "'"});
}

// What the shell's own functions are given shows what they would offer.
ChildResult completeInZsh(const std::string& _words, const std::string& _last) {
  return runProgram("/usr/bin/zsh",
                    {"-f", "-c",
                     "compdef() { : }; _describe() { print -l -- \"${(@P)argv[-1]}\" }; _files() { print files };"
                     "compadd() { print -l -- \"$@\" }; source <(" +
                         std::string(QMRKCTL) + " completion zsh); words=(" + _words + " '" + _last +
                         "'); CURRENT=${#words}; _qmrkctl"});
}

bool hasLine(const ChildResult& _result, const std::string& _line) {
  return ("\n" + _result.output).find("\n" + _line) != std::string::npos;
}

TEST(QmrkctlCompletion, OffersCommandsAndOptionsInBash) {
  const ChildResult commands = completeInBash("qmrkctl", "s");
  EXPECT_TRUE(hasLine(commands, "signal\n")) << commands.output << commands.errors;
  EXPECT_FALSE(hasLine(commands, "completion\n")) << commands.output;
  EXPECT_TRUE(hasLine(completeInBash("qmrkctl signal", "--e"), "--event\n"));
  EXPECT_TRUE(hasLine(completeInBash("qmrkctl --json signal", "--e"), "--event\n"));
  EXPECT_EQ(completeInBash("qmrkctl --color", "a").output, "auto\nalways\n");
}

TEST(QmrkctlCompletion, OffersCommandsAndOptionsInFish) {
  const ChildResult commands = completeInFish("qmrkctl s");
  EXPECT_TRUE(hasLine(commands, "signal\t")) << commands.output << commands.errors;
  EXPECT_FALSE(hasLine(commands, "completion\t")) << commands.output;
  EXPECT_TRUE(hasLine(completeInFish("qmrkctl signal --e"), "--event\t"));
  EXPECT_TRUE(hasLine(completeInFish("qmrkctl --color a"), "always"));
}

TEST(QmrkctlCompletion, OffersCommandsAndOptionsInZsh) {
  const ChildResult commands = completeInZsh("qmrkctl", "");
  EXPECT_TRUE(hasLine(commands, "signal:")) << commands.output << commands.errors;
  EXPECT_TRUE(hasLine(commands, "--json:")) << commands.output;
  EXPECT_TRUE(hasLine(completeInZsh("qmrkctl signal", ""), "--event:"));
  EXPECT_TRUE(hasLine(completeInZsh("qmrkctl --color", ""), "--\nauto\nalways\nnever\n"));
}

TEST(QmrkctlCompletion, LoadsInEachShellWithoutAComplaint) {
  for (const std::string& shell : {std::string("bash"), std::string("zsh"), std::string("fish")}) {
    const ChildResult result =
        runProgram("/bin/bash", {"-c", std::string(QMRKCTL) + " completion " + shell + " | " + shell + " -n"});
    EXPECT_EQ(result.exitCode, 0) << shell;
    EXPECT_EQ(result.output + result.errors, "") << shell;
  }
}

TEST(QmrkctlCompletion, RejectsAnotherShell) {
  EXPECT_EQ(runProgram(QMRKCTL, {"completion", "tcsh"}).exitCode, 2);
  EXPECT_EQ(runProgram(QMRKCTL, {"completion"}).exitCode, 2);
}

}  // namespace
