// SPDX-License-Identifier: MIT
#include "config/auto_generate_cfg.h"

#include <algorithm>
#include <boost/filesystem.hpp>
#include <cstdio>

#include "config/generic_cfg_text.h"
#include "platform/access.h"
#include "platform/native_path.h"
#include "platform/process.h"
#include "platform/text_file.h"
#include "quillmark_logging_names.h"
#include "trace/trace_line.h"

using Quillmark_logging::caOfFileName;
using Quillmark_logging::genericCfgText;
using Quillmark_logging::isCaCfgFileName;
using Quillmark_logging::traceLineIf;
namespace fs = boost::filesystem;

namespace {

bool contains(const std::string& _name, const std::string& _filter) { return _name.find(_filter) != std::string::npos; }

bool writeOrRemove(const std::string& _path, platform::TextWriter::Mode _mode, const std::string& _text) {
  {
    platform::TextWriter file(_path, _mode);
    if (!file.isOpen()) return false;
    if (file.write(_text)) return true;
  }
  std::remove(platform::nativePath(_path).c_str());
  return false;
}

// A file that was begun only would be taken for a generic one that names no CA: at once by programs that start together
// with this one, and at every start from now on if this one is ended here. So a new file gets its name when it is
// whole.
bool writeWhole(const std::string& _path, const std::string& _text) {
  const fs::path path(platform::nativePath(_path));
  boost::system::error_code error;
  if (fs::symlink_status(path, error).type() != fs::file_not_found)
    return writeOrRemove(_path, platform::TextWriter::Mode::truncate, _text);
  // Other threads and processes may be at the same.
  const std::string begun =
      _path + "." + std::to_string(platform::processId()) + "." + std::to_string(platform::threadId());
  // What has the name already was left by a process that was killed, or is a link by which somebody would have a file
  // of this user overwritten.
  std::remove(platform::nativePath(begun).c_str());
  if (!writeOrRemove(begun, platform::TextWriter::Mode::create, _text)) return false;
  fs::rename(platform::nativePath(begun), path, error);
  if (error) std::remove(platform::nativePath(begun).c_str());
  return !error;
}

}  // namespace

AutoGenerateCfg::AutoGenerateCfg(bool _trace)
    : fileName_(Quillmark_logging::GENERIC_CFG_FILE_NAME), customerAdaptation_("CA00"), trace_(_trace) {}

bool AutoGenerateCfg::setCfgPath(const std::string& _path) {
  traceLineIf(trace_, "==> AutoGenerateCfg::setCfgPath() _path=\"%s\"\r\n", _path.c_str());
  cfgPath_ = _path;
  if (!platform::isAccessible(cfgPath_, platform::Access::exists)) {
    traceLineIf(trace_, "<!= AutoGenerateCfg::setCfgPath() ERROR: Path \"%s\" does not exist.\r\n", cfgPath_.c_str());
    return false;
  }
  if (!platform::isAccessible(cfgPath_, platform::Access::readWrite)) {
    traceLineIf(trace_,
                "<!= AutoGenerateCfg::setCfgPath() Path \"%s\" found & BUT it doesn't has read/write permission.\r\n",
                cfgPath_.c_str());
    return false;
  }
  traceLineIf(trace_, "<== AutoGenerateCfg::setCfgPath() Path \"%s\" found & it has read/write permission.\r\n",
              cfgPath_.c_str());
  return true;
}

bool AutoGenerateCfg::generateGenericCfgFile() {
  traceLineIf(trace_, "==>  AutoGenerateCfg::generateGenericCfgFile()\r\n");
  if (cfgPath_.empty() || !getCA()) {
    traceLineIf(trace_,
                "<!=  AutoGenerateCfg::generateGenericCfgFile() Failed to generate configuration file \"%s\", path is "
                "not set/valid.\r\n",
                fileName_.c_str());
    return false;
  }
  const std::string path = cfgPath_ + "\\" + fileName_;
  if (!writeWhole(path, genericCfgText(customerAdaptation_))) {
    traceLineIf(trace_, "<!=  AutoGenerateCfg::generateGenericCfgFile() ERROR: Failed to open file \"%s\"\r\n",
                path.c_str());
    return false;
  }
  traceLineIf(trace_,
              "<==  AutoGenerateCfg::generateGenericCfgFile() Configuration file \"%s\" successfully generated.\r\n",
              path.c_str());
  return true;
}

