// SPDX-License-Identifier: MIT
#include <iomanip>
#include <iostream>

#include "diagnostics/module_version_text.h"
#include "quillmark_logging.h"
#include "trace/trace_line.h"

namespace Quillmark_logging {
namespace {

constexpr char LIBRARY_MODULE[] = "qmrk_log.dll";
constexpr char LOG_TEST_MODULE[] = "LogTest.exe";
constexpr int NAME_WIDTH = 20;

void printVersion(const char* _module, const ModuleVersion& _version) {
  std::cout << std::setfill(' ') << std::left << std::setw(NAME_WIDTH) << _module << _version.fileVersionString()
            << std::endl;
}

}  // namespace

std::string getQuillmarkLoggingVersion() {
  traceLine("==> Quillmark_logging::getQuillmarkLoggingVersion()\r\n");
  ModuleVersion module;
  if (!module.load(LIBRARY_MODULE)) {
    traceLine("<!= Quillmark_logging::getQuillmarkLoggingVersion() Unable to fetch quillmark logging version.\r\n");
    return "N/A";
  }
  std::string version = module.fileVersionString();
  traceLine("<== Quillmark_logging::getQuillmarkLoggingVersion() Fetched version:%s\r\n", version.c_str());
  return version;
}

std::string getLogTestVersion() {
  traceLine("==> Quillmark_logging::getLogTestVersion()\r\n");
  ModuleVersion module;
  if (!module.load(LOG_TEST_MODULE)) {
    traceLine("<!= Quillmark_logging::getLogTestVersion() Unable to fetch LogTest version.\r\n");
    return "N/A";
  }
  std::string version = module.fileVersionString();
  traceLine("<== Quillmark_logging::getLogTestVersion() Fetched version:%s\r\n", version.c_str());
  return version;
}

void printVersionInfo() {
  ModuleVersion library;
  ModuleVersion logTest;
  const bool libraryLoaded = library.load(LIBRARY_MODULE);
  const bool logTestLoaded = logTest.load(LOG_TEST_MODULE);
  if (!libraryLoaded || !logTestLoaded) {
    return;
  }
  std::cout << "\nVersion info:\n=============" << std::endl;
  printVersion(LIBRARY_MODULE, library);
  printVersion(LOG_TEST_MODULE, logTest);
  std::cout << std::endl;
}

}  // namespace Quillmark_logging
