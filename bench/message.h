// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace bench {

// The message of every line: 60 characters, seven of which are the digits of an integer.
#define BENCH_MESSAGE_HEAD "request "
#define BENCH_MESSAGE_TAIL " was served from the cache of node berlin-07."
constexpr int firstInteger = 1000000;
constexpr std::size_t messageSize = sizeof BENCH_MESSAGE_HEAD - 1 + 7 + sizeof BENCH_MESSAGE_TAIL - 1;
static_assert(messageSize == 60);

/// "[App.Module.info] 20261121 10:00:00.123 ", the message and a line feed.
constexpr const char* logName = "App.Module.info";
constexpr std::size_t lineSize = 18 + 22 + messageSize + 1;

/// The i-th of many log names.
inline std::string nameOf(int _i) { return "App.Module" + std::to_string(_i) + ".info"; }

}  // namespace bench
