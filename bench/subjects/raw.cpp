// SPDX-License-Identifier: MIT
// The baseline: what a line costs when it is formatted by hand, with the second of the stamp cached, and written with
// one call of the system. The queued form is a lock and two swapped buffers.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <ctime>
#include <mutex>
#include <string>
#include <thread>

#include "bench/message.h"
#include "bench/subject.h"

namespace bench {
namespace {

class Stamp {
 public:
  char* write(char* _at) {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    if (now.tv_sec != second_) {
      second_ = now.tv_sec;
      tm local{};
      ::localtime_r(&second_, &local);
      std::strftime(text_, sizeof text_, "%Y%m%d %H:%M:%S.", &local);
    }
    std::memcpy(_at, text_, 18);
    const int millisecond = static_cast<int>(now.tv_nsec / 1000000);
    _at[18] = static_cast<char>('0' + millisecond / 100);
    _at[19] = static_cast<char>('0' + millisecond / 10 % 10);
    _at[20] = static_cast<char>('0' + millisecond % 10);
    _at[21] = ' ';
    return _at + 22;
  }

 private:
  time_t second_ = 0;
  char text_[32] = "";
};

template <std::size_t N>
char* literal(char* _at, const char (&_text)[N]) {
  std::memcpy(_at, _text, N - 1);
  return _at + N - 1;
}

std::size_t format(char* _line, int _value) {
  thread_local Stamp stamp;
  char* at = literal(_line, "[App.Module.info] ");
  at = stamp.write(at);
  at = literal(at, BENCH_MESSAGE_HEAD);
  for (int i = 6; i >= 0; --i, _value /= 10) {
    at[i] = static_cast<char>('0' + _value % 10);
  }
  at = literal(at + 7, BENCH_MESSAGE_TAIL);
  *at++ = '\n';
  return static_cast<std::size_t>(at - _line);
}

class TwoBuffers {
 public:
  explicit TwoBuffers(int _file) : file_(_file), thread_([this] { run(); }) {}
  ~TwoBuffers() {
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      stop_ = true;
    }
    thread_.join();
  }
  TwoBuffers(const TwoBuffers&) = delete;
  TwoBuffers& operator=(const TwoBuffers&) = delete;

  void put(const char* _line, std::size_t _size) {
    const std::lock_guard<std::mutex> lock(mutex_);
    filling_.append(_line, _size);
  }

 private:
  void run() {
    std::string writing;
    for (bool stop = false; !stop;) {
      writing.clear();
      {
        const std::lock_guard<std::mutex> lock(mutex_);
        filling_.swap(writing);
        stop = stop_ && writing.empty();
      }
      if (writing.empty()) {
        std::this_thread::yield();
      } else if (::write(file_, writing.data(), writing.size()) < 0) {
        std::perror("write");
      }
    }
  }

  int file_;
  std::mutex mutex_;
  std::string filling_;
  bool stop_ = false;
  std::thread thread_;
};

class Raw final : public Subject {
 public:
  ~Raw() override {
    queue_.reset();
    ::close(file_);
  }

  bool openPlain(const std::string& _file) override {
    name_ = _file;
    file_ = ::open(_file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    return file_ >= 0;
  }

  bool openRolling(const std::string& _file, int _bytes, int _files) override {
    limit_ = _bytes;
    backups_ = _files - 1;
    return openPlain(_file);
  }

  bool openQueued(const std::string& _file) override {
    const bool opened = openPlain(_file);
    queue_ = std::make_unique<TwoBuffers>(file_);
    return opened;
  }

  void logLines(int _count) override {
    char line[256];
    for (int i = 0; i < _count; ++i) {
      const std::size_t size = format(line, firstInteger + i);
      if (queue_) {
        queue_->put(line, size);
      } else if (::write(file_, line, size) < 0) {
        std::perror("write");
      } else if (limit_ > 0 && (size_ += size) >= limit_) {
        roll();
      }
    }
  }

  // An empty loop, kept by the compiler.
  bool logOffLines(int _count) override {
    for (int i = 0; i < _count; ++i) {
      asm volatile("" : "+r"(i));
    }
    return true;
  }

 private:
  void roll() {
    ::close(file_);
    for (int i = backups_ - 1; i >= 0; --i) {
      const std::string from = i == 0 ? name_ : name_ + "." + std::to_string(i);
      ::rename(from.c_str(), (name_ + "." + std::to_string(i + 1)).c_str());
    }
    size_ = 0;
    file_ = ::open(name_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0666);
  }

  std::string name_;
  int file_ = -1;
  std::size_t limit_ = 0;
  std::size_t size_ = 0;
  int backups_ = 0;
  std::unique_ptr<TwoBuffers> queue_;
};

}  // namespace

std::unique_ptr<Subject> makeRaw() { return std::make_unique<Raw>(); }

}  // namespace bench
