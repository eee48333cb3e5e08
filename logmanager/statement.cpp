// SPDX-License-Identifier: MIT
#include <string_view>

#include "boost/logging/logger.hpp"
#include "logmanager/appenders/exception_report.h"
#include "logmanager/context.h"
#include "logmanager/default_log_manager.h"
#include "logmanager/dispatch.h"
#include "logmanager/threads/thread_state.h"

namespace boost::logging {
namespace detail {
namespace {

constexpr std::size_t LARGEST_KEPT_SIZE = 65536;

/// Delivers a message of the statement of the context.
void deliver(Context& _context, std::string_view _message) noexcept {
  try {
    if (get_default_log_manager().earlyMessages().keep(*_context.log, _message)) return;
    followSetUp(_context);
    passThrough(*_context.thread, _context.callables, _context.log->name, _message, _context.line, 0);
    if (_context.line.capacity() > LARGEST_KEPT_SIZE) std::string().swap(_context.line);
  } catch (...) {
    reportException("log cache", _context.log->name);
  }
}

void deliverText(Context& _context) noexcept { deliver(_context, _context.stream.buffer().text()); }

class ContextScope {
 public:
  explicit ContextScope(const Log& _log) : context_(enterContext(_log)) {}
  ~ContextScope() { leaveContext(context_); }
  ContextScope(const ContextScope&) = delete;
  ContextScope& operator=(const ContextScope&) = delete;
  Context& context() const { return context_; }

 private:
  Context& context_;
};

}  // namespace

statement::statement(const logger& _logger) {
  Context& context = enterContext(static_cast<const Log&>(*_logger.log_));
  try {
    context.stream.restart();
  } catch (...) {
    leaveContext(context);
    throw;
  }
  // Until the end of the statement shows that only log_stream's own operators were used.
  context.stream.noteGeneralUse();
  stream_ = &context.stream;
}

statement::~statement() { leaveContext(static_cast<StatementStream*>(stream_)->context()); }

void finish_statement::operator&(log_stream& _stream) const {
  auto& stream = static_cast<StatementStream&>(_stream);
  stream.noteOwnUse();
  deliverText(stream.context());
}

void finish_statement::operator&(std::ostream& /*_stream*/) const { deliverText(*threadState().innermost); }

}  // namespace detail

logger::logger(const std::string& _name) : log_(&get_default_log_manager().log(_name)) {}

const std::string& logger::name() const { return static_cast<const detail::Log*>(log_)->name; }

void logger::write(const std::string& _message) const {
  if (!is_enabled()) return;
  const detail::ContextScope scope(static_cast<const detail::Log&>(*log_));
  detail::deliver(scope.context(), _message);
}

}  // namespace boost::logging
