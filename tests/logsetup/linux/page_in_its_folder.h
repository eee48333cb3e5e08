// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "platform/linux/status_folder.h"
#include "quillmark_logging.h"
#include "tests/logsetup/log_setup.h"
#include "tests/logsetup/own_status.h"
#include "tests/support/fault_plan.h"
#include "tests/support/linux/shared_memory_mount.h"

namespace testsupport {

/// Every test gets an empty /dev/shm.
class PageInItsFolder : public LogSetup {
 protected:
  PageInItsFolder() {
    mountSharedMemory("");
    sandbox_.writeInit("CA12", "Def;");
    sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=Def;\n");
  }

  static bool setUp() { return Quillmark_logging::initDefaultLogs("App", "CA12", false); }
  static std::string pathOf(int _process) { return platform::statusFolderPath() + "/" + std::to_string(_process); }
  static std::string own() { return pathOf(::getpid()); }
  static bool exists(const std::string& _path) { return ::access(_path.c_str(), F_OK) == 0; }
  static FaultPlan aFullDisk() { return {platform::Call::append, 1, platform::errorDiskFull, 1000}; }

  static mode_t modeOf(const std::string& _path) {
    struct stat status {};
    EXPECT_EQ(::lstat(_path.c_str(), &status), 0) << _path;
    return status.st_mode & 07777;
  }

  static void expectNoPage() {
    EXPECT_TRUE(setUp());
    EXPECT_TRUE(showsNothing());
    log("Def.a", "works all the same");
  }
};

}  // namespace testsupport
