// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "boost/logging/logging.hpp"
#include "tests/support/temporary_folder.h"

namespace {

constexpr unsigned int nobody = 65534;

// Root may start as many threads as it likes.
bool becomeAUserWithoutThreads() {
  const rlimit none{0, 0};
  return ::setresgid(nobody, nobody, nobody) == 0 && ::setresuid(nobody, nobody, nobody) == 0 &&
         ::setrlimit(RLIMIT_NPROC, &none) == 0;
}

TEST(NoThread, LetsCallersDeliverAndTheProcessEndNormally) {
  const testsupport::TemporaryFolder folder;
  ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
  const std::string path = folder.file("app.log");
  const pid_t child = ::fork();
  if (child == 0) {
    if (::geteuid() == 0 && !becomeAUserWithoutThreads()) std::_Exit(2);
    const boost::logging::ts_appender appender(boost::logging::write_to_file(path, false), 0);
    appender("App", "one\n");
    appender("App", "two\n");
    std::exit(0);
  }
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_EQ(testsupport::readFile(path), "one\ntwo\n");
}

}  // namespace
