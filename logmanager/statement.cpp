// SPDX-License-Identifier: MIT
#include <cstring>
#include <string_view>

#include "boost/logging/logger.hpp"
#include "logmanager/appenders/exception_report.h"
#include "logmanager/context.h"
#include "logmanager/default_log_manager.h"
#include "logmanager/dispatch.h"
#include "logmanager/threads/thread_state.h"
#include "platform/cancellation.h"

namespace boost::logging {
namespace detail {
namespace {

constexpr std::size_t largestKeptLine = 65536;

EarlyMessages& earlyMessages() { return get_default_log_manager().earlyMessages(); }

/// Delivers a message of the statement of the context.
void deliver(Context& _context, std::string_view _message) noexcept {
  const platform::CancellationDelay delay;
  try {
    if (earlyMessages().keep(*_context.log, _message)) return;
    followSetUp(_context);
    // After the callables, so that nobody takes new callables of a log that went off with them for those of one that is
    // on (default_log_manager::publish).
    if (!_context.log->enabled.load(std::memory_order_relaxed)) return;
    passThrough(*_context.thread, _context.callables, _context.log->name, _message, _context.line, 0);
    if (_context.line.capacity() > largestKeptLine) std::string().swap(_context.line);
  } catch (...) {
    reportException("log cache", _context.log->name);
  }
}

/// Where the messages of the log go to one writer thread, and no further: its lane with room, else null. May throw
/// std::bad_alloc.
Lane* laneWithRoom(Context& _context, std::size_t _size) {
  if (_context.callables == nullptr || _context.callables->writer == nullptr) return nullptr;
  Lane& lane = _context.laneOf(_context.callables->writer->queue());
  return lane.makeRoom(_size) ? &lane : nullptr;
}

/// Leaves the message whose text is in the lane's room, unless it has to go another way: the set-up has changed, or
/// messages are still being kept.
bool leaveInLane(Context& _context, Lane& _lane, std::size_t _size) {
  const CallableSet& callables = *_context.callables;
  if (_context.log->callables.load(std::memory_order_relaxed) != &callables || !earlyMessages().isOver()) return false;
  MessageQueue& queue = callables.writer->queue();
  queue.publish(_lane, callables.writersPlan, &_context.log->name, _size);
  if (queue.needsAttention()) callables.writer->attend();
  return true;
}

void finish(StatementStream& _stream) noexcept {
  _stream.end();
  Context& context = _stream.context();
  const std::string_view text = _stream.text();
  if (_stream.lane() == nullptr || !leaveInLane(context, *_stream.lane(), text.size())) deliver(context, text);
  leaveContext(context);
}

void writeText(Context& _context, const std::string& _message) {
  try {
    if (Lane* const lane = laneWithRoom(_context, _message.size())) {
      std::memcpy(lane->textBegin(), _message.data(), _message.size());
      if (leaveInLane(_context, *lane, _message.size())) return;
    }
  } catch (...) {
    // No memory for a lane.
  }
  deliver(_context, _message);
}

}  // namespace

log_stream* statement::begin(const logger& _logger, log_stream*& _place) {
  Context& context = enterContext(static_cast<const Log&>(*_logger.log_));
  try {
    Lane* const lane = laneWithRoom(context, StatementStream::usualRoom);
    if (lane != nullptr) {
      context.stream.restart(_place, *lane);
    } else {
      context.stream.restart(_place);
    }
  } catch (...) {
    leaveContext(context);
    throw;
  }
  return &context.stream;
}

void statement::abandon(log_stream& _stream) { leaveContext(static_cast<StatementStream&>(_stream).context()); }

void finish_statement::operator&(log_stream& _stream) const {
  auto& stream = static_cast<StatementStream&>(_stream);
  stream.noteOwnUse();
  finish(stream);
}

void finish_statement::operator&(std::ostream& /*_stream*/) const {
  StatementStream& stream = threadState().innermost->stream;
  stream.noteGeneralUse();
  finish(stream);
}

}  // namespace detail

logger::logger(const std::string& _name) : log_(&get_default_log_manager().log(_name)) {}

const std::string& logger::name() const { return static_cast<const detail::Log*>(log_)->name; }

void logger::write(const std::string& _message) const {
  if (!is_enabled()) return;
  detail::Context& context = detail::enterContext(static_cast<const detail::Log&>(*log_));
  detail::writeText(context, _message);
  detail::leaveContext(context);
}

}  // namespace boost::logging
