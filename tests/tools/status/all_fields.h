// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "diagnostics/status_page_file_entry.h"
#include "diagnostics/status_page_layout.h"

namespace Quillmark_logging::status {

/// Every field of the page, in its order.
// clang-format off
inline constexpr std::array allFields{
    magicField, version, size, sequence, writtenAt, pid, userId, startTime, modes, caSource, caChanges,
    setUpCall, setUpAt, setUpResult, setUpFailure, classGeneration, classesAt, classHash, updateAt,
    updateResult, updateFailure, ownChangeAt, ownChange, listenerState, listenerThreads, listenerError,
    listenerGeneration, listenerWakes, listenerAt, listenerFailedAt, filesUsed, filesLeftOut, pidNamespace,
    user, libraryVersion, caAsked, caInEffect, classCa, listenerCa, listenerEvent, listenerFailure,
    setUpError, updateError, ownPattern, program, cfgPath, initPath, commonLogPath, applications, classText,
    filter, logs, files};

/// Every field of an entry for a file.
inline constexpr std::array allFileFields{
    fileKind, fileState, fileLost, fileDropped, fileFailedAt, fileHeld, fileError, filePath};
// clang-format on

}  // namespace Quillmark_logging::status
