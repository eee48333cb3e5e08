// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/file_refusal.h"

#include "platform/native_path.h"
#include "tools/qmrkctl/command_report.h"
#include "tools/qmrkctl/exit_code.h"
#include "tools/qmrkctl/shown_text.h"
#include "tools/system/elevation.h"
#include "tools/system/path_facts.h"
#include "tools/system/path_rights.h"
#include "tools/system/process_list.h"

namespace qmrkctl {

namespace {

std::string whoMay(const std::string& _path) {
  if (toolsystem::seesEveryProcess())
    return "not even root may: look at the mount options, the attributes of the file (lsattr), and whose link it is";
  const std::string path = platform::nativePath(_path);
  const auto group = toolsystem::groupOfFolder(path.substr(0, path.find_last_of("/\\")));
  if (group && !group->isOwn) {
    return "the members of the group \"" + shown(group->name) + "\" may do that (sudo usermod -a -G " +
           shown(group->name) + " USER, then log in again), or root: run the same command by sudo";
  }
  std::string others = "the owner of the file may do that, or root: run the same command by sudo";
  if (!group) return others;
  return others + "; to let the group \"" + shown(group->name) + "\": sudo chgrp " + shown(group->name) + " \"" +
         shown(path) + "\" && sudo chmod g+w \"" + shown(path) + "\"";
}

}  // namespace

int refuseFile(const toolsystem::FileFailure& _failure, const std::string& _path) {
  Report::message(shown(_failure.text));
  if (_failure.isDenied) {
    Report::message(whoMay(_path));
    return exitNoPermission;
  }
  return _failure.isMissing ? exitNotFound : exitInternal;
}

int refuseUnread(const std::string& _path, const std::string& _command) {
  const std::string path = platform::nativePath(_path);
  const toolsystem::PathFacts facts = toolsystem::factsOf(path);
  const bool isFile = facts.kind == toolsystem::PathKind::file;
  if (!isFile && !facts.isHidden) {
    const bool isFolder = facts.kind == toolsystem::PathKind::folder;
    Report::message("cannot read " + shown(path) + (isFolder ? ": it is a folder" : ": it is no regular file"));
    return exitNegative;
  }
  if (isFile && toolsystem::rightsOn({path}, toolsystem::ownAccount(), "").front().isReadable) {
    Report::message("cannot read " + shown(path));
    return exitInternal;
  }
  Report::message("permission denied for " + shown(path) + "; " + toolsystem::elevated(_command) + " has it");
  return exitNoPermission;
}

}  // namespace qmrkctl
