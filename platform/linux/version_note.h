// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "platform/module_version.h"

namespace platform {

// The version of a binary is an ELF note in the section .note.qmrk.version, made by version_note.cpp.in: owner and type
// below, and as descriptor the four words of the version block in their order, in the byte order of the file.
constexpr char versionNoteOwner[] = "QMRK";
constexpr std::uint32_t versionNoteType = 1;

/// Copies bytes of a file into a buffer: takes the offset of the first, the buffer and the number of bytes; false when
/// not all of them exist.
using ReadAt = std::function<bool(std::uint64_t, unsigned char*, std::size_t)>;

/// Finds the version note of an ELF file, of 32 or 64 bits and either byte order, through its program headers. Whatever
/// the file holds, nothing outside it is read, and time and memory are bounded.
/// @param _version untouched on failure.
bool readVersionNote(const ReadAt& _readAt, FixedVersion& _version);

}  // namespace platform