bool AutoGenerateCfg::getCA() {
  traceLineIf(trace_, "==> AutoGenerateCfg::getCA()\r\n");
  if (dcMap_.empty() && !traverseDirectory(cfgPath_, "")) {
    traceLineIf(trace_, "<== AutoGenerateCfg::getCA() dcMap is empty & traverse directory (%s) failed.\r\n",
                cfgPath_.c_str());
    return false;
  }
  const auto entry = std::find_if(dcMap_.begin(), dcMap_.end(), [](const auto& _entry) {
    return _entry.second == "file" && isCaCfgFileName(_entry.first);
  });
  const std::string ca = entry == dcMap_.end() ? std::string() : caOfFileName(entry->first);
  if (ca.empty()) {
    traceLineIf(trace_,
                "<!= AutoGenerateCfg::getCA() ERROR: No qmrk logging configuration files where found in \"%s\"\r\n",
                cfgPath_.c_str());
    return false;
  }
  traceLineIf(trace_, "<== AutoGenerateCfg::getCA() CA found, customerAdaptation_=\"%s\"\r\n", ca.c_str());
  customerAdaptation_ = ca;
  return true;
}

bool AutoGenerateCfg::traverseDirectory(const std::string& _directory, const std::string& _filter) {
  traceLineIf(trace_, "==> AutoGenerateCfg::traverseDirectory() _directory=\"%s\", _filter=\"%s\"\r\n",
              _directory.c_str(), _filter.c_str());
  const fs::path directory(platform::nativePath(_directory));
  boost::system::error_code ignored;
  if (!fs::exists(directory, ignored)) {
    traceLineIf(trace_, "<!= AutoGenerateCfg::traverseDirectory() ERROR: \"%s\" not found.\r\n", _directory.c_str());
    return false;
  }
  if (!fs::is_directory(directory, ignored)) {
    traceLineIf(trace_, "<!= AutoGenerateCfg::traverseDirectory() ERROR: \"%s\" in not a directory.\r\n",
                _directory.c_str());
    return false;
  }
  try {
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
      const std::string name = entry.path().filename().string();
      if (contains(name, _filter)) dcMap_[name] = fs::is_directory(entry.status()) ? "dir" : "file";
    }
  } catch (const boost::system::system_error& error) {
    traceLineIf(trace_,
                "<!= AutoGenerateCfg::traverseDirectory() ERROR: Exception caught traversing \"%s\". Description: "
                "\"%s\".\r\n",
                _directory.c_str(), error.what());
    return false;
  }
  return true;
}

bool AutoGenerateCfg::showDirContent(const std::string& _directory, const std::string& _filter) {
  traceLineIf(trace_, "==> AutoGenerateCfg::showDirContent() _directory=\"%s\", _filter=\"%s\"\r\n", _directory.c_str(),
              _filter.c_str());
  if (dcMap_.empty() && !traverseDirectory(_directory, "")) {
    traceLineIf(trace_, "<== AutoGenerateCfg::showDirContent() dcMap is empty & traverse directory (%s) failed.\r\n",
                cfgPath_.c_str());
    return false;
  }
  int files = 0;
  int dirs = 0;
  traceLineIf(trace_, "%s\r\n", _directory.c_str());
  for (const auto& [name, kind] : dcMap_) {
    if (!contains(name, _filter)) continue;
    const bool isDir = kind == "dir";
    traceLineIf(trace_, "%s%s\r\n", name.c_str(), isDir ? "\t<DIR>" : "");
    ++(isDir ? dirs : files);
  }
  traceLineIf(trace_, "\r\n");
  traceLineIf(trace_, "Summary:\r\n");
  traceLineIf(trace_, "\t%d File(s)\r\n", files);
  traceLineIf(trace_, "\t%d Dir(s)\r\n", dirs);
  traceLineIf(trace_, "<== AutoGenerateCfg::showDirContent()\r\n");
  return true;
}
