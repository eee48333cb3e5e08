// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Quillmark_logging::status {

// The status page: what a process shows of its logging to tools, in 64 KiB that it shares. docs/status-page.md explains
// every field. All numbers are little-endian and aligned to their size. Another version of the layout may change
// everything behind the version.

constexpr std::size_t pageSize = 65'536;
constexpr std::string_view magic = "QMRKSTAT";
constexpr std::uint32_t layoutVersion = 1;

enum class Kind : std::uint8_t {
  bytes,   ///< as they are
  number,  ///< of 4 or 8 bytes
  text,    ///< 4 bytes: how many are stored; 4 bytes: how many the whole text has; the stored ones, room for the rest
  list,    ///< 4 bytes: entries; 4 bytes: entries left out; 4 bytes: bytes used; 4 bytes: 0; the entries, see below
  files,   ///< fileCount entries of fileSize bytes
};

struct Field {
  const char* name;
  Kind kind;
  std::uint32_t offset;
  std::uint32_t size;  ///< with all that belongs to the kind
};

constexpr std::uint32_t textHead = 8;
constexpr std::uint32_t listHead = 16;
/// An entry of a list: 2 bytes with the size of its text, 1 byte with flags, the text.
constexpr std::uint32_t entryHead = 3;

// ---- The process ----
constexpr Field magicField{"magic", Kind::bytes, 0, 8};
constexpr Field version{"version", Kind::number, 8, 4};
constexpr Field size{"size", Kind::number, 12, 4};
constexpr Field sequence{"sequence", Kind::number, 16, 8};
constexpr Field writtenAt{"written_at", Kind::number, 24, 8};
constexpr Field pid{"pid", Kind::number, 32, 4};
constexpr Field userId{"user_id", Kind::number, 36, 4};
constexpr Field startTime{"start_time", Kind::number, 40, 8};
constexpr Field modes{"modes", Kind::number, 48, 4};
constexpr Field caSource{"ca_source", Kind::number, 52, 4};
constexpr Field caChanges{"ca_changes", Kind::number, 56, 4};
constexpr Field setUpCall{"set_up_call", Kind::number, 60, 4};
constexpr Field setUpAt{"set_up_at", Kind::number, 64, 8};
constexpr Field setUpResult{"set_up_result", Kind::number, 72, 4};
constexpr Field setUpFailure{"set_up_failure", Kind::number, 76, 4};
// ---- Classes ----
constexpr Field classGeneration{"class_generation", Kind::number, 80, 8};
constexpr Field classesAt{"classes_at", Kind::number, 88, 8};
constexpr Field classHash{"class_hash", Kind::number, 96, 8};
constexpr Field updateAt{"update_at", Kind::number, 104, 8};
constexpr Field updateResult{"update_result", Kind::number, 112, 4};
constexpr Field updateFailure{"update_failure", Kind::number, 116, 4};
constexpr Field ownChangeAt{"own_change_at", Kind::number, 120, 8};
constexpr Field ownChange{"own_change", Kind::number, 128, 4};
// ---- The listener ----
constexpr Field listenerState{"listener_state", Kind::number, 132, 4};
constexpr Field listenerThreads{"listener_threads", Kind::number, 136, 4};
constexpr Field listenerError{"listener_error", Kind::number, 140, 4};
constexpr Field listenerGeneration{"listener_generation", Kind::number, 144, 8};
constexpr Field listenerWakes{"listener_wakes", Kind::number, 152, 8};
constexpr Field listenerAt{"listener_at", Kind::number, 160, 8};
constexpr Field listenerFailedAt{"listener_failed_at", Kind::number, 168, 8};
// ---- Files ----
constexpr Field filesUsed{"files_used", Kind::number, 176, 4};
constexpr Field filesLeftOut{"files_left_out", Kind::number, 180, 4};
constexpr Field pidNamespace{"pid_namespace", Kind::number, 184, 8};
// ---- Texts and lists ----
constexpr Field user{"user", Kind::text, 192, 128};
constexpr Field libraryVersion{"library_version", Kind::text, 320, 64};
constexpr Field caAsked{"ca_asked", Kind::text, 384, 64};
constexpr Field caInEffect{"ca_in_effect", Kind::text, 448, 64};
constexpr Field classCa{"class_ca", Kind::text, 512, 64};
constexpr Field listenerCa{"listener_ca", Kind::text, 576, 64};
constexpr Field listenerEvent{"listener_event", Kind::text, 640, 256};
constexpr Field listenerFailure{"listener_failure", Kind::text, 896, 256};
constexpr Field setUpError{"set_up_error", Kind::text, 1'152, 1'024};
constexpr Field updateError{"update_error", Kind::text, 2'176, 1'024};
constexpr Field ownPattern{"own_pattern", Kind::text, 3'200, 256};
constexpr Field program{"program", Kind::text, 3'456, 1'024};
constexpr Field cfgPath{"cfg_path", Kind::text, 4'480, 1'024};
constexpr Field initPath{"init_path", Kind::text, 5'504, 1'024};
constexpr Field commonLogPath{"common_log_path", Kind::text, 6'528, 1'024};
constexpr Field applications{"applications", Kind::list, 7'552, 2'048};
constexpr Field classText{"class_text", Kind::text, 9'600, 12'288};
constexpr Field filter{"filter", Kind::text, 21'888, 8'192};
constexpr Field logs{"logs", Kind::list, 30'080, 24'192};
constexpr Field files{"files", Kind::files, 54'272, 11'264};

}  // namespace Quillmark_logging::status
