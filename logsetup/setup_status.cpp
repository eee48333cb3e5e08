// SPDX-License-Identifier: MIT
#include "logsetup/setup_status.h"

#include <exception>
#include <utility>

#include "diagnostics/status_page_layout.h"
#include "logsetup/status_contents.h"
#include "platform/cancellation.h"
#include "trace/trace_flags.h"

namespace Quillmark_logging {
namespace {

using status::Failure;
using status::Result;

SetupStatus*& outermost() noexcept {
  static thread_local constinit SetupStatus* found = nullptr;
  return found;
}

void setFailure(SetupStatus::Outcome& _outcome, Failure _failure, const char* _text, const std::string& _subject) {
  _outcome.result = Result::failed;
  _outcome.failure = _failure;
  _outcome.error = _text + _subject;
}

SetupStatus::LongText longText(const platform::TextPieces& _pieces, const status::Field& _field) {
  SetupStatus::LongText text;
  text.hash = status::hashOf("");
  for (const std::string& piece : _pieces) {
    if (text.beginning.size() < _field.size) text.beginning.append(piece, 0, _field.size - text.beginning.size());
    text.wholeSize += piece.size();
    text.hash = status::hashOf(piece, text.hash);
  }
  return text;
}

}  // namespace

template <class Note>
void SetupStatus::note(Note _note) noexcept {
  SetupStatus* const call = outermost();
  if (call == nullptr) return;
  try {
    _note(call->notes_);
  } catch (...) {
    // No memory.
  }
}

SetupStatus::SetupStatus(status::Call _call) noexcept : outer_(outermost()), exceptions_(std::uncaught_exceptions()) {
  if (outer_ != nullptr) return;
  outermost() = this;
  notes_.call = _call;
}

SetupStatus::~SetupStatus() {
  if (outer_ != nullptr) return;
  outermost() = nullptr;
  const platform::CancellationDelay delay;
  if (std::uncaught_exceptions() > exceptions_) {
    notes_.outcome.result = Result::failed;
    notes_.outcome.failure = Failure::exception;
    notes_.outcome.error.clear();
    notes_.update = {};
    notes_.classes.reset();
  }
  showSetUp(notes_, found_);
}

void SetupStatus::noteSource(status::CaSource _source) noexcept {
  note([&](Notes& _notes) {
    if (_notes.source == status::CaSource::unknown) _notes.source = _source;
  });
}

void SetupStatus::noteAsked(const std::string& _ca) noexcept {
  note([&](Notes& _notes) { _notes.asked = _ca; });
}

void SetupStatus::noteInEffect(const std::string& _ca, const std::string& _cfgPath) noexcept {
  note([&](Notes& _notes) {
    _notes.checkedCa = _ca;
    _notes.cfgPath = _cfgPath;
  });
}

void SetupStatus::noteApplication(const std::string& _name) noexcept {
  note([&](Notes& _notes) { _notes.application = _name; });
}

void SetupStatus::noteUnregistered(const std::string& _name) noexcept {
  note([&](Notes& _notes) { _notes.unregistered = _name; });
}

void SetupStatus::noteCommonLog(const std::string& _path) noexcept {
  note([&](Notes& _notes) { _notes.commonLog = _path; });
}

void SetupStatus::noteFile(const std::string& _path, status::FileKind _kind) noexcept {
  note([&](Notes& _notes) { _notes.files.push_back({_path, _kind, tsMode() ? status::hasOwnThread : 0}); });
}

void SetupStatus::noteFilter(const std::string& _filter) noexcept {
  note([&](Notes& _notes) { _notes.filter = longText({_filter}, status::filter); });
}

void SetupStatus::noteClasses(const platform::TextPieces& _text) noexcept {
  note([&](Notes& _notes) {
    _notes.update = {Result::done, Failure::none, ""};
    _notes.classes = longText(_text, status::classText);
  });
}

void SetupStatus::notePattern(const std::string& _pattern) noexcept {
  note([&](Notes& _notes) { _notes.pattern = _pattern; });
}

void SetupStatus::noteFailure(Failure _failure, const char* _text, const std::string& _subject) noexcept {
  note([&](Notes& _notes) { setFailure(_notes.outcome, _failure, _text, _subject); });
}

void SetupStatus::noteUpdateFailure(Failure _failure, const char* _text, const std::string& _subject) noexcept {
  note([&](Notes& _notes) { setFailure(_notes.update, _failure, _text, _subject); });
}

void SetupStatus::noteDone() noexcept {
  note([](Notes& _notes) { _notes.outcome = {Result::done, Failure::none, ""}; });
}

}  // namespace Quillmark_logging
