// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/status_pages.h"

namespace platform {

/// The name of the section in which a process shows its page.
std::string statusSectionName(std::uint32_t _processId);

/// The sequence number of a mapped page.
std::uint64_t statusSequence(const char* _page, const StatusPageForm& _form);

/// Copies a mapped page; false when it was written meanwhile.
bool tryToCopyStatusPage(const char* _page, const StatusPageForm& _form, std::string& _bytes);

}  // namespace platform
