# SPDX-License-Identifier: MIT
"""Each rule finds every violation that is planted for it here, and lets the sound text beside it pass."""

import importlib
import pathlib
import sys
import tempfile
import unittest

import source_tree

RULES = {path.stem for path in pathlib.Path(__file__).parent.glob("*.py")} - {
    "source_tree", "check_rule", "planted_violations_test"}

# rule: (sound files, planted files); each planted file must be reported, and no sound one.
PLANTED = {
    "include_direction": (
        {"platform/a.cpp": '#include "platform/clock.h"\n#include <string>\n',
         "config/b.cpp": '#include "trace/trace.h"\n#include "quillmark_logging_names.h"\n#include <boost/function.hpp>\n',
         "logsetup/c.cpp": "#include <boost/logging/logging.hpp>\n",
         "control/d.cpp": '#include "logsetup/levels.h"\n',
         "logmanager/e.cpp": '#include <boost/logging/logging.hpp>\n#include "platform/clock.h"\n',
         "logmanager/g.cpp": '#include "logmanager/names/glob.h"\n#include "logmanager/appenders/lane.h"\n',
         "logmanager/appenders/h.cpp": '#include "logmanager/modifiers/plan.h"\n#include "platform/clock.h"\n',
         "tools/f.cpp": '#include "control/listener.h"\n#include <boost/logging/logging.hpp>\n'},
        {"platform/p.cpp": '#include "trace/trace.h"\n',
         "platform/linux/q.cpp": '#include "quillmark_logging_names.h"\n',
         "trace/r.cpp": '#include "config/store.h"\n',
         "config/s.cpp": '#include "logsetup/levels.h"\n',
         "diagnostics/t.cpp": "#include <boost/logging/logging.hpp>\n",
         "logsetup/u.cpp": '#include "logmanager/registry.h"\n',
         "logsetup/v.cpp": '#include "control/listener.h"\n',
         "control/w.cpp": '  #  include "boost/logging/logging.hpp"\n',
         "logmanager/x.cpp": '#include "trace/trace.h"\n',
         "logmanager/names/a.cpp": '#include "logmanager/threads/thread_state.h"\n',
         "logmanager/threads/b.cpp": '#include "logmanager/context.h"\n',
         "logmanager/modifiers/c.cpp": '#include "logmanager/appenders/lane.h"\n',
         "logmanager/appenders/d.cpp": '#include "logmanager/callable.h"\n',
         "logmanager/include/boost/logging/y.hpp": '#include "platform/clock.h"\n',
         "include/quillmark_logging.h": '#include "trace/trace.h"\n',
         "config/z.cpp": '#include "scanner.h"\n'}),
    "include_circles": (
        {"trace/a.h": '#include "trace/b.h"\n#include "trace/c.h"\n', "trace/b.h": '#include "trace/c.h"\n',
         "trace/c.h": "#include <string>\n", "trace/a.cpp": '#include "trace/a.h"\n'},
        {"config/p.h": '#include "config/p.h"\n',
         "include/q.h": '#include "r.h"\n', "include/r.h": '#include "q.h"\n',
         "logmanager/include/boost/logging/s.hpp": '#  include <boost/logging/detail/t.hpp>\n',
         "logmanager/include/boost/logging/detail/t.hpp": '#include "logmanager/u.h"\n',
         "logmanager/u.h": '#include "boost/logging/s.hpp"\n'}),
    "platform_conditionals": (
        {"platform/win32/a.cpp": "#ifdef _WIN32\n#include <windows.h>\n#endif\n",
         "include/quillmark_logging_export.h": "#if defined(_WIN32)\n#endif\n",
         "tests/support/linux/b.cpp": "#include <unistd.h>\n",
         "trace/c.cpp": "// _WIN32 only in words\n#ifdef NDEBUG\n#endif\n#include <time.h>\n"},
        {"trace/p.cpp": "#ifdef _WIN32\n#endif\n",
         "config/q.h": "#if defined(NDEBUG) && !defined(__linux__)\n#endif\n",
         "logsetup/r.cpp": "#if A\n#elif defined(_MSC_VER)\n#endif\n",
         "tests/config/s.cpp": "#ifndef WIN32\n#endif\n",
         "control/t.cpp": "#include <windows.h>\n",
         "logmanager/u.cpp": "#include <sys/stat.h>\n",
         "tests/support/v.cpp": "#include <unistd.h>\n"}),
    "parameter_names": (
        {"trace/a.cpp": 'void a(int _statistics);  // not _stat\nconst char* b = "_fmode";\n'},
        {"trace/p.cpp": "void p(int _stat);\n",
         "config/q.h": "void q(const std::string& _environ, int _b);\n",
         "logsetup/r.cpp": "int r(int _inline) { return _inline + 1; }\n"}),
    "licence_tags": (
        {"trace/a.cpp": "// SPDX-License-Identifier: MIT\n",
         "scripts/run": "#!/bin/sh\n# SPDX-License-Identifier: MIT\n",
         "docs/man/a.1.scd": "a(1)\n; SPDX-License-Identifier: MIT\n",
         "integrations/a.conf": "# SPDX-License-Identifier: MIT\n",
         "README.md": "# Title\n"},
        {"integrations/p.conf": "[Journal]\n",
         "integrations/q.service": "[Unit]\n",
         "docs/man/r.1.scd": "r(1)\n",
         "trace/p.cpp": "#include <string>\n// SPDX-License-Identifier: MIT\n",
         "trace/q.h": "",
         "cmake/R.cmake": "# Install rules\n",
         "trace/CMakeLists.txt": "target_sources(a)\n",
         "scripts/s": "#!/bin/sh\nexit 0\n"}),
    "size_budgets": (
        {"trace/a.cpp": "\n" * 300, "trace/b.h": "\n" * 120,
         "trace/c.cpp": "// Longer than the budget: one table of one meaning\n" + "\n" * 400},
        {"trace/p.cpp": "\n" * 301, "trace/q.h": "\n" * 121, "tests/trace/r.cpp": "\n" * 301,
         "trace/s.cpp": "// Longer than the budget: \n" + "\n" * 400,
         "include/t.h": "// Longer than the budget: one contract of one library\n" + "\n" * 400}),
    "page_snippets": (
        {"examples/programs/a.cpp": "int main() {\n  first();\n  second();\n\n  third();\n}\n",
         "examples/b/CMakeLists.txt": "add_executable(a a.cpp)\n",
         "README.md": "```cpp\nfirst();\nsecond();\n\nthird();\n```\n```\nnot code\n```\n"
                      "```cmake\nadd_executable(a a.cpp)\n```\n",
         "include/c.h": "/// @code\n///   first();\n///\n///   third();\n/// @endcode\n",
         "config/d.h": "/// @code\n/// fourth();\n/// @endcode\n"},
        {"docs/p.md": "```cpp\nfirst();\nthird();\n```\n", "examples/README.md": "```cpp\nfourth();\n```\n",
         "docs/q.md": "```cmake\nadd_executable(b b.cpp)\n```\n",
         "include/r.h": "/// @code\n/// fourth();\n/// @endcode\n",
         "logmanager/include/boost/logging/s.hpp": "  /// @code\n  /// first();\n  /// fourth();\n  /// @endcode\n"}),
    "page_commands": (
        {"docs/a.md": "```sh\nls\n```\n```text\nscripts/test says so\n```\n<!-- sh\nls\n-->\n```cpp\nf();\n```\n",
         "tests/docs/CMakeLists.txt": "foreach(page IN ITEMS a b)\nendforeach()\n",
         "README.md": "- A list,\n    continued\n\n```text\n[A.b] text\n```\n```cmake\n\n    f()\n```\n",
         "docs/b.md": "# B\n```sh\nls\n```\n# C\n```sh status=1\nls\n```\n",
         "docs/c.md": "# D e\n```sh\nls\n```\n", "docs/d.md": "# D\n```sh\nls\n```\n",
         "docs/windows.md": "## Building with MSVC\n```sh\nls\n```\n## Building on Debian 12, with mingw-w64\n```sh\nls\n```\n",
         "tests/x_test.sh": "#!/bin/sh\npython3 \"$ROOT/tests/docs/page_blocks.py\" \"$ROOT/docs/c.md\" 'D e' 1/1\n",
         "tests/y_test.py": "a = commands_below(ROOT / \"docs/d.md\", \"D\")\nb = commands_below(ROOT / \"docs/u.md\", \"B\")\n",
         "tests/z_test.sh": "#!/bin/sh\npage_blocks.py docs/v.md 'A' 1/1\n"},
        {"docs/p.md": "Text.\n```sh\nls\n```\n", "examples/README.md": "```console\nls\n```\n",
         "docs/q.md": "```sh status=1\nfalse\n```\n", "docs/r.md": "Text:\n\n    ls\n",
         "docs/s.md": "```\nls\n```\n", "docs/w.md": "<pre>\nls\n</pre>\n", "docs/x.md": "1. Do\n    ```sh\n    ls\n    ```\n",
         "docs/y.md": "~~~sh\nls\n~~~\n", "docs/z.md": "```sh\nls\n", "docs/t.md": "```text\nscripts/test release\n```\n",
         "docs/u.md": "# A\n```sh\nls\n```\n# B\n```sh\nls\n```\n", "docs/v.md": "# A\n```text\nls\n```\n",
         "CONTRIBUTING.md": "# Tests\nNone.\n"}),
    "page_links": (
        {"docs/a.md": "# A: `b` (c)\n[b](../README.md#two-words) ![p](p.svg) [self](#a-b-c)\n```text\n[x](gone.md)\n```\n`[y](gone.md)`\n"
                      "[folder](../examples) [site](https://example.org/a_b?c=d#e) [mail](mailto:a@example.org)\n",
         "docs/p.svg": "", "README.md": "## Two words\n## Same\n## Same\n[s](#same-1)\n", "examples/x.cpp": ""},
        {"docs/p.md": "[b](gone.md)\n", "docs/q.md": "# Q\n[c](#r)\n", "docs/r.md": "[d](q.md#none)\n",
         "docs/s.md": "[e](https://no site)\n", "docs/t.md": "![f](../gone.svg)\n", "docs/u.md": "[g]: gone.md\n"}),
    "file_names": (
        {"platform/linux/clock.cpp": "", "platform/win32/clock.cpp": "", "trace/trace.h": "", "trace/trace.cpp": ""},
        {"zlast/trace.h": "", "trace/string_utils.h": "", "config/common.cpp": "", "config/helpers.h": ""}),
    "header_guards": (
        {"trace/a.h": "#pragma once\n", "include/b.h": "#ifndef B_H\n#define B_H\n#endif\n"},
        {"trace/p.h": "int p();\n", "include/q.h": "#pragma once\n",
         "logmanager/include/boost/logging/r.hpp": "#ifndef R_H\n#define S_H\n#endif\n"}),
    "self_contained_text": (
        {"README.md": "The parts of a line; part 3 of 4; version 1.2; a shared library.\n",
         "trace/a.cpp": "// specific to one class; /home/u/.local/share\n"},
        # In two pieces, so that the words do not stand here either.
        {"docs/p.md": "as P" "art 3.2 says\n",
         "trace/q.cpp": "// see P" "arts 2.1 and 2.2\n",
         "trace/r.h": "// required by the spec" "ification\n",
         "scripts/s.sh": "cat .." "/shared/notes\n",
         "CMakeLists.txt": "# see /work/notes\n",
         "trace/u.cpp": "// issue 12 asks for it\n"}),
    "documented_files": (
        {"docs/a.md": "`trace/line.cpp` and `line.cpp`\n| function | file |\n|---|---|\n| `first`, `second` | `trace/line.cpp` |\n",
         "trace/line.cpp": "void first() {}\nint second(int _a) {\n}\nvoid later();\n",
         "tests/exports/a.txt": "Quillmark_logging::first()\nLogEventHandler::closeHandle(void*)\n"},
        {"docs/p.md": "`trace/gone.cpp`\n",
         "docs/q.md": "| `later` | `trace/line.cpp` |\n",
         "tests/exports/r.txt": "boost::logging::unknown(int)\n"}),
    "honest_tests": (
        {"tests/a_test.cpp": "// GTEST_SKIP is not used\nTEST(A, B) {}\n",
         "trace/b.cpp": "int f();  // NOLINT(misc-x): the C run-time declares it so\n"
                        "// NOLINTBEGIN(misc-x): the C run-time declares it so\n// NOLINTEND(misc-x)\n"},
        {"tests/p_test.cpp": "TEST(A, DISABLED_B) {}\n",
         "tests/q_test.cpp": "TEST(A, B) { GTEST_SKIP() << 1; }\n",
         "tests/r_test.cpp": "TEST(A, B) { EXPECT_TRUE(true); }\n",
         "tests/s_test.cpp": "TEST(A, B) { SUCCEED(); }\n",
         "trace/t.cpp": "// TODO: finish\n",
         "trace/u.cpp": "int f();  // NOLINT\n",
         "trace/v.cpp": "// NOLINTNEXTLINE(misc-x)\nint f();\n"}),
}


