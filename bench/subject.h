// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace bench {

/// One way to write log lines: this library, a peer, or the hand-written baseline. Every line is
/// "[App.Module.info] 20261121 10:00:00.123 " and a message of 60 characters with an integer in it, as closely as the
/// library can be configured. The loops stand in the subject's own file, so that its macros and inline functions count
/// as they do for a user. Call open once per object and process.
class Subject {
 public:
  Subject() = default;
  virtual ~Subject() = default;
  Subject(const Subject&) = delete;
  Subject& operator=(const Subject&) = delete;

  /// One file, each message written at once. False if the library has no such mode; the same holds for the next two.
  virtual bool openPlain(const std::string& _file);
  /// The same with a size limit and numbered backups.
  virtual bool openRolling(const std::string& _file, int _bytes, int _files);
  /// Messages handed to a writer thread.
  virtual bool openQueued(const std::string& _file);

  /// Logs lines whose integer counts up from 1000000.
  virtual void logLines(int _count) = 0;
  /// The same statements for a log that is off; false if there is no such thing.
  virtual bool logOffLines(int _count);

  /// Creates _logs loggers once, then switches all of them off and _logs of them, by name or pattern, on again. False
  /// if the library has no such operation.
  virtual bool makeLogs(int _logs);
  virtual void updateLevels(int _logs);
};

/// The subject of that name; null when this build has none.
std::unique_ptr<Subject> makeSubject(const std::string& _name);
std::vector<std::string> subjectNames();

struct SubjectEntry {
  const char* name;
  std::unique_ptr<Subject> (*make)();
};

/// What this build can compare with: subjects/with_peers.cpp or subjects/without_peers.cpp.
std::vector<SubjectEntry> subjectEntries();
/// What Debian does not package: subjects/with_quill.cpp or subjects/without_quill.cpp.
std::vector<SubjectEntry> unpackagedEntries();

// Each is in the subject's own file.
std::unique_ptr<Subject> makeRaw();
std::unique_ptr<Subject> makeQmrk();
std::unique_ptr<Subject> makeQmrkFormatted();
std::unique_ptr<Subject> makeSpdlog();
std::unique_ptr<Subject> makeLog4cplus();
std::unique_ptr<Subject> makeLog4cxx();
std::unique_ptr<Subject> makeBoostLog();
std::unique_ptr<Subject> makeGlog();
std::unique_ptr<Subject> makeQuill();

}  // namespace bench
