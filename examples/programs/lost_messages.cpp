// SPDX-License-Identifier: MIT
// Which files lose messages, shown on standard error as soon as one does: here one that is a folder.

#include <boost/logging/logging.hpp>
#include <iostream>

namespace bl = boost::logging;

void showFiles();

void showFiles() {
  bl::list_files([](const bl::file_state& _file) {
    std::cerr << _file.path << ": " << _file.lost << " lost, the last by error " << _file.error << "\n";
  });
}

int main() {
  bl::add_appender(bl::get_default_log_manager(), "App", bl::write_to_file(".", false), "file", 100);
  bl::flush_log_cache();
  bl::observe_files(showFiles);
  QMRK_LOG(bl::logger("App.error")) << "this is lost";
}
