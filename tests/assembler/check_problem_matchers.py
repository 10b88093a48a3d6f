#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the manual's examples of how editors find the places of messages.

    check_problem_matchers.py NESASM regexp
    check_problem_matchers.py NESASM vim VIM
    check_problem_matchers.py NESASM emacs EMACS

Each takes the example out of the manual and what the assembler says of a program with mistakes, and expects the places
of all messages and nothing else. `regexp` is the expression for Visual Studio Code alone, without that editor.
"""
import json
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SOURCES = {
    "game.asm": 'put .macro\n\tlda #\\1\n\t.endm\n\tput 500\n\t.db 256\n\t.include "other part.asm"\n',
    "other part.asm": "\tnop\n\t.rept 2\n\tlda nowhere ; a: b\n\t.endr\n",
}
PLACES = [("game.asm", 2, 6, "error", "the value 500 "), ("game.asm", 5, 6, "warning", "the value 256 "),
          ("other part.asm", 3, 6, "error", "the symbol 'nowhere' is not defined")]


def example(language):
    manual = (ROOT / "docs/assembler.md").read_text()
    return re.search(rf"```{language}\n(.*?)```", manual, re.DOTALL)[1]


def places_by_expression(_editor, said):
    pattern = json.loads(example("json"))["tasks"][0]["problemMatcher"]["pattern"]
    form = re.compile(pattern["regexp"])
    found = [match for match in map(form.search, said.read_text().splitlines()) if match]
    return [(match[pattern["file"]], int(match[pattern["line"]]), int(match[pattern["column"]]),
             match[pattern["severity"]], match[pattern["message"]]) for match in found]


def places_in_vim(editor, said):
    script = said.with_name("try.vim")
    script.write_text(example("vim") + f"cgetfile {said.name}\n"
                      "let found = map(getqflist(), {_, e -> [bufname(e.bufnr), e.lnum, e.col, e.type, e.text, e.valid]})\n"
                      "call writefile([json_encode(found)], 'found.json')\nqall!\n")
    subprocess.run([editor, "-es", "-u", "NONE", "-i", "NONE", "-S", script.name], cwd=said.parent, check=True,
                   timeout=60, stdin=subprocess.DEVNULL)
    kinds = {"e": "error", "w": "warning"}
    return [(file, line, column, kinds[kind.lower()], text)
            for file, line, column, kind, text, valid in json.loads(said.with_name("found.json").read_text()) if valid]


EMACS = r"""
(require 'compile)
(require 'json)
(setq compilation-error-regexp-alist nil)
{example}
(switch-to-buffer (find-file-noselect "said.txt"))
(compilation-mode)
(compilation--ensure-parse (point-max))
(let ((said (current-buffer)) (folder default-directory) found)
  (goto-char (point-min))
  (while (not (eobp))
    (let ((place (point))
          (message (get-text-property (point) 'compilation-message))
          (text (buffer-substring-no-properties (point) (line-end-position))))
      (when message
        (compile-goto-error)
        (with-current-buffer (window-buffer (selected-window))
          (push (vector (buffer-name) (line-number-at-pos) (1+ (- (point) (line-beginning-position)))
                        (compilation--message->type message) text)
                found))
        (switch-to-buffer said)
        (goto-char place)))
    (forward-line 1))
  (write-region (json-encode (vconcat (nreverse found))) nil (expand-file-name "found.json" folder)))
"""


def places_in_emacs(editor, said):
    script = said.with_name("try.el")
    script.write_text(EMACS.replace("{example}", example("elisp")))
    subprocess.run([editor, "-Q", "--batch", "-l", script.name], cwd=said.parent, check=True, timeout=60,
                   env={"HOME": str(said.parent)})
    kinds = {2: "error", 1: "warning"}
    return [(file, line, column, kinds[kind], text.split(": ", 2)[-1])
            for file, line, column, kind, text in json.loads(said.with_name("found.json").read_text())]


def main():
    program, way, editor = str(Path(sys.argv[1]).resolve()), sys.argv[2], sys.argv[3:]
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        for file, text in SOURCES.items():
            (folder / file).write_text(text)
        said = folder / "said.txt"
        with said.open("wb") as output:
            subprocess.run([program, "--input", "game.asm", "--output", "game.nes"], cwd=folder, env={}, stdout=output,
                           check=False)
        ways = {"regexp": places_by_expression, "vim": places_in_vim, "emacs": places_in_emacs}
        found = ways[way](editor[0] if editor else "", said)
        matches = len(found) == len(PLACES) and all(
            place[:4] == wanted[:4] and place[4].startswith(wanted[4]) for place, wanted in zip(found, PLACES))
        print("the places of all messages were found" if matches else f"found {found}\nin\n{said.read_text()}")
    return 0 if matches else 1


if __name__ == "__main__":
    sys.exit(main())
