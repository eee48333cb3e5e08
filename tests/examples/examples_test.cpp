// SPDX-License-Identifier: MIT
// The example files are read as their comments say.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "config/cfg_data_manager.h"
#include "quillmark_logging_names.h"
#include "tests/support/temporary_folder.h"

namespace {

using testing::ElementsAre;
using testing::Pair;

CfgDataManager::CfgMap keysOf(const std::string& _name) {
  std::string text = testsupport::readFile(std::string(QMRK_EXAMPLES_DIR) + "/" + _name);
  CfgDataManager::CfgMap keys;
  CfgDataManager::getInstance(false)->cfgDataStrToMap(keys, text);
  return keys;
}

TEST(Examples, RedirectTheGenericCaToCa12) {
  EXPECT_THAT(keysOf("qmrk_logging_GE.cfg"), ElementsAre(Pair("CA_NR", "GE"), Pair("REDIRECT_CA_NR", "CA12")));
}

TEST(Examples, SetEveryKeyAndNothingElseForCa12) {
  EXPECT_THAT(
      keysOf("qmrk_logging_CA12.cfg"),
      ElementsAre(Pair("CA_NR", "CA12"), Pair("COMMON_LOG_FILE_FILTER", "Demo.App;Demo.Net;"),
                  Pair("COMMON_LOG_FILE_NAME", "common.log"),
                  Pair("COMMON_LOG_FILE_ROOT", Quillmark_logging::DEFAULT_COMMON_LOG_FILE_ROOT),
                  Pair("LOG_STATE", "TRUE"), Pair("MILLISECOND_RESOLUTION", "TRUE"), Pair("QMRK_TRACE", "FALSE"),
                  Pair("SPEC_LOG_FILE_LIMIT", Quillmark_logging::DEFAULT_SPEC_LOG_FILE_LIMIT),
                  Pair("SPEC_LOG_ROTATION", "TRUE"),
                  Pair("SPEC_NR_OF_LOG_FILES", Quillmark_logging::DEFAULT_SPEC_NR_OF_LOG_FILES),
                  Pair("TS_APPENDERS", "FALSE")));
}

TEST(Examples, ListClassesOnlyForCa12) {
  const std::string list = testsupport::readFile(std::string(QMRK_EXAMPLES_DIR) + "/qmrk_logging_CA12.init");
  EXPECT_EQ(list, "Demo.App;Demo.Net.error;\n");
}

}  // namespace
