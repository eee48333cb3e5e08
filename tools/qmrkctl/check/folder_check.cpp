// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <set>
#include <system_error>

#include "platform/native_path.h"
#include "quillmark_logging_names.h"
#include "tools/logs/log_files.h"
#include "tools/qmrkctl/check/checks.h"
#include "tools/qmrkctl/check/uncreated_folder.h"
#include "tools/qmrkctl/check/write_obstacle.h"

namespace qmrkctl {
namespace {

using toolsystem::PathFacts;
using toolsystem::PathKind;

// A block of a file system.
constexpr std::uint64_t hardlyAnySpace = 4096;
constexpr std::uint64_t littleSpace = std::uint64_t{64} * 1024 * 1024;

constexpr FindingKind folderTable[] = {
    {"Q501", Severity::error, "The log folder cannot be created", "initDefaultLogs fails and connects nothing",
     "let the user write in the folder above it, or create it for the user", "the home of the user belongs to root"},
    {"Q502", Severity::error, "A log cannot be written", "the next set-up says true, and every line is lost",
     "give the file and its folder to the user who logs", "the application ran as root before"},
    {"Q503", Severity::warning, "The log folder belongs to another user",
     "that user can remove and replace the logs, and links in the folder are not followed",
     "give the folder to the user who logs (chown)", ""},
    {"Q504", Severity::error, "The log is a link in a folder that others can change",
     "the link is not followed: the set-up says true, and every line is lost",
     "take the right to write in the folder from group and others (chmod go-w), or replace the link", ""},
    {"Q505", Severity::error, "Something else stands in place of a log or of its folder",
     "the log cannot be opened: every line is lost", "remove what stands there", "a folder, a pipe, a dangling link"},
    {"Q506", Severity::error, "The disk of the logs is full",
     "lines are lost until there is space; a line in the log then says how many", "make space, or move the logs", ""},
    {"Q507", Severity::warning, "The disk of the logs is almost full", "lines are lost once it is full",
     "make space, or move the logs", ""},
    {"Q508", Severity::warning, "Error records cannot be written", "problems with the configuration leave no record",
     "give qmrk.info and its folder to the user who logs", ""},
    {"Q509", Severity::error, "The folder of the application logs cannot be used",
     "createApplicationSpecificLogFile says true, and the lines of the applications' own logs are lost",
     "give the folder to the user who logs", ""},
    {"Q510", Severity::warning, "Everybody may change a file of the configuration",
     "any user can switch logging off or fill the disk for all others",
     "take the right to write from others (chmod o-w)", "mode 0666"},
    {"Q511", Severity::warning, "A folder stands in place of a backup of a log",
     "the rotation renames it as if it were one, and fails at the last number: the application loses every further "
     "line",
     "remove the folder, then restart the applications that have lost lines", "a folder shop_log.txt.2"},
};

struct LogFile {
  std::string path;
  std::string name;    // as findings call it
  std::string effect;  // of its loss; empty: that of the code
};

// The logs of a configuration for one user, and what is found about them.
class FolderCheck {
 public:
  FolderCheck(const Viewpoint& _viewpoint, Findings& _findings) : viewpoint_(_viewpoint), findings_(_findings) {}

  void checkLogs(const LogPlaces& _places) {
    const std::string existing = existingPart(viewpoint_, _places.folder);
    checkSpace(existing);
    checkFiles(_places, existing);
    // Whether it exists does not matter to a user who cannot reach it.
    if ((existing == _places.folder || factsOf(viewpoint_, _places.folder).isHidden) &&
        !rightsOn(viewpoint_, _places.folder).exists) {
      addUnwritable("Q501", _places.folder, " may not reach it", _places.folder);
      return;
    }
    if (existing != _places.folder) {
      checkCreation(_places.folder, existing);
      return;
    }
    if (!isFolder(_places.folder, "the log cannot be opened: the set-up says true and every line is lost")) return;
    checkOwner(_places.folder);
    if (!_places.commonLog.empty()) checkCommonLog({_places.commonLog, "the log", ""});
    checkRecords(_places.errorRecords);
    checkApplicationFolder(_places.applicationFolder);
  }

  // Who may write in a folder may put another one in place of what is in it.
  // @param _base the folder of the system below which the file is.
  void checkForeignRights(const ConfigurationFile& _file, const std::string& _base) {
    for (std::string path = _file.path; path.size() > _base.size(); path = parentOf(path)) {
      const PathFacts facts = factsOf(viewpoint_, path);
      const bool isOfInterest = facts.kind == PathKind::file || facts.kind == PathKind::folder;
      if (isOfInterest && facts.everybodyMayWrite && openPaths_.insert(path).second)
        add("Q510", path, "everybody may write here");
    }
  }

