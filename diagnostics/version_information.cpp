// SPDX-License-Identifier: MIT
#include <iomanip>
#include <iostream>

#include "diagnostics/module_version_text.h"
#include "quillmark_logging.h"
#include "trace/trace_line.h"

namespace Quillmark_logging {
namespace {

constexpr char libraryModule[] = "qmrk_log.dll";
constexpr char logTestModule[] = "LogTest.exe";
constexpr int nameWidth = 20;

void printVersion(const char* _module, const ModuleVersion& _version) {
  std::cout << std::setfill(' ') << std::left << std::setw(nameWidth) << _module << _version.fileVersionString()
            << std::endl;
}

}  // namespace

std::string getQuillmarkLoggingVersion() {
  traceLine("==> Quillmark_logging::getQuillmarkLoggingVersion()\r\n");
  ModuleVersion module;
  if (!module.load(libraryModule)) {
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
  if (!module.load(logTestModule)) {
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
  const bool libraryLoaded = library.load(libraryModule);
  const bool logTestLoaded = logTest.load(logTestModule);
  if (!libraryLoaded || !logTestLoaded) {
    return;
  }
  std::cout << "\nVersion info:\n=============" << std::endl;
  printVersion(libraryModule, library);
  printVersion(logTestModule, logTest);
  std::cout << std::endl;
}

}  // namespace Quillmark_logging
