// SPDX-License-Identifier: MIT
// quill: the default queue of each thread, which grows and then blocks, so that nothing is lost, preallocated as its
// documentation recommends where latency counts; a FileSink, and the backend thread as it is by default, which writes
// what it holds every 200 ms. A run of many lines is flushed at its end, so that no flood waits for that; a single line
// is not, as this would make its caller wait. Built only where QMRK_BENCH_QUILL names the folder of the headers.
#include <quill/Backend.h>
#include <quill/Frontend.h>
#include <quill/LogMacros.h>
#include <quill/Logger.h>
#include <quill/sinks/FileSink.h>

#include "bench/message.h"
#include "bench/subject.h"

namespace bench {
namespace {

class Quill final : public Subject {
 public:
  ~Quill() override { quill::Backend::stop(); }

  bool openQueued(const std::string& _file) override {
    quill::Backend::start();
    quill::FileSinkConfig configuration;
    configuration.set_open_mode('a');
    logger_ = quill::Frontend::create_or_get_logger(
        logName, quill::Frontend::create_or_get_sink<quill::FileSink>(_file, configuration),
        quill::PatternFormatterOptions{"[%(logger)] %(time) %(message)", "%Y%m%d %H:%M:%S.%Qms"});
    return true;
  }

  void logLines(int _count) override {
    thread_local const bool prepared = prepareThread();
    static_cast<void>(prepared);
    for (int i = 0; i < _count; ++i) {
      QUILL_LOG_INFO(logger_, BENCH_MESSAGE_HEAD "{}" BENCH_MESSAGE_TAIL, firstInteger + i);
    }
    if (_count > 1) {
      logger_->flush_log();
    }
  }

 private:
  static bool prepareThread() {
    quill::Frontend::preallocate();
    return true;
  }

  quill::Logger* logger_ = nullptr;
};

}  // namespace

std::unique_ptr<Subject> makeQuill() { return std::make_unique<Quill>(); }

}  // namespace bench