 private:
  void add(std::string_view _code, const std::string& _path, const std::string& _text, const std::string& _fix = "",
           const std::string& _effect = "") {
    findings_.push_back(findingOf(_code, placeOf(_path), _text, _fix, _effect));
  }

  // What the user may not write, or create something in.
  void addUnwritable(std::string_view _code, const std::string& _path, const std::string& _text,
                     const std::string& _unwritable, const std::string& _effect = "") {
    const WriteObstacle obstacle = writeObstacle(viewpoint_, _unwritable);
    add(_code, _path, user() + _text + obstacle.cause, obstacle.fix, _effect);
  }

  std::string user() const { return "the user " + viewpoint_.account.name; }

  void checkSpace(const std::string& _folder) {
    const auto bytes = toolsystem::freeBytes(reachedPath(viewpoint_, _folder));
    if (!bytes || *bytes >= littleSpace) return;
    add(*bytes < hardlyAnySpace ? "Q506" : "Q507", _folder, std::to_string(*bytes) + " bytes are free");
  }

  // How many files and folders are still to be created for the log.
  std::uint64_t newFiles(const LogPlaces& _places) const {
    std::uint64_t number = 0;
    std::string path = _places.commonLog.empty() ? _places.folder : _places.commonLog;
    for (; !path.empty() && factsOf(viewpoint_, path).kind == PathKind::missing; path = parentOf(path))
      ++number;
    return number;
  }

  // A disk with space on which no file can be created.
  void checkFiles(const LogPlaces& _places, const std::string& _existing) {
    const auto free = toolsystem::freeFiles(reachedPath(viewpoint_, _existing));
    const std::uint64_t needed = newFiles(_places);
    if (!free || *free >= std::max<std::uint64_t>(needed, 1)) return;
    add(needed > 0 ? "Q506" : "Q507", _existing, "hardly any file can be created on the disk: its inodes are used up",
        "remove files that nobody needs, or move the logs",
        needed > 0 ? "the log cannot be created: every line is lost" : "a log that is rotated cannot be created again");
  }

  bool isFolder(const std::string& _path, const std::string& _effect) {
    if (factsOf(viewpoint_, _path).kind == PathKind::folder) return true;
    add("Q505", _path, "there is something else in place of the folder", "remove what stands there", _effect);
    return false;
  }

  void checkCreation(const std::string& _folder, const std::string& _existing) {
    if (!isFolder(_existing, "the folder cannot be created: the set-up fails")) return;
    if (!mayWrite(viewpoint_, _existing)) {
      addUnwritable("Q501", _folder, " may not create it in " + platform::nativePath(_existing), _existing);
    } else if (const std::string left = uncreatedFolder(_folder, _existing); !left.empty()) {
      add("Q501", _folder,
          "a set-up does not create " + platform::nativePath(left) + ": its name ends with \":\", as that of a drive",
          "write a path without drive, such as COMMON_LOG_FILE_ROOT=Logs\\Common");
    }
  }

  void checkOwner(const std::string& _folder) {
    const PathFacts facts = factsOf(viewpoint_, _folder);
    if (facts.owner == viewpoint_.account.uid || facts.owner == 0) return;
    add("Q503", _folder, "the folder belongs to " + facts.ownerName + ", not to " + viewpoint_.account.name);
  }

  // A link leads others wherever its maker wants, so the library follows it only where its maker can be trusted.
  bool isLinkFollowed(const std::string& _folder) const {
    const PathFacts facts = factsOf(viewpoint_, _folder);
    return (facts.owner == viewpoint_.account.uid || facts.owner == 0) && !facts.othersMayWrite;
  }

  // Whether the target of a dangling link can be created.
  bool hasFolderOfTarget(const std::string& _link) const {
    std::error_code error;
    const std::filesystem::path link(reachedPath(viewpoint_, _link));
    const std::filesystem::path target = std::filesystem::read_symlink(link, error);
    return !error && std::filesystem::is_directory((link.parent_path() / target).parent_path(), error);
  }

