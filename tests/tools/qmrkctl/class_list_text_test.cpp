// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/class_list_text.h"

#include <gtest/gtest.h>

namespace {

using namespace qmrkctl;

using Names = std::vector<std::string>;

TEST(ClassListText, HasTheNamesThatTheLibraryReads) {
  EXPECT_EQ(classesIn("A;\nB;C"), (Names{"A", "B", "C"}));
  EXPECT_EQ(classesIn("A\nB;"), Names{"AB"});
  EXPECT_EQ(classesIn("A;\r\nB;\r\n"), (Names{"A", "B"}));
  EXPECT_EQ(classesIn("A; B;"), (Names{"A", " B"}));
  EXPECT_EQ(classesIn("\n\r\n;;"), Names());
  EXPECT_EQ(classesIn(""), Names());
}

TEST(ClassListText, AddsNamesInTheFormOfTheList) {
  EXPECT_EQ(withClasses("", {"A", "B"}), "A;\nB;\n");
  EXPECT_EQ(withClasses("\n", {"A"}), "A;\n");
  EXPECT_EQ(withClasses("A;\nB;\n", {"C"}), "A;\nB;\nC;\n");
  EXPECT_EQ(withClasses("A;\r\nB;\r\n", {"C"}), "A;\r\nB;\r\nC;\r\n");
  EXPECT_EQ(withClasses("A;B", {"C", "D"}), "A;B;C;D;");
  EXPECT_EQ(withClasses("A;\nB", {"C"}), "A;\nB;\nC;\n");
}

TEST(ClassListText, AddsNoNameTwice) {
  EXPECT_EQ(withClasses("A;B", {"B"}), "A;B");
  EXPECT_EQ(withClasses("A;", {"C", "C"}), "A;C;");
}

TEST(ClassListText, RemovesNamesWithTheirLines) {
  EXPECT_EQ(withoutClasses("A;\nB;\nC;\n", {"B"}), "A;\nC;\n");
  EXPECT_EQ(withoutClasses("A;\nB;\nC;\n", {"A"}), "B;\nC;\n");
  EXPECT_EQ(withoutClasses("A;\nB;\nC;\n", {"C"}), "A;\nB;\n");
  EXPECT_EQ(withoutClasses("A;B;C", {"C", "A"}), "B;");
  EXPECT_EQ(withoutClasses("A;\r\nB;\r\n", {"A"}), "B;\r\n");
}

TEST(ClassListText, LeavesWhatItDoesNotFind) {
  EXPECT_EQ(withoutClasses("\n\nA;B", {"C"}), "\n\nA;B");
  EXPECT_EQ(withoutClasses("Apple;A.B;", {"A"}), "Apple;A.B;");
}

TEST(ClassListText, RemovesRepeatedNamesAllOrOnce) {
  EXPECT_EQ(withoutClasses("A;B;A;", {"A"}), "B;");
  EXPECT_EQ(withoutClasses("A;B;A;", {"A"}, true), "B;A;");
}

TEST(ClassListText, IsALineEndWhenNothingIsLeft) {
  EXPECT_EQ(withoutClasses("A;", {"A"}), emptyClassList);
  EXPECT_EQ(withoutClasses("A;\nB;\n", {"A", "B"}), emptyClassList);
}

TEST(ClassListText, KnowsWhatCanBeAName) {
  EXPECT_TRUE(isClassName("Demo.*"));
  EXPECT_TRUE(isClassName("two words"));
  for (const char* name : {"", "A;", "A\n", " A", "A ", "\r"})
    EXPECT_FALSE(isClassName(name)) << name;
  EXPECT_FALSE(isClassName(std::string_view("A\0B", 3)));
}

TEST(ClassListText, TellsWhatIsMissing) {
  EXPECT_EQ(classesMissingIn({"A", "B", "A", "C"}, {"B"}), (Names{"A", "C"}));
  EXPECT_EQ(classesMissingIn({}, {"B"}), Names());
}

}  // namespace
