#!/usr/bin/env python3
"""Prints how much of the words of documents pvindex finds, and how much that it finds are words.

A document is scored when its expected text lies beside it, under its name with ".expected.txt"
added. Words are counted, their order and the layout are not; a text in Chinese, Japanese or Thai
is compared character by character.
"""

import argparse
import collections
import json
import pathlib
import re
import subprocess
import unicodedata

# Characters of scripts that put no blanks between words.
UNSPACED = "\u0e00-\u0eff\u3040-\u30ff\u3400-\u9fff\uf900-\ufaff\uff66-\uff9f\U00020000-\U0003ffff"
WORD = re.compile(f"[{UNSPACED}]|(?:(?![{UNSPACED}])[\\w\u0300-\u036f])+")


def words(text):
    """The words of a text and how often each occurs."""
    # A hyphen that shows only at a line's end is no part of a word.
    text = unicodedata.normalize("NFKC", text).replace("\u00ad", "")
    return collections.Counter(WORD.findall(text))


def texts(program, type_name, paths):
    """What the program prints for each document: its text, or None and why there is none."""
    command = [program, "text", "--json"]
    command += ["--type", type_name] if type_name else []
    output = subprocess.run(command + paths, capture_output=True, check=False).stdout
    for line in output.decode().split("\n")[:-1]:
        row = json.loads(line)
        yield pathlib.Path(row["path"]), row.get("text"), row.get("error")


def share(part, whole):
    return part / whole if whole else 1.0


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program", help="pvindex")
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--type", help="the type to read all documents as")
    parser.add_argument("--words", action="store_true", help="show the words that differ")
    options = parser.parse_args()
    paths = [str(path)[: -len(".expected.txt")]
             for path in sorted(options.folder.glob("*.expected.txt"))]
    total = collections.Counter()
    for path, text, error in texts(options.program, options.type, paths):
        expected = words(path.with_name(path.name + ".expected.txt").read_text("utf-8"))
        found = words(text or "")
        common = (expected & found).total()
        total.update(common=common, expected=expected.total(), found=found.total())
        recall, precision = share(common, expected.total()), share(common, found.total())
        note = error or ""
        if options.words and (recall < 1 or precision < 1):
            note += f" missing {dict(expected - found)} extra {dict(found - expected)}"
        print(f"{recall:8.2%} {precision:8.2%}  {path.name}  {note}")
    print(f"{share(total['common'], total['expected']):8.2%} "
          f"{share(total['common'], total['found']):8.2%}  all {len(paths)}")


if __name__ == "__main__":
    main()
