// SPDX-License-Identifier: MIT
// The target that carries the precompiled headers needs a source; the headers are named in CMakeLists.txt.
int main() {}