def _write(root, files):
    for path, content in files.items():
        full = pathlib.Path(root, path)
        full.parent.mkdir(parents=True, exist_ok=True)
        full.write_text(content, encoding="utf-8")


class PlantedViolations(unittest.TestCase):
    def check(self, rule):
        sound, planted = PLANTED[rule]
        with tempfile.TemporaryDirectory() as root:
            _write(root, {**sound, **planted})
            found = list(importlib.import_module(rule).violations(source_tree.read_tree(root)))
        reported = {violation.split(":")[0] for violation in found}
        self.assertEqual(reported, set(planted), msg="\n".join(found))

    def test_every_rule_has_planted_violations(self):
        self.assertEqual(RULES, set(PLANTED))

    def test_build_folders_are_not_read(self):
        with tempfile.TemporaryDirectory() as root:
            _write(root, {"build/x/trace/p.h": "int p();\n", "trace/q.h": "#pragma once\n"})
            self.assertEqual([file.path for file in source_tree.read_tree(root)], ["trace/q.h"])


def _add_rule_test(rule):
    setattr(PlantedViolations, f"test_{rule}_finds_what_is_planted", lambda self: self.check(rule))


for _rule in PLANTED:
    _add_rule_test(_rule)

if __name__ == "__main__":
    sys.dont_write_bytecode = True
    unittest.main(verbosity=2)
