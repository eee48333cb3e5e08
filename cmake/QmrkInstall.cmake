# SPDX-License-Identifier: MIT
# Install rules and packages.
