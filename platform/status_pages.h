// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/errors.h"

namespace platform {

// The status pages of running processes, as a tool finds them. Everything there is written by others, and is opened and
// copied so that nobody can make the caller follow a link, wait, or read beyond the end.

/// What a status page is to the seam.
struct StatusPageForm {
  std::size_t size;
  /// Where 8 bytes are odd while the page is written, and greater after each writing.
  std::size_t sequenceOffset;
};

/// Where to look.
struct StatusPagePlace {
  /// On Linux a folder that stands for "/", such as "/proc/4711/root" for what process 4711 sees; empty for the
  /// caller's own. Ignored on Windows.
  std::string root;
  /// On Linux whose pages, as the id stands in the name of the folder there; none for all users. Ignored on Windows,
  /// where only pages of the session are found.
  std::optional<std::uint32_t> userId;
};

struct StatusPageCopy {
  /// By which the page is named; 0 for a folder that cannot be opened.
  std::uint32_t pageProcessId = 0;
  /// The same process as the caller sees it; 0 when the caller sees no such process.
  std::uint32_t processId = 0;
  /// The owner of the page, as the caller sees it.
  std::uint32_t userId = 0;
  /// File or section.
  std::string path;
  /// noError when there are bytes; errorAccessDenied; errorNotTrusted; errorBusy when it was being written for
  /// 50 ms.
  ErrorCode error = noError;
  std::string bytes;
  /// Whether the process has the page in its memory; a program that was started in its place (exec) has not. Nothing
  /// when that cannot be found out.
  std::optional<bool> isInUse;
};

/// What is no file of the owner, of the right size and closed to others.
constexpr ErrorCode errorNotTrusted = 1;
constexpr ErrorCode errorBusy = 170;

/// Copies all pages of a place, at most 4096 for each user. The ids of the processes are compared with nothing: a page
/// may have outlived its process.
std::vector<StatusPageCopy> copyStatusPages(const StatusPagePlace& _place, const StatusPageForm& _form);

}  // namespace platform
