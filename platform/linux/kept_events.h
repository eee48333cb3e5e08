// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/linux/event_file.h"

namespace platform {

/// Makes the process a permanent user of an event, by one reference per name: on Windows a terminated thread leaves its
/// handle open.
void keepEvent(const std::string& _name, std::shared_ptr<EventFile> _file);

/// For fork: holds the references meanwhile. A child, whose copies of the files are closed, drops them in the last of
/// its handlers.
void lockKeptEvents();
void unlockKeptEvents();
void dropKeptEvents();

}  // namespace platform
