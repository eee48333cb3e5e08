// SPDX-License-Identifier: MIT
#pragma once

namespace toolsystem {

enum class Stream { input, output, error };

/// Whether a stream of the program is a terminal.
bool isTerminal(Stream _stream);

/// A write to a pipe whose reader has gone fails from now on (EPIPE) instead of ending the program.
void ignoreClosedPipes();

}  // namespace toolsystem
