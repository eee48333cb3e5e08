// SPDX-License-Identifier: MIT
#include <new>
#include <string>

#include "quillmark_logging.h"
#include "tests/config/scarce_memory.h"
#include "tests/logsetup/log_setup.h"

namespace {

/// Longer than what is read at once.
std::string listOf(const std::string& _class) {
  std::string list = _class + ".a;" + _class + ".b*;";
  while (list.size() < 150'000)
    list += _class + std::string(900, 'c') + std::to_string(list.size()) + ";\n";
  return list;
}

class UpdateMemory : public testsupport::LogSetup {
 protected:
  UpdateMemory() { sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\n"); }

  void writeList(const std::string& _list) const { sandbox_.writeInit("CA12", _list); }

  /// Whether the classes are on, as seen by logs that exist and by new ones.
  void expectOn(const std::string& _class, bool _isOn, int _nth) const {
    for (const std::string& name : {_class + ".a", _class + ".b.any", _class + ".a." + std::to_string(_nth)})
      EXPECT_EQ(isOn(name), _isOn) << name << " at allocation " << _nth;
    EXPECT_EQ(isOn(_class + ".bc." + std::to_string(_nth)), _isOn) << _nth;
  }
};

TEST_F(UpdateMemory, MayRunOutAtAnyMomentAndLeavesTheFormerClassesOn) {
  const std::string former = listOf("Former");
  const std::string later = listOf("Later");
  bool hasFailed = true;
  int failedUpdates = 0;
  for (int nth = 1; hasFailed; ++nth) {
    writeList(former);
    ASSERT_TRUE(Quillmark_logging::updateLogLevels("CA12"));
    writeList(later);
    bool isDone = false;
    {
      const testsupport::ScarceMemory memory(nth);
      try {
        isDone = Quillmark_logging::updateLogLevels("CA12");
      } catch (const std::bad_alloc&) {
        ++failedUpdates;
      }
      hasFailed = memory.hasFailed();
    }
    expectOn("Former", !isDone, nth);
    expectOn("Later", isDone, nth);
  }
  EXPECT_GT(failedUpdates, 20);
}

}  // namespace
