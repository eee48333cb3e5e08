// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/doctor/process_check.h"

#include <gtest/gtest.h>

#include <string>

#include "quillmark_logging_version.h"

namespace {

using namespace qmrkctl;

constexpr char list[] = "Demo.App;\n";

class ProcessCheck : public testing::Test {
 protected:
  // A process and its configuration in which nothing is wrong.
  ProcessCheck() {
    process_.facts.pid = 123;
    process_.facts.user = "anna";
    process_.facts.hasLibrary = true;
    process_.application = "demo";
    ProcessStatus& page = process_.status.emplace();
    page.libraryVersion = QMRK_LOG_VERSION_STRING;
    page.caAsked = "CA12";
    page.cfgPath.text = "\\x\\qmrk_logging_CA12.cfg";
    page.initPath.text = "\\x\\qmrk_logging_CA12.init";
    page.setUp.result = status::Result::done;
    page.classes.generation = 1;
    page.classes.hash = status::hashOf(list);
    page.classes.updateResult = status::Result::done;
    page.listener.state = status::ListenerState::waiting;
    page.listener.threads = 1;
    page.listener.ca = "CA12";
    page.files.emplace_back();
    configuration_.cfg.path = page.cfgPath.text;
    configuration_.cfg.rights = {true, true, true};
    configuration_.cfg.facts.kind = toolsystem::PathKind::file;
    configuration_.init.path = page.initPath.text;
    configuration_.init.isRead = true;
    configuration_.init.text = list;
  }

  ProcessStatus& page() { return *process_.status; }

  // The codes of what is found, with their severities.
  std::string found() {
    findings_.clear();
    checkProcess(process_, {&configuration_, &ofListener_}, findings_);
    std::string text;
    for (const Finding& finding : findings_)
      text += std::string(severityName(finding.severity)) + " " + finding.code + ";";
    return text;
  }

