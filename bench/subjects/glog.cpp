// SPDX-License-Identifier: MIT
// glog: its own prefix, one file for all severities, no buffering.
#include <glog/logging.h>
#include <glog/vlog_is_on.h>

#include <string>
#include <vector>

#include "bench/message.h"
#include "bench/subject.h"

namespace bench {
namespace {

class Glog final : public Subject {
 public:
  bool openPlain(const std::string& _file) override {
    FLAGS_logbuflevel = -1;
    FLAGS_logbufsecs = 0;
    FLAGS_timestamp_in_logfile_name = false;
    FLAGS_stderrthreshold = 4;
    google::SetLogDestination(google::GLOG_INFO, _file.c_str());
    google::InitGoogleLogging("bench");
    return true;
  }

  void logLines(int _count) override {
    for (int i = 0; i < _count; ++i) {
      LOG(INFO) << BENCH_MESSAGE_HEAD << firstInteger + i << BENCH_MESSAGE_TAIL;
    }
  }

  bool logOffLines(int _count) override {
    for (int i = 0; i < _count; ++i) {
      VLOG(5) << BENCH_MESSAGE_HEAD << firstInteger + i << BENCH_MESSAGE_TAIL;
    }
    return true;
  }

  bool makeLogs(int _logs) override {
    for (int i = 0; i < _logs; ++i) {
      names_.push_back("module" + std::to_string(i));
    }
    return true;
  }

  void updateLevels(int _logs) override {
    google::SetVLOGLevel("*", 0);
    for (int i = 0; i < _logs; ++i) {
      google::SetVLOGLevel(names_[static_cast<std::size_t>(i)].c_str(), 1);
    }
  }

 private:
  std::vector<std::string> names_;
};

}  // namespace

std::unique_ptr<Subject> makeGlog() { return std::make_unique<Glog>(); }

}  // namespace bench
