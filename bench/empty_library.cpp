// SPDX-License-Identifier: MIT
// Nothing: what is left of loading this library is the loading of its dependencies.
