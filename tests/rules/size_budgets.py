# SPDX-License-Identifier: MIT
"""A file has at most 300 lines and a header at most 120, unless a comment in it says why not. Public headers have no such
comment: they are for applications, and are divided instead. (The budget of functions is clang-tidy's
readability-function-size.)"""

import re

FILE_BUDGET = 300
HEADER_BUDGET = 120
REASON = re.compile(r"(?://|#|^ ?\*|/\*)\s*Longer than the budget: \w.{9,}", re.MULTILINE)


def violations(files):
    for file in files:
        if not file.is_cxx() and not file.path.endswith((".py", ".sh")):
            continue
        budget = HEADER_BUDGET if file.is_header() else FILE_BUDGET
        is_public = file.path.startswith(("include/", "logmanager/include/"))
        if len(file.lines) > budget and (is_public or not REASON.search(file.content)):
            yield f"{file.path}:{budget}: {len(file.lines)} lines, the budget is {budget}"
