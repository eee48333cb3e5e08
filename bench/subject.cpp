// SPDX-License-Identifier: MIT
#include "bench/subject.h"

namespace bench {
namespace {

std::vector<SubjectEntry> allEntries() {
  std::vector<SubjectEntry> entries = subjectEntries();
  const std::vector<SubjectEntry> unpackaged = unpackagedEntries();
  entries.insert(entries.end(), unpackaged.begin(), unpackaged.end());
  return entries;
}

}  // namespace

bool Subject::openPlain(const std::string& /*_file*/) { return false; }
bool Subject::openRolling(const std::string& /*_file*/, int /*_bytes*/, int /*_files*/) { return false; }
bool Subject::openQueued(const std::string& /*_file*/) { return false; }
bool Subject::logOffLines(int /*_count*/) { return false; }
bool Subject::makeLogs(int /*_logs*/) { return false; }
void Subject::updateLevels(int /*_logs*/) {}

std::unique_ptr<Subject> makeSubject(const std::string& _name) {
  for (const SubjectEntry& entry : allEntries()) {
    if (_name == entry.name) {
      return entry.make();
    }
  }
  return nullptr;
}

std::vector<std::string> subjectNames() {
  std::vector<std::string> names;
  for (const SubjectEntry& entry : allEntries()) {
    names.emplace_back(entry.name);
  }
  return names;
}

}  // namespace bench
