# SPDX-License-Identifier: MIT
"""Every source, script and build file names its licence in its first line (after the line that names an interpreter or a man page)."""

TAGGED_ENDINGS = (".cpp", ".h", ".hpp", ".py", ".sh", ".cmake", "CMakeLists.txt", ".in", ".map", ".rc", ".conf",
                  ".service", ".scd")


def violations(files):
    for file in files:
        first = file.lines[0] if file.lines else ""
        script = first.startswith("#!")
        if not script and not file.path.endswith(TAGGED_ENDINGS):
            continue
        if script or file.path.endswith(".scd"):
            first = file.lines[1] if len(file.lines) > 1 else ""
        # REUSE-IgnoreStart
        if "SPDX-License-Identifier: MIT" not in first:
            # REUSE-IgnoreEnd
            yield f"{file.path}:1: the licence tag is missing"
