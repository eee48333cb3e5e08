// SPDX-License-Identifier: MIT
// What doctor and why say of running applications with real faults.
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "platform/native_path.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/companion_process.h"
#include "tests/support/private_events.h"
#include "tests/support/temporary_folder.h"
#include "tests/tools/qmrkctl_run.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testsupport::ChildResult;
using testsupport::CompanionProcess;

class QmrkctlDoctorProcesses : public testsupport::QmrkctlRun {
 protected:
  static void SetUpTestSuite() {
    testsupport::usePrivateProcesses();
    testsupport::usePrivateEvents();
  }

  QmrkctlDoctorProcesses() {
    configure("CA662");
    sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA662\n");
    writeCommonLog("");
  }

  void configure(const std::string& _ca) const {
    sandbox_.writeCfg(_ca,
                      "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_ROOT=Logs\\Common\n"
                      "COMMON_LOG_FILE_FILTER=Demo.App;Demo.Net;\n");
    sandbox_.writeInit(_ca, "Demo.App;\nDemo.Net.error;\n");
  }

  // An application that listens, once it does. The shell's words come before it.
  static CompanionProcess application(const std::string& _ca, const std::string& _limits = "") {
    CompanionProcess process(
        {"/bin/sh", "-c",
         _limits + "exec " + std::string(QMRK_LOGTEST) + " --ca " + _ca + " --classes 'Demo.App.info;' --listen 600"});
    EXPECT_THAT(process.readLine(), HasSubstr("Demo.App.info is on"));
    // Its listener is a thread that has only begun to start.
    while (jsonOf({"apps"})["result"]["apps"][0]["listens"] != "yes")
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return process;
  }

  static std::string doctor() { return qmrkctl({"--ca", "CA662", "doctor"}).output; }

