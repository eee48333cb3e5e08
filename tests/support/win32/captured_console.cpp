// SPDX-License-Identifier: MIT
#include "tests/support/captured_console.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "platform/win32/windows_api.h"

// What _cprintf writes reaches the screen buffer of the console and nothing else, so it is read back from there. With
// processing off, control characters are stored in cells like any others; then the text is what the cells up to the
// cursor hold, byte for byte.

namespace testsupport {
namespace {

constexpr SHORT width = 256;
constexpr SHORT height = 4096;
constexpr DWORD rowsAtOnce = 64;

[[noreturn]] void fail(const char* _what) {
  std::fprintf(stderr, "captured console: %s, error %lu\n", _what, ::GetLastError());
  std::abort();
}

HANDLE openConsole() {
  const HANDLE console = ::CreateFileA("CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                       nullptr, OPEN_EXISTING, 0, nullptr);
  if (console == INVALID_HANDLE_VALUE) fail("the process has no console");
  return console;
}

CONSOLE_SCREEN_BUFFER_INFO infoOf(HANDLE _console) {
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (!::GetConsoleScreenBufferInfo(_console, &info)) fail("no screen buffer");
  return info;
}

DWORD modeOf(HANDLE _console) {
  DWORD mode = 0;
  if (!::GetConsoleMode(_console, &mode)) fail("no mode");
  return mode;
}

// Only once, because it takes its time.
void enlarge(HANDLE _console) {
  const COORD size = infoOf(_console).dwSize;
  if (size.X == width && size.Y == height) return;
  if (!::SetConsoleScreenBufferSize(_console, {width, height})) fail("the screen buffer cannot be enlarged");
}

}  // namespace

struct CapturedConsole::State {
  HANDLE console = openConsole();
  DWORD formerMode = modeOf(console);
  UINT formerCodePage = ::GetConsoleOutputCP();
};

CapturedConsole::CapturedConsole() : state_(new State) {
  ::SetConsoleOutputCP(::GetACP());
  enlarge(state_->console);
  if (!::SetConsoleMode(state_->console, ENABLE_WRAP_AT_EOL_OUTPUT)) fail("processing cannot be switched off");
  if (!::SetConsoleCursorPosition(state_->console, {0, 0})) fail("the cursor cannot be set");
}

CapturedConsole::~CapturedConsole() {
  ::SetConsoleMode(state_->console, state_->formerMode);
  ::SetConsoleOutputCP(state_->formerCodePage);
  ::SetConsoleCursorPosition(state_->console, {0, 0});
  ::CloseHandle(state_->console);
  delete state_;
}

std::string CapturedConsole::text() const {
  const CONSOLE_SCREEN_BUFFER_INFO info = infoOf(state_->console);
  const COORD cursor = info.dwCursorPosition;
  if (info.dwSize.X != width || cursor.Y >= height - 1) fail("the text is larger than the screen buffer");
  const DWORD size = static_cast<DWORD>(cursor.Y) * width + static_cast<DWORD>(cursor.X);
  std::string text(size, '\0');
  for (DWORD done = 0; done < size;) {
    const DWORD part = std::min<DWORD>(size - done, rowsAtOnce * width);
    DWORD got = 0;
    const COORD row{0, static_cast<SHORT>(done / width)};
    if (!::ReadConsoleOutputCharacterA(state_->console, text.data() + done, part, row, &got) || got != part) {
      fail("the rows cannot be read");
    }
    done += part;
  }
  return text;
}

}  // namespace testsupport
