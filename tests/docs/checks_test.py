#!/usr/bin/env python3
"""Tests of the checks themselves: what is wrong in a document is found."""

import pathlib
import tempfile
import unittest

import check_layers
import check_links
import run_commands
from markdown import Document, anchor_of


def found_in(files, check=check_links):
    """What a check finds in a project of these files."""
    with tempfile.TemporaryDirectory() as folder:
        for name, text in files.items():
            path = pathlib.Path(folder) / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        return list(check.problems(folder))


class Links(unittest.TestCase):
    def test_dead_links_anchors_and_pictures_are_found_by_line(self):
        problems = found_in({"a.md": "# A\n\n[x](b.md) [y](b.md#no)\n![z](z.png)\n[w](#a)\n", "b.md": "# B\n[v](../c)\n"})

        self.assertEqual(problems, ["a.md:3: b.md#no: no such heading", "a.md:4: z.png: no such file",
                                    "b.md:2: ../c: leaves the project"])

    def test_headings_have_the_anchors_that_viewers_make(self):
        self.assertEqual(anchor_of("Time base, 0xF1000208"), "time-base-0xf1000208")
        self.assertEqual(anchor_of("`Get` the [set](x.md)"), "get-the-set")
        self.assertEqual(Document("# A\n## A\n<a id=\"b\"></a>\n").anchors(), {"a", "a-1", "b"})

    def test_links_in_code_and_to_other_places_are_left_alone(self):
        self.assertEqual(found_in({"a.md": "`[x](no.md)`\n```cpp\n[y](no.md)\n```\n[z](https://example.org/no.md)\n"}), [])

    def test_a_document_that_the_index_leaves_out_is_found(self):
        self.assertEqual(found_in({"docs/README.md": "[a](a.md)\n", "docs/a.md": "", "docs/b/c.md": ""}),
                         ["docs/README.md: does not link docs/b/c.md"])

    def test_a_block_without_an_end_is_found(self):
        self.assertEqual(found_in({"a.md": "```\nx\n"}), ["a.md: the block that begins in line 1 has no end"])


class Layers(unittest.TestCase):
    TABLE = ("## Layers\n\n| folder | may include | must not |\n|---|---|---|\n| `src/low` | | x |\n"
             "| `src/low/inner` | `src/low/a.h` | x |\n| `src/high` | the lock of `src/low/a.h`, `include` | `src/low` |\n"
             "| `include` | | x |\n\n## More\n\n| `src` | `src` | x |\n")
    HEADERS = {"docs/architecture.md": TABLE, "src/low/a.h": "", "src/low/b.h": "", "src/low/inner/c.h": "",
               "src/high/d.h": "", "include/k/e.h": ""}

    def found(self, files):
        return found_in(self.HEADERS | files, check_layers)

    def test_what_the_table_allows_is_nothing_to_tell(self):
        self.assertEqual(self.found({
            "src/low/x.cpp": '#include "low/a.h"\n#include "b.h"\n#include "low/inner/c.h"\n#include <windows.h>\n',
            "src/low/inner/x.cpp": '#include "low/a.h"\n',
            "src/high/x.cpp": '#include "low/a.h"\n#include <k/e.h>\n// #include "low/b.h"\n',
        }), [])

    def test_what_it_does_not_allow_is_found_by_line(self):
        self.assertEqual(self.found({
            "src/high/x.cpp": '#include "low/a.h"\n# include "../low/b.h"\n#include "low/inner/c.h"\n',
            "src/low/inner/x.h": '#include "low/b.h"\n',
            "src/low/x.cpp": '#include "high/d.h"\n#include <k/e.h>\n',
        }), ["src/high/x.cpp:2: src/low/b.h is not for src/high",
             "src/high/x.cpp:3: src/low/inner/c.h is not for src/high",
             "src/low/inner/x.h:1: src/low/b.h is not for src/low/inner",
             "src/low/x.cpp:1: src/high/d.h is not for src/low",
             "src/low/x.cpp:2: include/k/e.h is not for src/low"])

    def test_folders_without_a_row_and_rows_without_a_folder_are_found(self):
        self.assertEqual(found_in({"docs/architecture.md": self.TABLE, "src/low/a.h": "", "src/low/inner/c.h": "",
                                   "src/high/d.h": "", "src/new/f.cpp": ""}, check_layers),
                         ["docs/architecture.md: include: no such folder or file",
                          "docs/architecture.md: include: no such folder or file",
                          "docs/architecture.md: no row for the folder of src/new/f.cpp"])


def commands_in(text, name="a.md"):
    return list(run_commands.commands_of(name, Document(text), set()))


class Commands(unittest.TestCase):
    def test_a_console_block_is_split_into_commands_and_what_they_print(self):
        commands = commands_in("x\n```console\n$ a \\\n  b\none\n\n$ c\n```\n")

        self.assertEqual([(c.line, c.text, c.expected) for c in commands], [(3, "a \\\n  b", ["one"]), (7, "c", None)])

    def test_output_of_an_example_is_not_compared(self):
        self.assertEqual(commands_in("```console example\n$ a\none\n```\n")[0].expected, None)

    def test_blocks_that_say_not_how_they_are_run_are_refused(self):
        for text in ("```\n$ a\n```\n", "```powershell\na\n```\n", "```console\na\n```\n", "```console twice\n$ a\n```\n"):
            with self.assertRaises(ValueError, msg=text):
                commands_in(text)

    def test_wildcards_stand_for_parts_of_lines_and_for_lines(self):
        for expected, printed, same in [
            (["a … c"], "a b c\n", True),
            (["a … c"], "a b d\n", False),
            (["a", "…", "d"], "a\nb\nc\nd\n\n", True),
            (["a", "…", "d"], "a\nd\n", True),
            (["a"], "a\nb\n", False),
            (["a", "b"], "a\n", False),
            (["a.c"], "abc\n", False),
        ]:
            self.assertEqual(run_commands.matches(expected, printed), same, (expected, printed))

    def results(self, text):
        """What the check finds in a document whose commands are really run, by the shell at hand."""
        import subprocess
        commands = commands_in(text)
        run = subprocess.run(["bash", "-c", run_commands.shell_script(commands)], stdout=subprocess.PIPE,
                             stderr=subprocess.STDOUT, text=True, check=False)
        return list(run_commands.problems("a.md", commands, run.stdout))

    def test_commands_share_a_shell_and_an_expected_failure_is_none(self):
        self.assertEqual(self.results("```sh\nx=1\n```\n```console\n$ echo $x\n1\n$ (exit 3)\n$ echo $?\n3\n```\n"), [])

    def test_failures_and_other_output_are_found(self):
        self.assertIn("-- failed (status 3)", self.results("```console\n$ (exit 3)\n$ true\n```\n")[0])
        self.assertIn("-- it prints:\n2", self.results("```console\n$ echo 2\n1\n```\n")[0])
        self.assertIn("a.md:1", self.results("```sh\ntrue\nfalse\n```\n")[0])
        self.assertIn("-- failed (no status)", self.results("```console\n$ exit 0\n$ echo 1\n```\n")[0])


if __name__ == "__main__":
    unittest.main()