  // What is there, unless it is a file.
  void checkKind(const LogFile& _log, const PathFacts& _facts) {
    if (_facts.isLink && !isLinkFollowed(parentOf(_log.path))) {
      add("Q504", _log.path, _log.name + " is a link, and its folder is not " + viewpoint_.account.name + "'s alone",
          "", _log.effect);
    } else if (_facts.kind == PathKind::danglingLink) {
      if (!hasFolderOfTarget(_log.path))
        add("Q505", _log.path, _log.name + " is a link that leads nowhere", "", _log.effect);
    } else if (_facts.kind != PathKind::file) {
      add("Q505", _log.path, "there is something else in place of " + _log.name, "", _log.effect);
    }
  }

  void checkCommonLog(const LogFile& _log) {
    const PathFacts facts = factsOf(viewpoint_, _log.path);
    const std::string folder = existingPart(viewpoint_, parentOf(_log.path));
    if (facts.kind != PathKind::missing) {
      checkLogs({_log});
    } else if (factsOf(viewpoint_, folder).kind != PathKind::folder) {
      add("Q505", folder, "there is something else in place of a folder of the log");
    } else if (!mayWrite(viewpoint_, folder)) {
      addUnwritable("Q502", _log.path, " may not create the log in its folder", folder);
    }
  }

  void checkLogs(const std::vector<LogFile>& _logs) {
    std::vector<std::string> paths;
    paths.reserve(_logs.size());
    for (const LogFile& log : _logs)
      paths.push_back(log.path);
    const std::vector<toolsystem::PathRights> rights = rightsOn(viewpoint_, paths);
    for (std::size_t i = 0; i < _logs.size(); ++i) {
      const PathFacts facts = factsOf(viewpoint_, _logs[i].path);
      if (facts.kind == PathKind::missing) continue;
      const std::size_t before = findings_.size();
      checkKind(_logs[i], facts);
      if (findings_.size() > before || facts.kind != PathKind::file || rights[i].isWritable) continue;
      addUnwritable("Q502", _logs[i].path, " may not write " + _logs[i].name, _logs[i].path, _logs[i].effect);
    }
  }

  void checkRecords(const std::string& _records) {
    const PathFacts facts = factsOf(viewpoint_, _records);
    if (facts.kind == PathKind::missing) return;
    if (facts.kind == PathKind::danglingLink) {
      if (!hasFolderOfTarget(_records)) add("Q508", _records, "it is a link that leads nowhere", "remove the link");
    } else if (facts.kind != PathKind::file) {
      add("Q508", _records, "there is something else in place of the file", "remove what stands there");
    } else if (!mayWrite(viewpoint_, _records)) {
      addUnwritable("Q508", _records, " may not write it", _records);
    }
  }

  void checkApplicationFolder(const std::string& _folder) {
    const PathFacts facts = factsOf(viewpoint_, _folder);
    if (facts.kind == PathKind::missing) return;
    if (facts.kind != PathKind::folder) {
      add("Q509", _folder, "there is something else in place of the folder", "remove what stands there");
    } else if (!mayWrite(viewpoint_, _folder)) {
      addUnwritable("Q509", _folder, " may not write in it", _folder);
    } else if (facts.owner == viewpoint_.account.uid) {
      checkApplicationLogs(_folder);
    }
  }

  // Where the folder is the user's, so are the logs in it.
  void checkApplicationLogs(const std::string& _folder) {
    std::vector<LogFile> logs;
    for (const std::string& name : applicationLogsIn(reachedPath(viewpoint_, _folder))) {
      std::string path = _folder;
      path.append("\\").append(name).append(Quillmark_logging::APPL_SPEC_LOG_FILE_SUFFIX);
      logs.push_back({path, "the log of the application",
                      "the set-up says true, and the lines of the application's own log are lost"});
    }
    checkLogs(logs);
  }

  const Viewpoint& viewpoint_;
  Findings& findings_;
  std::set<std::string> openPaths_;
};

}  // namespace

std::span<const FindingKind> folderKinds() { return folderTable; }

void checkFolders(const Viewpoint& _viewpoint, const Configuration& _configuration, Findings& _findings) {
  FolderCheck check(_viewpoint, _findings);
  check.checkForeignRights(_configuration.cfg, _configuration.cfgBase);
  check.checkForeignRights(_configuration.generic, _configuration.cfgBase);
  if (_configuration.init.path != _configuration.cfg.path)
    check.checkForeignRights(_configuration.init, _configuration.initBase);
  if (!_configuration.logs || !_configuration.failure.empty()) return;
  if (checkPathLength(_configuration, *_configuration.logs, _findings)) check.checkLogs(*_configuration.logs);
}

}  // namespace qmrkctl
