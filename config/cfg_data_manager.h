// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <map>
#include <string>

#include "platform/text_pieces.h"

/// The store of the configuration: finds the files of a customer adaptation (CA), looks keys up in them, keeps the
/// list of enabled log classes and records what went wrong with them. Nothing is cached: every lookup reads its file
/// again. No operation throws on failure; the result reports it, and output arguments are untouched unless said
/// otherwise. There is one object per process and no lock: any thread may call, only the first getInstance must not be
/// concurrent (it happens while the library is loaded).
class CfgDataManager {
 public:
  using CfgMap = std::map<std::string, std::string>;

  /// The one object, created at the first call and never deleted.
  /// @param _trace whether the operations of the class trace from now on.
  static CfgDataManager* getInstance(bool _trace);

  CfgDataManager(const CfgDataManager&) = delete;
  CfgDataManager& operator=(const CfgDataManager&) = delete;

  // ---- Values (cfg_value.cpp) ----

  /// Cuts blanks (only 0x20) off the end.
  /// @return whether there were any.
  bool removeTrailingSpaces(std::string& _s);

  /// Adds the pairs of a configuration text to a map.
  /// @param _str each of its tabs becomes eight blanks.
  /// @return whether the map then holds anything.
  bool cfgDataStrToMap(CfgMap& _cMap, std::string& _str);

  /// Looks a key up, case-sensitively, in a map or in a file (full path).
  /// @return whether it was found.
  bool getCfgValue(const CfgMap& _cMap, const std::string& _key, std::string& _value);
  bool getCfgValue(const std::string& _cfgFile, const std::string& _key, std::string& _value);

  /// Whether the value of a key in the CA's .cfg file is "TRUE" in any letter case.
  bool getCfgFlag(const std::string& _key, const std::string& _ca);

  /// Each byte through the C library's toupper.
  std::string toUpperCopy(const std::string& _s);
  void toUpper(std::string& _s);

  // ---- Files (cfg_file_path.cpp) ----

  /// The path of a CA's .cfg or .init file, which need not exist. Redirects "GE" once, to the CA that the generic .cfg
  /// file names; without a redirection, a request for its .init file yields its .cfg file.
  /// @param _path receives the path; holds a part of it on some failures.
  /// @param _ca in any letter case.
  /// @param _cfg true: the .cfg file, false: the .init file.
  /// @return false when the system does not know the base folder or the CA is empty.
  bool getQmrkCfgFilePath(std::string& _path, const std::string& _ca, bool _cfg);

  // ---- Folders (log_root.cpp) ----

  /// The log root of the CA: the user's application-data folder, a backslash, COMMON_LOG_FILE_ROOT or its default.
  /// @param _path holds the application-data folder when only the .cfg path failed.
  bool getLogRootPath(std::string& _path, const std::string& _ca);

  // ---- Enabled log classes (class_store.cpp) and their error records (class_store_error_record.cpp) ----

  /// Appends the whole text of the CA's .init file to _logClasses. A failure leaves an error record where it can.
  bool getEnabledLogClasses(const std::string& _ca, std::string& _logClasses);
  /// The same for a long list; a part of the text may have been appended on failure.
  bool getEnabledLogClasses(const std::string& _ca, platform::TextPieces& _logClasses);

  /// Replaces the text of the CA's .init file. An empty list is refused. A file that cannot be opened or written
  /// leaves an error record where it can.
  bool setEnabledLogClasses(const std::string& _ca, const std::string& _logClasses);

  /// Appends one line, stamped with the local time, to qmrk.info in the log root of the CA. The folder must exist.
  /// @param _caller may be empty.
  /// @return whether the record was written.
  bool writeErrorRecord(const std::string& _ca, const std::string& _text, const std::string& _caller);

 private:
  CfgDataManager() = default;
  ~CfgDataManager() = default;

  /// Looks a key up in a text by way of a map, which the trace shows.
  bool findTraced(std::string& _text, const std::string& _key, std::string& _value);

  /// Turns the path of a generic file into that of the CA to which the generic .cfg file redirects.
  void redirectGeneric(std::string& _path, bool _cfg);

  static bool tracing() { return trace_.load(std::memory_order_relaxed); }

  // Written by every getInstance, read by all threads.
  static constinit std::atomic<bool> trace_;
};
