// SPDX-License-Identifier: MIT
#include "tests/stress/linux/oracle.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstdlib>
#include <ostream>
#include <string_view>
#include <vector>

namespace stress {
namespace {

struct Seen {
  std::vector<char> times;
  std::uint32_t next = 0;
};

}  // namespace

std::ostream& operator<<(std::ostream& _stream, const Tally& _tally) {
  return _stream << _tally.written << " written, " << _tally.found << " found, " << _tally.lost
                 << " lost after acknowledgement, " << _tally.torn << " torn, " << _tally.duplicated << " duplicated, "
                 << _tally.glued << " glued, " << _tally.disordered << " out of order";
}

Oracle::Oracle(std::uint32_t _writers) : writerCount_(_writers) {
  void* const memory =
      ::mmap(nullptr, _writers * sizeof(Writer), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) std::abort();
  writers_ = static_cast<Writer*>(memory);
}

Oracle::~Oracle() { ::munmap(writers_, writerCount_ * sizeof(Writer)); }

std::string Oracle::next(std::uint32_t _writer, std::size_t _fillerSize) {
  return textOf({_writer, writers_[_writer].begun.fetch_add(1)}, _fillerSize);
}

void Oracle::acknowledge(std::uint32_t _writer) { writers_[_writer].returned.store(writers_[_writer].begun.load()); }

std::int64_t Oracle::acknowledged(std::uint32_t _writer) const { return writers_[_writer].returned.load(); }

std::int64_t Oracle::acknowledged() const {
  std::int64_t sum = 0;
  for (std::uint32_t writer = 0; writer < writerCount_; ++writer)
    sum += acknowledged(writer);
  return sum;
}

Tally Oracle::check(const std::string& _text) const {
  Tally tally;
  std::vector<Seen> seen(writerCount_);
  for (std::uint32_t i = 0; i < writerCount_; ++i)
    seen[i].times.resize(writers_[i].begun.load());
  for (std::size_t begin = 0; begin < _text.size();) {
    const std::size_t end = std::min(_text.find('\n', begin), _text.size());
    const Findings findings = findIn(std::string_view(_text).substr(begin, end - begin));
    begin = end + 1;
    tally.torn += findings.torn;
    tally.glued += findings.torn + static_cast<int>(findings.whole.size()) > 1 ? 1 : 0;
    for (const NumberedLine& line : findings.whole) {
      Seen& writer = seen.at(line.writer);
      tally.duplicated += writer.times.at(line.number)++ != 0 ? 1 : 0;
      tally.disordered += line.number < writer.next ? 1 : 0;
      writer.next = std::max(writer.next, line.number + 1);
    }
  }
  for (std::uint32_t i = 0; i < writerCount_; ++i) {
    const std::vector<char>& times = seen[i].times;
    tally.written += static_cast<std::int64_t>(times.size());
    tally.found += std::count_if(times.begin(), times.end(), [](char _times) { return _times != 0; });
    tally.lost += std::count(times.begin(), times.begin() + acknowledged(i), 0);
  }
  return tally;
}

}  // namespace stress
