// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/linux/event_file.h"

namespace platform {

/// Makes the process a permanent user of an event, by one reference per name: on Windows a terminated thread leaves its
/// handle open. Needs no memory, since a thread that ends has nobody to tell that it is lacking.
void keepEvent(std::shared_ptr<EventFile> _file);

/// For fork: holds the references meanwhile. A child, whose copies of the files are closed, drops them in the last of
/// its handlers. Only what prepareKeptEvents makes takes memory.
void prepareKeptEvents();
void lockKeptEvents();
void unlockKeptEvents();
void dropKeptEvents();

}  // namespace platform
