#!/usr/bin/env python3
"""Tests the checker of the documentation on small trees, then lets it loose on this one."""
import tempfile
import unittest
from pathlib import Path

from check_docs import Checker

SNIPPET = "<!-- snippet: src/a.cpp#use -->\n```cpp\n{}\n```\n"
SOURCE = "int f() {\n  // [snippet: use]\n  if (x) {\n    y();\n  }\n  // [snippet end]\n}\n"
USE = "if (x) {\n  y();\n}"


class CheckDocsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.write("README.md", "# Title\n")

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        return path

    def expect(self, *problems):
        self.assertEqual(Checker(self.root).run(), list(problems))

    def expect_page(self, page, *problems):
        self.write("docs/page.md", page)
        self.expect(*(f"docs/page.md:{problem}" for problem in problems))

    # Code blocks

    def test_snippet_equals_its_region(self):
        self.write("src/a.cpp", SOURCE)
        self.expect_page(SNIPPET.format(USE))

    def test_wrong_snippet(self):
        self.write("src/a.cpp", SOURCE)
        page = SNIPPET.format(USE.replace("y", "z"))
        self.expect_page(page, "2: the code block differs from src/a.cpp#use")

    def test_snippet_with_other_indentation(self):
        self.write("src/a.cpp", SOURCE)
        page = SNIPPET.format(USE.replace("  y", " y"))
        self.expect_page(page, "2: the code block differs from src/a.cpp#use")

    def test_region_that_is_not_marked(self):
        self.write("src/a.cpp", "")
        self.expect_page(SNIPPET.format(USE), "2: src/a.cpp marks 'use' 0 times, not once")

    def test_region_marked_twice(self):
        self.write("src/a.cpp", SOURCE + SOURCE)
        self.expect_page(SNIPPET.format(USE), "2: src/a.cpp marks 'use' 2 times, not once")

    def test_missing_source(self):
        self.expect_page(SNIPPET.format(USE), "2: there is no source src/a.cpp")

    def test_whole_file(self):
        self.write("data/a.xml", "<a>\n  <b/>\n</a>\n")
        page = "<!-- snippet: data/a.xml -->\n```xml\n<a>\n  <b/>\n</a>\n```\n"
        self.expect_page(page)
        self.write("data/a.xml", "<a/>\n")
        self.expect_page(page, "2: the code block differs from data/a.xml")

    def test_data_needs_no_origin(self):
        self.expect_page("```text\nanything\n```\n")

    def test_code_without_origin(self):
        page = "```sh\nls\n```\n"
        self.expect_page(page, "1: no snippet or command is named above the code block")

    def test_origin_must_stand_right_above(self):
        self.write("src/a.cpp", SOURCE)
        page = SNIPPET.format(USE).replace("-->", "-->\nText.")
        self.expect_page(page, "3: no snippet or command is named above the code block")

    def test_block_without_language(self):
        problem = "1: the code block must name its language: cmake, cpp, dot, ini, json, sh, text, xml"
        self.expect_page("```\nint x;\n```\n", problem)

    def test_block_without_end(self):
        self.expect_page("```text\n", "1: the code block has no end")

    def test_command(self):
        self.write("scripts/demo", "").chmod(0o755)
        self.expect_page("<!-- command: scripts/demo -->\n```sh\nscripts/demo\n```\n")

    def test_command_that_cannot_be_run(self):
        self.write("scripts/demo", "").chmod(0o644)
        page = "<!-- command: scripts/demo -->\n```sh\nscripts/demo\n```\n"
        self.expect_page(page, "2: scripts/demo is not an executable file")

    def test_command_that_the_block_does_not_run(self):
        self.write("scripts/demo", "").chmod(0o755)
        page = "<!-- command: scripts/demo -->\n```sh\nscripts/test\n```\n"
        self.expect_page(page, "2: the code block does not run scripts/demo")

    # Links

    def test_links_that_lead_somewhere(self):
        page = "# A `b` c\n[1](../README.md#title) [2](#a-b-c) [3](http://x.y) ![4](../docs/)\n"
        self.expect_page(page + "`[code](nowhere)`\n```text\n[block](nowhere)\n```\n")

    def test_dead_link(self):
        self.expect_page("[text](nowhere.md)\n", "1: the link nowhere.md is dead")

    def test_dead_image(self):
        page = 'Text\n![text](a.svg)\n<img src="b.svg">\n'
        self.expect_page(page, "2: the link a.svg is dead", "3: the link b.svg is dead")

    def test_dead_link_around_an_image(self):
        page = "[![x](b.svg)](c.svg)\n"
        self.expect_page(page, "1: the link b.svg is dead", "1: the link c.svg is dead")

    def test_dead_definition(self):
        self.expect_page("[text]: nowhere.md\n", "1: the link nowhere.md is dead")

    def test_dead_anchor(self):
        page = "# Here\n[1](#there) [2](../README.md#there)\n"
        self.expect_page(
            page, "2: the link #there names no heading", "2: the link ../README.md#there names no heading"
        )

    def test_link_out_of_the_tree(self):
        self.expect_page("[text](../../x)\n", "1: the link ../../x leaves the tree")

    def test_link_into_the_build(self):
        self.write("build/x.svg", "")
        self.expect_page("[text](../build/x.svg)\n", "1: the link ../build/x.svg is dead")

    # README.md

    def test_missing_readme(self):
        (self.root / "README.md").unlink()
        self.expect("README.md:1: the file is missing")

    def test_long_readme(self):
        self.write("README.md", "line\n" * 120)
        self.expect()
        self.write("README.md", "line\n" * 121)
        self.expect("README.md:121: there are more than 120 lines")

    # Names of tests

    def test_names_that_exist(self):
        self.write("tests/a_test.cpp", "TEST(ATest, B) {}\nTEST_F(C, D) {}\nTEST_P(E,\n  F) {}\n")
        self.write("src/a.cpp", "// Kept: this\n// way (ATest.B, C.D).\nint x;  // kept: E.F\n")
        self.write("include/a.h", "// Text (ATest).\n// And (C.D).\n")
        self.expect()

    def test_missing_name(self):
        self.write("tests/a_test.cpp", "TEST(ATest, B) {}\n")
        self.write("src/a.cpp", "int x;\n// Kept: this way\n// (ATest.C).\n")
        self.expect("src/a.cpp:2: there is no test ATest.C")

    def test_missing_name_outside_a_kept_comment(self):
        self.write("include/a.h", "int x;  // like this (ATest.C)\n")
        self.expect("include/a.h:1: there is no test ATest.C")

    def test_missing_suite(self):
        self.write("src/a.cpp", "// kept: pinned by BTest\n")
        self.expect("src/a.cpp:1: there is no test BTest")

    def test_kept_without_a_test(self):
        self.write("src/a.cpp", "// Kept: just so.\n")
        self.expect("src/a.cpp:1: no test is named that pins what is kept")


class ThisTreeTest(unittest.TestCase):
    def test_documentation_is_right(self):
        problems = Checker(Path(__file__).parents[2]).run()
        if problems:
            self.fail("\n" + "\n".join(problems))


if __name__ == "__main__":
    unittest.main()
