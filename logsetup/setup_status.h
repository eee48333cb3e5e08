// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "config/found_configuration.h"
#include "diagnostics/status_file_values.h"
#include "diagnostics/status_page_values.h"
#include "platform/text_pieces.h"

namespace Quillmark_logging {

/// What a set-up call tells tools on the status page: made at its beginning, told what it finds out, and shown when the
/// outermost one of the thread ends. Nothing here fails, throws or leaves a trace.
class SetupStatus {
 public:
  explicit SetupStatus(status::Call _call) noexcept;
  /// A call that ends by an exception has failed, and has applied nothing.
  ~SetupStatus();
  SetupStatus(const SetupStatus&) = delete;
  SetupStatus& operator=(const SetupStatus&) = delete;

  // The functions below belong to the outermost call of the thread; outside one they do nothing.

  /// Who named the CA. The first one counts, as a call with a default CA calls the one that is given it.
  static void noteSource(status::CaSource _source) noexcept;
  static void noteAsked(const std::string& _ca) noexcept;
  /// The CA that counts after the check of its configuration, and its file.
  static void noteInEffect(const std::string& _ca, const std::string& _cfgPath) noexcept;
  static void noteApplication(const std::string& _name) noexcept;
  static void noteUnregistered(const std::string& _name) noexcept;
  static void noteCommonLog(const std::string& _path) noexcept;
  static void noteFile(const std::string& _path, status::FileKind _kind) noexcept;
  static void noteFilter(const std::string& _filter) noexcept;
  /// The text of the class list that the call applies.
  static void noteClasses(const platform::TextPieces& _text) noexcept;
  static void notePattern(const std::string& _pattern) noexcept;
  /// A reason of the call, or of its part that updates the classes; a text and what it is about.
  static void noteFailure(status::Failure _failure, const char* _text, const std::string& _subject) noexcept;
  static void noteUpdateFailure(status::Failure _failure, const char* _text, const std::string& _subject) noexcept;
  static void noteDone() noexcept;

  /// As much of a long text as the page has room for.
  struct LongText {
    std::string beginning;
    std::size_t wholeSize = 0;
    std::uint64_t hash = 0;
  };

  struct Outcome {
    status::Result result = status::Result::none;
    status::Failure failure = status::Failure::none;
    std::string error;
  };

  struct Notes {
    status::Call call = status::Call::none;
    status::CaSource source = status::CaSource::unknown;
    std::optional<std::string> asked;
    std::string checkedCa;
    std::string cfgPath;
    std::optional<std::string> application;
    std::optional<std::string> unregistered;
    std::optional<std::string> commonLog;
    std::vector<status::FileValues> files;
    std::optional<LongText> filter;
    std::optional<LongText> classes;
    std::string pattern;
    Outcome outcome;
    Outcome update;
  };

 private:
  template <class Note>
  static void note(Note _note) noexcept;
  void show() noexcept;

  SetupStatus* outer_;
  int exceptions_;
  Notes notes_;
  FoundConfiguration found_;
};

}  // namespace Quillmark_logging
