// SPDX-License-Identifier: MIT
#include <boost/filesystem.hpp>

#include "config/auto_generate_cfg.h"
#include "platform/native_path.h"
#include "trace/trace_line.h"

using Quillmark_logging::traceLineIf;
namespace fs = boost::filesystem;

namespace {

bool contains(const std::string& _name, const std::string& _filter) { return _name.find(_filter) != std::string::npos; }

}  // namespace

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
