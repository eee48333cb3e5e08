// SPDX-License-Identifier: MIT
#pragma once

namespace platform {

// Locks on single bytes of a file that belong to the open file description (F_OFD_SETLK): they end when its last
// descriptor is closed, even when the process is killed, and several in one process exclude each other. The bytes
// need not exist.

enum class RecordLock { shared, exclusive, none };

/// Takes, changes (in one step) or releases the lock on a byte, without waiting.
/// @return false when somebody else's lock is in the way, or the system refuses; a lock held before is then kept.
bool tryRecordLock(int _file, long _byte, RecordLock _lock);

/// The same, waiting as long as it takes.
/// @return false only when the system refuses; errno says why.
bool waitForRecordLock(int _file, long _byte, RecordLock _lock);

}  // namespace platform
