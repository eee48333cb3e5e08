// SPDX-License-Identifier: MIT
#pragma once

namespace toolsystem {

enum class Stream { input, output, error };

/// Whether a stream of the program is a terminal.
bool isTerminal(Stream _stream);

/// Makes writes to a pipe whose reader has gone fail (EPIPE) instead of ending the program, from now on.
void ignoreClosedPipes();

/// Takes the place of each standard stream that is closed, where the next file that is opened would receive what is
/// meant for the stream. To write to it fails as before.
void reserveClosedStreams();

}  // namespace toolsystem
