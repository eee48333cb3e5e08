// SPDX-License-Identifier: MIT
#pragma once

namespace Quillmark_logging {

// The switches of the process, all false until set. The library writes them while it is loaded (the second one again
// after it has generated a generic configuration file); any thread may read them.

/// The value of QMRK_TRACE in the generic configuration at load time. Never changes after that.
bool loadTimeTrace() noexcept;
void setLoadTimeTrace(bool _on) noexcept;

/// Whether the free functions of Quillmark_logging trace.
bool freeFunctionTrace() noexcept;
void setFreeFunctionTrace(bool _on) noexcept;

/// Whether the library wraps every appender that it connects in a thread-safe one (TS_APPENDERS of the generic
/// configuration at load time). Never changes after that.
bool tsMode() noexcept;
void setTsMode(bool _on) noexcept;

}  // namespace Quillmark_logging
