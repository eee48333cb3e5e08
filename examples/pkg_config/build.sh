#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the programs without CMake, into the current folder. Where the package is not below /usr or /usr/local:
# PKG_CONFIG_PATH=<prefix>/lib/pkgconfig, and LDFLAGS=-Wl,-rpath,<prefix>/lib to run the programs from there.
set -e
for source in "$(dirname "$0")"/../programs/*.cpp; do
  # shellcheck disable=SC2046,SC2086  # the flags are words to be split
  ${CXX:-g++} -std=c++11 -pthread $CXXFLAGS "$source" -o "$(basename "$source" .cpp)" \
    $(pkg-config --cflags --libs qmrk_log) $LDFLAGS
done
