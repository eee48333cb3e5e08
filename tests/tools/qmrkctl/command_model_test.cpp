// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/command_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "tools/qmrkctl/commands.h"
#include "tools/qmrkctl/schemas.h"

namespace {

using namespace qmrkctl;

class CommandModelTest : public ::testing::Test {
 protected:
  CommandModelTest() {
    CLI::App* const list = program_.add_subcommand("list", "Lists");
    program_.add_option("-c,--color", color_)->check(CLI::IsMember({"auto", "never"}));
    list->add_flag("--long", isLong_, "In many words");
    list->add_option("shell", shell_)->check(CLI::IsMember({"bash", "zsh"}));
    list->add_subcommand("all", "Lists all");
    model_ = commandModel(program_);
  }

  std::set<std::string> wordsAt(const std::string& _path) const {
    std::set<std::string> words;
    for (const PlaceModel& place : model_.places) {
      for (const WordModel& word : place.words) {
        if (place.path == _path) words.insert(word.word);
      }
    }
    return words;
  }

 private:
  std::string color_;
  std::string shell_;
  bool isLong_ = false;
  CLI::App program_{"Does", "prog"};

 protected:
  CommandModel model_;
};

TEST_F(CommandModelTest, OffersWhatMayFollowAtEachPlace) {
  EXPECT_EQ(wordsAt("prog"), (std::set<std::string>{"list", "-c", "--color", "-h", "--help"}));
  EXPECT_EQ(wordsAt("prog list"),
            (std::set<std::string>{"all", "--long", "bash", "zsh", "-c", "--color", "-h", "--help"}));
  EXPECT_EQ(wordsAt("prog list all"), (std::set<std::string>{"-h", "--help", "-c", "--color", "--long"}));
}

TEST_F(CommandModelTest, KnowsTheValuesOfAnOption) {
  ASSERT_EQ(model_.values.size(), 1U);
  EXPECT_EQ(model_.values[0].names, (std::vector<std::string>{"-c", "--color"}));
  EXPECT_EQ(model_.values[0].choices, (std::vector<std::string>{"auto", "never"}));
}

TEST(Commands, EachHaveADescriptionAndASchema) {
  CLI::App program("", "qmrkctl");
  Options options;
  Choice choice;
  addOptions(program, options);
  addCommands(program, choice);
  const auto& schemas = resultSchemas();
  for (const CLI::App* command : program.get_subcommands({})) {
    EXPECT_NE(command->get_description(), "") << command->get_name();
    const bool has = std::any_of(schemas.begin(), schemas.end(), [&](const ResultSchema& _schema) {
      return _schema.name.substr(0, _schema.name.find('-')) == command->get_name() ||
             _schema.name == command->get_name();
    });
    EXPECT_TRUE(has) << command->get_name();
  }
  EXPECT_EQ(schemaOf(schemas.front())["properties"]["schema"]["const"],
            "qmrkctl." + std::string(schemas.front().name) + "/1");
}

}  // namespace
