// SPDX-License-Identifier: MIT
// qmrkctl: shows and steers the logging of running applications. Each command has a file of its own.
#include "tools/qmrkctl/program.h"

int main(int _argc, char** _argv) { return qmrkctl::runProgram(_argc, _argv); }
