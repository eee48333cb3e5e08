// SPDX-License-Identifier: MIT
// A module with nothing in it but this.
extern "C" __declspec(dllexport) int unstampedModule() { return 0; }
