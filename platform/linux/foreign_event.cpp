// SPDX-License-Identifier: MIT
#include "platform/linux/foreign_event.h"

#include "platform/linux/event_file.h"
#include "platform/linux/event_name.h"
#include "platform/linux/event_word.h"

namespace platform {

ErrorCode setForeignEvent(const EventFolder& _folder, const std::string& _name) {
  const ErrorCode error = checkEventName(_name);
  if (error != noError) return error;
  const EventFile::Joined joined = EventFile::join(_name, EventFile::Joining::openOnly, _folder);
  if (joined.file == nullptr) return joined.error;
  setEventWord(joined.file->word());
  return noError;
}

}  // namespace platform
