// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/linux/event_file.h"

namespace platform {

/// Makes the process a user of an event for good, by one reference for each name: on Windows a terminated thread leaves
/// its handle open.
void keepEvent(const std::string& _name, std::shared_ptr<EventFile> _file);

/// For fork: keeps the references as they are meanwhile; a child, whose copies of the files are closed, drops them, as
/// the last of its handlers.
void lockKeptEvents();
void unlockKeptEvents();
void dropKeptEvents();

}  // namespace platform
