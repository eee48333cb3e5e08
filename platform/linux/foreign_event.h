// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/errors.h"
#include "platform/linux/event_folder.h"

namespace platform {

/// Sets an event in the folder of another user, or in that of another /dev/shm, for a caller who may: openEvent,
/// setEvent and closeHandle in one. Never creates one.
/// @return noError, or the reason as openEvent gives it: errorFileNotFound when nobody holds such an event.
ErrorCode setForeignEvent(const EventFolder& _folder, const std::string& _name);

}  // namespace platform
