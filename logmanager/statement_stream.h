// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <streambuf>
#include <string_view>

#include "boost/logging/detail/log_stream.hpp"
#include "logmanager/appenders/lane.h"

namespace boost::logging::detail {

class Context;
class StatementStream;

/// Appends what the machinery of std::ostream produces to the text of the stream. Has no memory of its own.
class LineBuffer : public std::streambuf {
 public:
  explicit LineBuffer(StatementStream& _stream) : stream_(_stream) {}

 protected:
  int_type overflow(int_type _character) override;
  std::streamsize xsputn(const char* _text, std::streamsize _size) override;
  /// Answers tellp(), nothing else.
  pos_type seekoff(off_type _offset, std::ios_base::seekdir _from, std::ios_base::openmode _which) override;

 private:
  StatementStream& stream_;
};

/// The stream of a context, with its text: in memory of its own, or in the room of a lane, where the statement leaves
/// it. Its locale is the classic one, whatever the global locale is. One thread at a time may use an object.
class StatementStream : public log_stream {
 public:
  /// Free bytes before a text in memory of its own, for what precedes it in the line.
  static constexpr std::size_t roomBefore = 128;
  /// The room that a lane must have for a text to begin there.
  static constexpr std::size_t usualRoom = 256;

  explicit StatementStream(Context& _context);

  /// Begins the text of another statement.
  /// @param _place becomes null at the end of the statement.
  void restart(log_stream*& _place);
  /// The same in the lane, which has made room.
  void restart(log_stream*& _place, Lane& _lane);

  /// Lets the statement know that it has ended.
  void end() { *place_ = nullptr; }

  /// May throw std::bad_alloc.
  void append(const char* _text, std::size_t _size);

  /// Where that many bytes can be put after the text; advance() then adds them to it.
  char* room(std::size_t _size) {
    if (static_cast<std::size_t>(end_ - position_) < _size) makeRoom(_size);
    return position_;
  }
  void advance(std::size_t _size) { position_ += _size; }

  /// How many bytes are free before a text in memory of its own.
  char* textBegin() const { return begin_; }

  std::string_view text() const { return {begin_, static_cast<std::size_t>(position_ - begin_)}; }

  /// Where the text is; null for memory of its own.
  Lane* lane() const { return lane_; }

  /// Call it at the end of a statement that may have used more of the stream than log_stream itself offers; the next
  /// restart resets everything.
  void noteGeneralUse() { mayBeChanged_ = true; }
  /// Call it at the end of any other statement, which may still have changed what is_plain checks.
  void noteOwnUse() { mayBeChanged_ = !is_plain() || !good() || isDecorated(); }

  Context& context() const { return context_; }

 private:
  static constexpr std::streamsize initialPrecision = 6;
  static constexpr std::size_t usualSize = 1024;
  static constexpr std::size_t largestKeptSize = 65536;

  static void noteChange(std::ios_base::event _event, std::ios_base& _stream, int _index);
  static const std::ios& initialState();
  void restartAt(log_stream*& _place, char* _begin, char* _end);
  void makeRoom(std::size_t _size);
  void moveToOwnMemory(std::size_t _size);
  void giveMemoryBack() noexcept;
  // What is_plain does not check.
  bool isDecorated() const {
    return precision() != initialPrecision || fill() != ' ' || exceptions() != std::ios_base::goodbit ||
           tie() != nullptr || rdbuf() != &buffer_;
  }
  void putBack();

  Context& context_;
  LineBuffer buffer_;
  log_stream** place_ = nullptr;
  char* begin_ = nullptr;
  Lane* lane_ = nullptr;
  bool mayBeChanged_ = false;
  std::size_t memorySize_ = 0;
  std::unique_ptr<char[]> memory_;
};

}  // namespace boost::logging::detail
