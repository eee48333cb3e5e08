// SPDX-License-Identifier: MIT
#include "tools/system/replaced_file.h"
#include "tools/system/appended_line.h"

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <string>

#include "tests/support/linux/forked_child.h"
#include "tests/support/linux/traced_child.h"
#include "tests/support/temporary_folder.h"
#include "tools/system/appended_line.h"
#include "tools/system/file_lock.h"

namespace {

using testsupport::CallFate;
using testsupport::readFile;
using testsupport::TemporaryFolder;
using testsupport::writeFile;
using toolsystem::replaceFile;

// Longer than one page, so that a torn text would be seen.
const std::string formerText = std::string(9'000, 'a') + ";\n";
const std::string newText = std::string(20'000, 'b') + ";\n";

TEST(ReplacedFile, IsTheFormerOrTheNewOneWhereverItsWriterIsKilled) {
  const TemporaryFolder folder;
  const std::string path = folder.path() + "/list";
  bool wasKilled = true;
  bool wasSeenOld = false;
  bool wasSeenNew = false;
  int kills = 0;
  for (int call = 0; wasKilled; ++call) {
    for (const auto kind : {CallFate::Kind::killsBefore, CallFate::Kind::killsAfter}) {
      writeFile(path, formerText);
      int number = 0;
      const int status = testsupport::runTraced(
          [&path] {
            testsupport::markCalls();
            const bool isDone = !replaceFile(path, newText);
            testsupport::markCalls();
            return isDone ? 0 : 1;
          },
          [&](long) {
            CallFate fate;
            if (number++ == call) fate.kind = kind;
            return fate;
          });
      wasKilled = WIFSIGNALED(status);
      if (wasKilled) ++kills;
      const std::string text = readFile(path);
      wasSeenOld = wasSeenOld || text == formerText;
      wasSeenNew = wasSeenNew || text == newText;
      ASSERT_TRUE(text == formerText || text == newText) << "call " << call << ": " << text.size() << " bytes";
    }
  }
  EXPECT_TRUE(wasSeenOld);
  EXPECT_TRUE(wasSeenNew);
  EXPECT_GT(kills, 10);
  EXPECT_FALSE(replaceFile(path, newText));
  EXPECT_EQ(testsupport::namesIn(folder.path()), std::vector<std::string>{"list"});
}

// Reads the file again and again until it is killed, and ends with 1 when it finds another text than one of the two.
pid_t startReader(const std::string& _path) {
  const pid_t child = ::fork();
  if (child != 0) return child;
  for (;;) {
    const int file = ::open(_path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file == -1) ::_exit(2);
    std::array<char, 64> bytes{};
    const ssize_t size = ::read(file, bytes.data(), bytes.size());
    ::close(file);
    const std::string text(bytes.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
    if (text != "Demo.A;\n" && text != "Demo.A;\nDemo.B;\n") ::_exit(1);
  }
}

TEST(ReplacedFile, IsNeverTornOrEmptyUnderReaders) {
  // In memory: on a disk each round would wait until its bytes are there, which no reader sees.
  const TemporaryFolder folder("/dev/shm");
  const std::string path = folder.path() + "/list";
  writeFile(path, "Demo.A;\n");
  const std::array<pid_t, 2> readers = {startReader(path), startReader(path)};
  for (int round = 0; round < 10'000; ++round) {
    ASSERT_FALSE(replaceFile(path, round % 2 == 0 ? "Demo.A;\nDemo.B;\n" : "Demo.A;\n"));
  }
  for (const pid_t reader : readers) {
    ::kill(reader, SIGKILL);
    int status = 0;
    ::waitpid(reader, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << "a reader ended with " << WEXITSTATUS(status);
  }
}

// Engineers of one group, by users that every Debian has: the group "daemon" has the user "daemon" and not the user
// "bin".
constexpr unsigned int daemonId = 1;
constexpr unsigned int binId = 2;

// Whether something succeeds in a process of that user, who has the group "daemon" besides his own.
template <class Act>
bool isDoneBy(unsigned int _user, Act _act) {
  return testsupport::inForkedChild([&] {
           const gid_t group = daemonId;
           if (::setgroups(1, &group) != 0 || ::setresgid(_user, _user, _user) != 0 ||
               ::setresuid(_user, _user, _user) != 0)
             return 2;
           return _act() ? 0 : 1;
         }) == 0;
}

bool isReplacedBy(unsigned int _user, const std::string& _path) {
  return isDoneBy(_user, [&] { return !replaceFile(_path, "new"); });
}

// In a folder of the group, to which new files in it belong from the start or not.
constexpr mode_t givesItsGroup = 02775;
constexpr mode_t keepsItsGroup = 0775;

struct GroupFile {
  explicit GroupFile(unsigned int _owner, mode_t _folderMode = givesItsGroup) {
    writeFile(path, "old");
    EXPECT_EQ(::chown(folder.path().c_str(), 0, daemonId), 0) << "these tests need the rights of root";
    EXPECT_EQ(::chmod(folder.path().c_str(), _folderMode), 0);
    EXPECT_EQ(::chown(path.c_str(), _owner, daemonId), 0);
    EXPECT_EQ(::chmod(path.c_str(), 0664), 0);
  }

  const TemporaryFolder folder;
  const std::string path = folder.path() + "/list";
};

TEST(ReplacedFile, StaysWritableForItsGroup) {
  for (const mode_t folderMode : {givesItsGroup, keepsItsGroup}) {
    const GroupFile file(0, folderMode);
    EXPECT_TRUE(isReplacedBy(binId, file.path));
    EXPECT_EQ(readFile(file.path), "new");
    struct stat status {};
    ASSERT_EQ(::stat(file.path.c_str(), &status), 0);
    EXPECT_EQ(status.st_gid, daemonId);
    EXPECT_EQ(status.st_mode & 07777U, 0664U);
  }
}

TEST(ReplacedFile, ChangesItsOwnerOnlyWithinItsGroup) {
  const GroupFile ofMember(daemonId);
  EXPECT_TRUE(isReplacedBy(binId, ofMember.path));
  const GroupFile ofStranger(binId);
  EXPECT_FALSE(isReplacedBy(daemonId, ofStranger.path));
  EXPECT_EQ(readFile(ofStranger.path), "old");
  const GroupFile notForTheGroup(0);
  ASSERT_EQ(::chmod(notForTheGroup.path.c_str(), 0644), 0);
  EXPECT_FALSE(isReplacedBy(binId, notForTheGroup.path));
}

bool isLockedBy(unsigned int _user, const std::string& _lock) {
  return isDoneBy(_user, [&] { return toolsystem::FileLock(_lock, std::chrono::milliseconds(0)).isHeld(); });
}

TEST(FileLock, IsForAllWhoMayWriteInTheFolder) {
  for (const mode_t folderMode : {givesItsGroup, keepsItsGroup}) {
    const GroupFile file(0, folderMode);
    const std::string lock = file.folder.path() + "/lock";
    EXPECT_TRUE(isLockedBy(binId, lock)) << folderMode;
    EXPECT_TRUE(isLockedBy(daemonId, lock)) << folderMode;
  }
}

// The owner, group and mode of a file.
std::array<unsigned int, 3> rightsOf(const std::string& _path) {
  struct stat status {};
  EXPECT_EQ(::stat(_path.c_str(), &status), 0);
  return {status.st_uid, status.st_gid, status.st_mode & 07777U};
}

using Rights = std::array<unsigned int, 3>;

TEST(ReplacedFile, IsForAllWhoMayWriteInTheFolderWhenItIsNew) {
  for (const mode_t folderMode : {givesItsGroup, keepsItsGroup}) {
    const GroupFile file(0, folderMode);
    const std::string lease = file.folder.path() + "/lease";
    EXPECT_TRUE(isReplacedBy(binId, lease));
    EXPECT_EQ(rightsOf(lease), (Rights{binId, daemonId, 0664}));
  }
}

TEST(ReplacedFile, BelongsToTheOwnerOfTheFolderWhenRootMakesIt) {
  const GroupFile file(0);
  ASSERT_EQ(::chown(file.folder.path().c_str(), binId, binId), 0);
  ASSERT_EQ(::chmod(file.folder.path().c_str(), 0755), 0);
  const std::string lease = file.folder.path() + "/lease";
  const std::string history = file.folder.path() + "/history";
  EXPECT_FALSE(replaceFile(lease, "x"));
  EXPECT_FALSE(toolsystem::appendRecord(history, "x\n"));
  EXPECT_EQ(rightsOf(lease), (Rights{binId, binId, 0644}));
  EXPECT_EQ(rightsOf(history), (Rights{binId, binId, 0644}));
}

TEST(AppendedRecord, IsWrittenByAllWhoMayWriteInTheFolder) {
  const GroupFile file(0);
  const std::string history = file.folder.path() + "/history";
  EXPECT_TRUE(isDoneBy(binId, [&] { return !toolsystem::appendRecord(history, "one\n"); }));
  EXPECT_TRUE(isDoneBy(daemonId, [&] { return !toolsystem::appendRecord(history, "two\n"); }));
  EXPECT_EQ(readFile(history), "one\ntwo\n");
  EXPECT_EQ(rightsOf(history), (Rights{binId, daemonId, 0664}));
}

// As after "chown USER FILE".
TEST(ReplacedFile, StaysWithItsOwnerWhoIsNotInItsGroup) {
  const GroupFile file(binId);
  ASSERT_EQ(::chown(file.path.c_str(), binId, 0), 0);
  ASSERT_EQ(::chmod(file.path.c_str(), 0664), 0);
  EXPECT_TRUE(isReplacedBy(binId, file.path));
  EXPECT_EQ(readFile(file.path), "new");
  EXPECT_EQ(rightsOf(file.path)[0], binId);
  EXPECT_EQ(rightsOf(file.path)[2], 0644U) << "the other group must not get the rights of the former one";
}

TEST(ReplacedFile, DoesNotLeadRootToAFileOfSomebodyElse) {
  const GroupFile file(0);
  const GroupFile secret(0);
  const std::string link = file.folder.path() + "/link";
  ASSERT_EQ(::symlink(secret.path.c_str(), link.c_str()), 0);
  EXPECT_FALSE(replaceFile(link, "by root")) << "a link of root is followed";
  ASSERT_EQ(::lchown(link.c_str(), binId, binId), 0);
  EXPECT_TRUE(replaceFile(link, "by a link of another user"));
  EXPECT_EQ(readFile(secret.path), "by root");
  ASSERT_EQ(::chown(secret.path.c_str(), binId, daemonId), 0);
  EXPECT_FALSE(replaceFile(link, "his own"));
  EXPECT_EQ(readFile(secret.path), "his own");
}

TEST(ReplacedFile, LeavesNothingBehindWhenItFails) {
  const TemporaryFolder folder;
  const std::string path = folder.path() + "/list";
  ASSERT_EQ(::mkdir(path.c_str(), 0700), 0);
  EXPECT_TRUE(replaceFile(path, "x"));
  EXPECT_EQ(testsupport::namesIn(folder.path()), std::vector<std::string>{"list"});
  const auto missing = replaceFile(folder.path() + "/no/list", "x");
  ASSERT_TRUE(missing);
  EXPECT_TRUE(missing->isMissing);
}

TEST(ReplacedFile, GivesANewFileTheModeOfTheUmask) {
  const TemporaryFolder folder;
  ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
  const std::string path = folder.path() + "/list";
  const mode_t former = ::umask(027);
  EXPECT_FALSE(replaceFile(path, "x"));
  ::umask(former);
  struct stat status {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0640U);
}

TEST(ReplacedFile, KeepsAttributesAndAccessControlLists) {
  const TemporaryFolder folder;
  const std::string path = folder.path() + "/list";
  writeFile(path, formerText);
  ASSERT_EQ(::setxattr(path.c_str(), "user.note", "kept", 4, 0), 0);
  // Version 2: the owner, user 12345, the group, the mask, others, each with kind, rights and id.
  const std::string rights(
      "\2\0\0\0"
      "\1\0\6\0\xff\xff\xff\xff"
      "\2\0\4\0\x39\x30\0\0"
      "\4\0\4\0\xff\xff\xff\xff"
      "\x10\0\4\0\xff\xff\xff\xff"
      "\x20\0\0\0\xff\xff\xff\xff",
      44);
  constexpr char listName[] = "system.posix_acl_access";
  ASSERT_EQ(::setxattr(path.c_str(), listName, rights.data(), rights.size(), 0), 0);
  EXPECT_FALSE(replaceFile(path, newText));
  EXPECT_EQ(readFile(path), newText);
  std::array<char, 100> value{};
  ASSERT_EQ(::getxattr(path.c_str(), "user.note", value.data(), value.size()), 4);
  EXPECT_EQ(std::string(value.data(), 4), "kept");
  ASSERT_EQ(::getxattr(path.c_str(), listName, value.data(), value.size()), 44);
  EXPECT_EQ(std::string(value.data(), 44), rights);
}

}  // namespace
