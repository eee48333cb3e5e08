// SPDX-License-Identifier: MIT
#include <string_view>

#include "boost/logging/logger.hpp"
#include "logmanager/appenders/failure_report.h"
#include "logmanager/appenders/shared_append_file.h"
#include "logmanager/appenders/ts_appender.h"
#include "logmanager/callable_set.h"
#include "logmanager/context.h"
#include "logmanager/default_log_manager.h"
#include "logmanager/threads/thread_state.h"
#include "platform/cancellation.h"
#include "platform/clock.h"

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
    if (!isStillOn(_context)) return;
    deliverThrough(*_context.thread, _context.callables, _context.log->name, _message, _context.line, 0);
    if (_context.line.capacity() > largestKeptLine) std::string().swap(_context.line);
  } catch (...) {
    reportException("log cache", _context.log->name);
  }
}

/// Where the messages of the log go to one writer thread, and no further: its lane with room, else null; also where
/// there is no memory for it.
Lane* laneWithRoom(Context& _context, std::size_t _size) noexcept {
  if (_context.callables == nullptr || _context.callables->writer == nullptr) return nullptr;
  try {
    Lane& lane = _context.laneOf(_context.callables->writer->queue());
    return lane.makeRoom(_size) ? &lane : nullptr;
  } catch (...) {
    return nullptr;
  }
}

void writeToFile(const Callable& _appender, std::string_view _line, std::int64_t _now,
                 const std::string& _logName) noexcept {
  try {
    _appender.file->append(_line, _now);
  } catch (...) {
    reportException(_appender.name, _logName);
  }
}

/// Whether the callables of the context may get the message: otherwise the set-up has changed, or messages are still
/// being kept.
bool mayGoStraightOn(const Context& _context) {
  return isUpToDate(_context) && isStillOn(_context) && earlyMessages().isOver();
}

/// Leaves the message whose text is in the lane's room, and which may go straight on.
void leaveInLane(Context& _context, Lane& _lane, std::size_t _size) {
  const CallableSet& callables = *_context.callables;
  MessageQueue& queue = callables.writer->queue();
  queue.publish(_lane, callables.writersPlan, &_context.log->name, _size);
  if (queue.needsAttention()) callables.writer->attend();
}

/// Whether to write the message to files is all that is to be done with it.
bool isForFilesOnly(const Context& _context) {
  return _context.callables != nullptr && _context.callables->isForFilesOnly && _context.thread->depth == 0;
}

/// Writes such a message, which may go straight on: the line is made round the text, where that is.
/// @return false, and nothing is done, when the front is too long.
bool writeToFiles(Context& _context, StatementStream& _stream) {
  const LinePlan& plan = _context.callables->plan;
  const std::int64_t now = platform::wallClockMilliseconds();
  std::string memory;
  const std::string_view time = plan.timeText(*_context.thread, now, memory);
  const std::size_t frontSize = plan.frontSize(time, _context.log->name);
  if (frontSize > StatementStream::roomBefore) return false;
  char* const end = plan.putEnters(_stream.room(plan.enterCount()));
  char* const begin = _stream.textBegin() - frontSize;
  plan.putFront(begin, time, _context.log->name);
  const std::string_view line(begin, static_cast<std::size_t>(end - begin));
  for (const SharedCallable& appender : _context.callables->appenders)
    writeToFile(*appender, line, now, _context.log->name);
  return true;
}

bool takeShortWay(Context& _context, StatementStream& _stream) noexcept {
  Lane* const lane = _stream.lane();
  if ((lane == nullptr && !isForFilesOnly(_context)) || !mayGoStraightOn(_context)) return false;
  try {
    if (lane == nullptr) return writeToFiles(_context, _stream);
    leaveInLane(_context, *lane, _stream.text().size());
    return true;
  } catch (...) {
    // No memory; the usual way reports it.
    return false;
  }
}

void finish(StatementStream& _stream) noexcept {
  _stream.end();
  Context& context = _stream.context();
  if (!takeShortWay(context, _stream)) deliver(context, _stream.text());
  leaveContext(context);
}

/// Begins a statement, which finish or leaveContext ends. May throw std::bad_alloc.
StatementStream& beginStatement(const Log& _log, log_stream*& _place) {
  Context& context = enterContext(_log);
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
  return context.stream;
}

}  // namespace

log_stream* statement::begin(const logger& _logger, log_stream*& _place) {
  return &beginStatement(static_cast<const Log&>(*_logger.log_), _place);
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
  detail::log_stream* place = nullptr;
  detail::StatementStream& stream = detail::beginStatement(static_cast<const detail::Log&>(*log_), place);
  try {
    stream.append(_message.data(), _message.size());
  } catch (...) {
    // No memory for a copy.
    detail::deliver(stream.context(), _message);
    detail::leaveContext(stream.context());
    return;
  }
  stream.noteOwnUse();
  detail::finish(stream);
}

}  // namespace boost::logging
