#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that suites and cases of the C++ tests are named in PascalCase; clang-tidy does not look into TEST().

Run with the folder of the checkout.
"""
import re
import sys
import tempfile
from pathlib import Path

CASE = re.compile(r"^(?:TYPED_)?TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\s*\)", re.MULTILINE)
NAME = re.compile(r"[A-Z][A-Za-z0-9]*")


def check(root):
    problems, count = [], 0
    for path in sorted((root / "tests").rglob("*.cpp")):
        for suite, case in CASE.findall(path.read_text(encoding="utf-8")):
            count += 1
            problems += [f"{path.relative_to(root)}: {name} is not in PascalCase" for name in (suite, case)
                         if not NAME.fullmatch(name)]
    if count == 0:
        problems.append("no tests found")
    return problems, count


def self_test():
    failed = 0
    for text, wanted in (("TEST(Suite, CaseOf2) {\nTEST_F(\n    Suite, AnotherCase) {\n", 0),
                         ("TEST(Suite, a_case) {\n", 1), ("TEST_F(suite, Case) {\n", 1), ("TEST_P(Suite, Ca_se) {\n", 1),
                         ("int main() {}\n", 1)):
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "tests").mkdir()
            (Path(folder) / "tests" / "ATest.cpp").write_text(text)
            if len(check(Path(folder))[0]) != wanted:
                print(f"wrong verdict: {text!r}")
                failed += 1
    return failed


def main():
    if sys.argv[1:] == ["--self-test"]:
        return 1 if self_test() else 0
    problems, count = check(Path(sys.argv[1]))
    print("\n".join([*problems, f"{count} tests checked, {len(problems)} problems"]))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