  // Waits at most 30 s until what doctor says holds the text.
  static testing::AssertionResult says(const std::string& _text) {
    std::string output;
    for (int attempt = 0; attempt < 300; ++attempt) {
      output = doctor();
      if (output.find(_text) != std::string::npos) return testing::AssertionSuccess();
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    return testing::AssertionFailure() << output;
  }

  // The number in "(pid 123, ".
  static std::string pidIn(const std::string& _output) {
    const std::size_t begin = _output.find("(pid ") + 5;
    return _output.substr(begin, _output.find(',', begin) - begin);
  }
};

TEST_F(QmrkctlDoctorProcesses, AreHealthyWhenTheyListenAndApplyTheirList) {
  const CompanionProcess process = application("CA662");
  EXPECT_TRUE(says("healthy"));
  EXPECT_THAT(doctor(), Not(HasSubstr("Q60"))) << doctor();
}

TEST_F(QmrkctlDoctorProcesses, DoNotApplyAListThatWasChangedWithoutASignal) {
  const CompanionProcess process = application("CA662");
  sandbox_.writeInit("CA662", "Demo.Net;\n");
  const std::string output = doctor();
  EXPECT_THAT(output, HasSubstr("error Q603 " + platform::nativePath(sandbox_.initPath("CA662")) + " LogTest (pid "));
  EXPECT_THAT(output, HasSubstr("fix: qmrkctl signal"));
  const auto why = qmrkctl({"--pid", pidIn(output), "why", "Demo.Net.error"});
  EXPECT_THAT(why.output, HasSubstr("FAIL    applied list"));
  EXPECT_EQ(why.exitCode, 1);
}

TEST_F(QmrkctlDoctorProcesses, ListenForAnotherCa) {
  configure("CA663");
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA663\n");
  const CompanionProcess process = application("CA662");
  EXPECT_TRUE(says("error Q604 LogTest (pid "));
  EXPECT_THAT(doctor(), HasSubstr("asked for CA662, its listener follows GE"));
  EXPECT_THAT(qmrkctl({"--pid", pidIn(doctor()), "why", "Demo.App.info"}).output, HasSubstr("FAIL    listener"));
}

// Its set-up has applied the list of CA662; the event makes it apply that of GE, which is CA663's.
TEST_F(QmrkctlDoctorProcesses, AnswerForTheClassListOfTheirListener) {
  configure("CA663");
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA663\n");
  const CompanionProcess process = application("CA662");
  EXPECT_TRUE(says("error Q604 LogTest (pid "));
  const auto answersFor = [](const std::string& _ca) {
    return jsonOf({"--ca", _ca, "classes", "enable", "Demo.Net", "--wait", "60s"})["result"]["answers"];
  };
  EXPECT_EQ(answersFor("CA662").size(), 0U);
  const auto answers = answersFor("CA663");
  ASSERT_EQ(answers.size(), 1U);
  EXPECT_EQ(answers[0]["outcome"], "applied");
}

TEST_F(QmrkctlDoctorProcesses, GoOnWithWhatTheyReadAtTheirSetUp) {
  const CompanionProcess process = application("CA662");
  sandbox_.writeCfg("CA662",
                    "LOG_STATE=FALSE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_ROOT=Logs\\Common\n"
                    "COMMON_LOG_FILE_FILTER=Demo.Net;\n");
  const std::string why = qmrkctl({"why", "Demo.App.info"}).output;
  EXPECT_THAT(why, HasSubstr("ok      LOG_STATE     on since the set-up"));
  EXPECT_THAT(why, HasSubstr("ok      filter        \"Demo.App\" in that of the set-up"));
  EXPECT_THAT(qmrkctl({"why", "Demo.Other"}).output, HasSubstr("FAIL    filter        the filter of the set-up"));
}

TEST_F(QmrkctlDoctorProcesses, GoOnWithTheirKeysWhenTheFileHasOthers) {
  const CompanionProcess process = application("CA662");
  EXPECT_THAT(doctor(), Not(HasSubstr("Q621")));
  const std::string path = sandbox_.cfgPath("CA662");
  testsupport::writeFile(path, testsupport::readFile(path) + "MILLISECOND_RESOLUTION=TRUE\n");
  EXPECT_THAT(doctor(), HasSubstr("note Q621 " + platform::nativePath(path) + " LogTest (pid "));
}

TEST_F(QmrkctlDoctorProcesses, GoOnWithoutTheFileThatTheyReadAtTheirSetUp) {
  const CompanionProcess process = application("CA662");
  for (const char* const ca : {"CA662", "CA12"})
    testsupport::removeAll(sandbox_.cfgPath(ca));
  const auto why = qmrkctl({"why", "Demo.App.info"});
  EXPECT_EQ(why.exitCode, 0) << why.output;
  EXPECT_THAT(why.output, HasSubstr("ok      configuration " + platform::nativePath(sandbox_.cfgPath("CA662")) +
                                    " at the set-up; for the next start: REDIRECT_CA_NR=CA662 leads to "));
  EXPECT_THAT(why.output, HasSubstr("ok      file          " + platform::nativePath(commonLog()) + "\n"));
  EXPECT_THAT(why.output, HasSubstr("ok      filter        \"Demo.App\" in that of the set-up; its file cannot be"));
  EXPECT_THAT(qmrkctl({"why", "Demo.Other"}).output, HasSubstr("FAIL    filter        the filter of the set-up"));
  EXPECT_EQ(qmrkctl({"--ca", "CA662", "why", "Demo.App.info"}).exitCode, 1) << "one that starts now";
  EXPECT_EQ(qmrkctl({"doctor"}).exitCode, 1);
}

TEST_F(QmrkctlDoctorProcesses, HaveAnotherDefaultCaThanTheSession) {
  configure("CA663");
  CompanionProcess process(
      {"/bin/sh", "-c",
       "export DEFAULT_CA_NR=CA663; exec " + std::string(QMRK_LOGTEST) + " --classes 'Demo.App.info;' --listen 600"});
  EXPECT_THAT(process.readLine(), HasSubstr("Demo.App.info is on"));
  const std::string output = qmrkctl({"doctor"}).output;
  EXPECT_THAT(output, HasSubstr("note Q705 LogTest (pid "));
  EXPECT_THAT(output, HasSubstr("DEFAULT_CA_NR is \"CA663\" there, and not set in this session"));
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA663\n");
  EXPECT_THAT(qmrkctl({"doctor"}).output, Not(HasSubstr("Q705"))) << "both lead to the same files";
}

TEST_F(QmrkctlDoctorProcesses, HaveOtherFoldersThanTheSession) {
  const std::string here = platform::nativePath(sandbox_.appData());
  const testsupport::TemporaryFolder there;
  const CompanionProcess process = application("CA662", "export QMRK_APPDATA=" + there.path() + "; ");
  const std::string output = qmrkctl({"doctor"}).output;
  EXPECT_THAT(output, HasSubstr(" logs below " + there.path() + ", this session looks below " + here + "\n"));
  EXPECT_THAT(output, HasSubstr("fix: ask with --pid, as in \"qmrkctl --pid " + pidIn(output) + " tail\""));
}

TEST_F(QmrkctlDoctorProcesses, HaveAnotherClassListThanTheSession) {
  const testsupport::TemporaryFolder there;
  const CompanionProcess process = application("CA662", "cp -r \"$QMRK_COMMON_APPDATA\" " + there.path() +
                                                            "/x; export QMRK_COMMON_APPDATA=" + there.path() + "/x; ");
  const std::string output = qmrkctl({"doctor"}).output;
  EXPECT_THAT(output, HasSubstr("note Q707 LogTest (pid "));
  EXPECT_THAT(output, HasSubstr(" reads its class list below " + there.path() + "/x, this session looks below "));
  const std::string pid = pidIn(output);
  EXPECT_THAT(qmrkctl({"why", "Demo.Net.info"}).output,
              HasSubstr("\n  fix: qmrkctl --pid " + pid + " --ca CA662 classes enable \"Demo.Net.info\"\n"));
  const auto listed = [](const std::string& _folder) {
    return testsupport::runProgram("/bin/grep", {"-r", "Net.info", _folder});
  };
  EXPECT_EQ(qmrkctl({"--pid", pid, "--ca", "CA662", "classes", "enable", "Demo.Net.info", "--wait", "60s"}).exitCode,
            0);
  EXPECT_EQ(listed(there.path()).exitCode, 0);
  EXPECT_EQ(listed(platform::nativePath(sandbox_.initFolder())).exitCode, 1);
}

TEST_F(QmrkctlDoctorProcesses, HaveTheLibraryOrAreNamed) {
  CompanionProcess process({"/bin/sh", "-c", "echo $$; exec sleep 600"});
  const std::string pid = process.readLine();
  const auto told = qmrkctl({"--pid", pid, "doctor"});
  EXPECT_EQ(told.exitCode, 1);
  EXPECT_THAT(told.output, HasSubstr("error Q615 the process " + pid + " does not have the library loaded\n"));
}

TEST_F(QmrkctlDoctorProcesses, AreNotJudgedByAnEnvironmentThatIsUnknown) {
  CompanionProcess process({"/bin/sh", "-c", "echo $$; exec sleep 600"});
  const std::string pid = process.readLine();
  const testsupport::AsUnprivilegedUser user;
  const auto told = qmrkctl({"--pid", pid, "doctor"});
  EXPECT_EQ(told.exitCode, 4) << told.output;
  EXPECT_THAT(told.errors, HasSubstr("the environment of process " + pid + " cannot be read"));
}

TEST_F(QmrkctlDoctorProcesses, ShowNothingWhereTheFolderOfTheirEventsIsNotTheirs) {
  const std::string folder = "/dev/shm/qmrk-" + std::to_string(::geteuid());
  const CompanionProcess process = application("CA662");
  EXPECT_TRUE(says("healthy"));
  const auto doctorAt = [&folder](unsigned int _mode) {
    EXPECT_EQ(::chmod(folder.c_str(), _mode), 0);
    return qmrkctl({"doctor"}).output;
  };
  const std::string output = doctorAt(0755);
  EXPECT_THAT(output, HasSubstr(" does not use " + folder + ", which belongs to "));
  EXPECT_THAT(output, HasSubstr(", mode 0755\n"));
  EXPECT_THAT(output, Not(HasSubstr("Q610")));
  EXPECT_THAT(doctorAt(0700), Not(HasSubstr("Q6")));
}

TEST_F(QmrkctlDoctorProcesses, AreStopped) {
  const CompanionProcess process = application("CA662");
  sandbox_.writeInit("CA662", "Demo.Net;\n");
  const std::string pid = pidIn(doctor());
  ASSERT_EQ(::kill(std::stoi(pid), SIGSTOP), 0);
  EXPECT_TRUE(says("warning Q609 LogTest (pid " + pid));
  EXPECT_THAT(doctor(), HasSubstr("fix: kill -CONT " + pid));
  ASSERT_EQ(::kill(std::stoi(pid), SIGCONT), 0);
}

TEST_F(QmrkctlDoctorProcesses, GoOnWithALogThatLostItsRights) {
  const CompanionProcess process = application("CA662");
  ASSERT_TRUE(says("healthy"));
  // Not even root may open it again.
  const std::string log = platform::nativePath(commonLog());
  ASSERT_EQ(::mount(log.c_str(), log.c_str(), nullptr, MS_BIND, nullptr), 0);
  ASSERT_EQ(::mount(nullptr, log.c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr), 0);
  const ChildResult ofRunning = qmrkctl({"why", "Demo.App.info"});
  const ChildResult ofNext = qmrkctl({"--ca", "CA662", "why", "Demo.App.info"});
  ASSERT_EQ(::umount(log.c_str()), 0);
  EXPECT_THAT(ofRunning.output,
              HasSubstr("ok      file          " + log + ", open since the set-up; at the next one "));
  EXPECT_EQ(ofRunning.exitCode, 0) << ofRunning.output;
  EXPECT_THAT(ofNext.output, HasSubstr("FAIL    file "));
}

TEST_F(QmrkctlDoctorProcesses, LoseMessages) {
  // The log is as large as a file of the application may be; its status page is not larger.
  writeCommonLog(std::string(65536, 'x'));
  const CompanionProcess process = application("CA662", "ulimit -f 128; ");
  EXPECT_TRUE(says("error Q605 " + platform::nativePath(commonLog())));
  const auto why = qmrkctl({"--pid", pidIn(doctor()), "why", "Demo.App.info"});
  EXPECT_THAT(why.output, HasSubstr("FAIL    writing"));
}

}  // namespace