  RunningProcess process_;
  Configuration configuration_;
  Configuration ofListener_;
  std::vector<Finding> findings_;
};

TEST_F(ProcessCheck, FindsNothingWhereNothingIsWrong) { EXPECT_EQ(found(), ""); }

TEST_F(ProcessCheck, FindsAFailedSetUpAndNothingThatFollowsFromIt) {
  page().setUp.result = status::Result::failed;
  page().setUp.error.text = "LOG_STATE is not on";
  page().listener.state = status::ListenerState::none;
  ASSERT_EQ(found(), "error Q607;");
  EXPECT_NE(findings_[0].text.find("demo (pid 123, user anna): the set-up failed at never: LOG_STATE is not on"),
            std::string::npos)
      << findings_[0].text;
}

TEST_F(ProcessCheck, FindsAListThatIsNotApplied) {
  configuration_.init.text = "Other;\n";
  ASSERT_EQ(found(), "error Q603;");
  EXPECT_NE(findings_[0].file.find("qmrk_logging_CA12.init"), std::string::npos);
  configuration_.init.isRead = false;
  EXPECT_EQ(found(), "") << "the file is not known";
}

TEST_F(ProcessCheck, FindsAnUpdateThatFailed) {
  page().classes.updateResult = status::Result::failed;
  page().classes.updateFailure = status::Failure::listUnreadable;
  ASSERT_EQ(found(), "error Q611;");
  EXPECT_NE(findings_[0].text.find("reason 8"), std::string::npos) << findings_[0].text;
}

TEST_F(ProcessCheck, FindsClassesThatTheApplicationSwitchedItself) {
  page().classes.ownChange = status::Call::enableAllLogs;
  EXPECT_EQ(found(), "note Q612;");
}

TEST_F(ProcessCheck, FindsAListenerThatIsNotThere) {
  page().listener.state = status::ListenerState::none;
  EXPECT_EQ(found(), "note Q601;");
  page().listener.state = status::ListenerState::failed;
  EXPECT_EQ(found(), "error Q602;");
  page().listener.state = status::ListenerState::ended;
  EXPECT_EQ(found(), "") << "another one listens";
  page().listener.threads = 0;
  EXPECT_EQ(found(), "error Q602;");
}

TEST_F(ProcessCheck, FindsAListenerThatFollowsAnotherCa) {
  page().listener.ca = "GE";
  ofListener_.init.path = "\\x\\qmrk_logging_CA7.init";
  EXPECT_EQ(found(), "error Q604;");
  ofListener_.init.path = configuration_.init.path;
  EXPECT_EQ(found(), "") << "GE redirects to the same class list";
}

TEST_F(ProcessCheck, FindsMessagesThatAreLost) {
  page().files[0].lost = 3;
  EXPECT_EQ(found(), "warning Q606;");
  page().files[0].isFailing = true;
  page().files[0].error = 112;
  ASSERT_EQ(found(), "error Q605;");
  EXPECT_NE(findings_[0].text.find("(error 112 at never); 3 messages lost so far"), std::string::npos)
      << findings_[0].text;
}

TEST_F(ProcessCheck, FindsAnotherVersionOfTheLibrary) {
  page().libraryVersion = "0.9";
  EXPECT_EQ(found(), "warning Q608;");
}

TEST_F(ProcessCheck, FindsAConfigurationThatHasChangedSinceTheStart) {
  page().cfgPath.text = "\\x\\qmrk_logging_GE.cfg";
  EXPECT_EQ(found(), "warning Q613;");
}

// "why" says it in a step of its own.
TEST_F(ProcessCheck, SaysTheSameOfAChangeSinceTheStartWhoeverAsks) {
  const auto change = [this] { return changedSinceSetUp(processText(process_), page(), configuration_); };
  EXPECT_FALSE(change());
  page().cfgPath.text = "\\x\\qmrk_logging_GE.cfg";
  ASSERT_EQ(found(), "warning Q613;");
  EXPECT_EQ(change().value().text, findings_[0].text);
  page().cfgPath.isCut = true;
  EXPECT_FALSE(change()) << "it is not known which file it was";
  page().cfgPath = {};
  configuration_.logs = {"\\x", "\\x\\common.log", "", ""};
  page().commonLogPath.text = "\\x\\former.log";
  ASSERT_EQ(found(), "warning Q613;");
  EXPECT_EQ(change().value().text, findings_[0].text);
}

TEST_F(ProcessCheck, NotesAFileThatWasWrittenSinceTheSetUp) {
  page().setUp.at = 1'000'000'000;
  configuration_.cfg.facts.writtenAt = 999'999'999;
  EXPECT_EQ(found(), "");
  configuration_.cfg.facts.writtenAt = 2'000'000'000;
  ASSERT_EQ(found(), "note Q621;");
  EXPECT_NE(findings_[0].text.find("read at 1970-01-01"), std::string::npos) << findings_[0].text;
  page().cfgPath.text = "\\x\\qmrk_logging_GE.cfg";
  EXPECT_EQ(found(), "warning Q613;") << "which says more";
}

TEST_F(ProcessCheck, SendsNoProcessIntoASetUpThatFails) {
  page().cfgPath.text = "\\x\\qmrk_logging_GE.cfg";
  configuration_.cfg.facts.kind = toolsystem::PathKind::missing;
  EXPECT_EQ(found(), "");
  EXPECT_TRUE(hasLostCfg(page(), configuration_));
}

TEST_F(ProcessCheck, FindsWhatAFileSaysOtherwiseSinceTheStart) {
  configuration_.cfg.settings = settingsOf("", "COMMON_LOG_FILE_FILTER=Demo;\n");
  configuration_.logs = {"\\x", "\\x\\common.log", "", ""};
  page().classes.filter.text = "Demo;";
  page().commonLogPath.text = "\\x\\common.log";
  EXPECT_EQ(found(), "");
  page().classes.filter.text = "Demo.App;";
  EXPECT_EQ(found(), "warning Q613;");
  page().commonLogPath.text = "\\x\\former.log";
  EXPECT_EQ(found(), "warning Q613;warning Q613;");
  page().setUp.result = status::Result::none;
  EXPECT_EQ(found(), "") << "it has read nothing yet";
}

// A page has valid UTF-8 only.
TEST_F(ProcessCheck, TakesAPathThatIsNoUtf8ForTheSame) {
  configuration_.cfg.path = "\\caf\xE9\\qmrk_logging_CA12.cfg";
  page().cfgPath.text = "\\caf\xEF\xBF\xBD\\qmrk_logging_CA12.cfg";
  EXPECT_EQ(found(), "");
}

TEST_F(ProcessCheck, FindsAStoppedProcessAndOneThatShowsNothing) {
  process_.facts.activity = toolsystem::Activity::stopped;
  ASSERT_EQ(found(), "warning Q609;");
  EXPECT_NE(findings_[0].fix.find("kill -CONT 123"), std::string::npos);
  process_.status.reset();
  EXPECT_EQ(found(), "warning Q609;note Q610;");
}

TEST_F(ProcessCheck, HasEachOfItsCodesInTheCatalogue) {
  for (const FindingKind& kind : processKinds())
    EXPECT_EQ(findingKind(kind.code)->meaning, kind.meaning);
}

}  // namespace
