// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/bundle/tar_archive.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace qmrkctl {
namespace {

constexpr std::size_t tarBlock = 512;
using TarHeader = std::array<char, tarBlock>;

void putText(TarHeader& _header, std::size_t _offset, std::string_view _text) {
  std::copy(_text.begin(), _text.end(), _header.begin() + static_cast<std::ptrdiff_t>(_offset));
}

// Octal digits with zeros in front, and a NUL behind them.
void putOctal(TarHeader& _header, std::size_t _offset, int _digits, std::uint64_t _number) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%0*llo", _digits, static_cast<unsigned long long>(_number));
  putText(_header, _offset, text.data());
}

TarHeader tarHeader(std::string_view _name, std::size_t _size, std::int64_t _seconds) {
  TarHeader header{};
  putText(header, 0, _name.substr(0, TarArchive::longestName));
  putOctal(header, 100, 7, 0600);
  putOctal(header, 108, 7, 0);
  putOctal(header, 116, 7, 0);
  putOctal(header, 124, 11, _size);
  putOctal(header, 136, 11, static_cast<std::uint64_t>(std::max<std::int64_t>(0, _seconds)));
  putText(header, 148, "        ");
  header[156] = '0';
  putText(header, 257,
          std::string_view("ustar\0"
                           "00",
                           8));
  putText(header, 265, "root");
  putText(header, 297, "root");
  // The sum is that of a header with blanks in its place.
  std::uint64_t sum = 0;
  for (const char c : header)
    sum += static_cast<unsigned char>(c);
  putOctal(header, 148, 6, sum);
  header[154] = '\0';
  return header;
}

}  // namespace

void TarArchive::add(std::string_view _name, std::string_view _bytes) {
  const TarHeader header = tarHeader(_name, _bytes.size(), seconds_);
  entries_.append(header.data(), header.size());
  entries_ += _bytes;
  entries_.append((tarBlock - _bytes.size() % tarBlock) % tarBlock, '\0');
}

std::string TarArchive::bytes() const { return entries_ + std::string(2 * tarBlock, '\0'); }

std::string gzipped(std::string_view _bytes) {
  z_stream stream{};
  // 16 more than the size of the window asks for the head of gzip.
  constexpr int gzipWindow = 15 + 16;
  if (::deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, gzipWindow, 8, Z_DEFAULT_STRATEGY) != Z_OK) return "";
  std::string bytes(::deflateBound(&stream, static_cast<uLong>(_bytes.size())), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(_bytes.data()));
  stream.avail_in = static_cast<uInt>(_bytes.size());
  stream.next_out = reinterpret_cast<Bytef*>(bytes.data());
  stream.avail_out = static_cast<uInt>(bytes.size());
  const bool isDone = ::deflate(&stream, Z_FINISH) == Z_STREAM_END;
  bytes.resize(isDone ? stream.total_out : 0);
  ::deflateEnd(&stream);
  return bytes;
}

}  // namespace qmrkctl
