#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""translations.py LUPDATE WORK SOURCES TRANSLATION... [-- OPTION...]: fails where a translation is not
what LUPDATE, with the OPTIONs, makes of it and the SOURCES, or leaves a text untranslated. All happens
on copies in the folder WORK."""

import difflib
import pathlib
import shutil
import subprocess
import sys
import xml.etree.ElementTree


def complaints(old, new):
    """What is wrong with the file old, of which lupdate makes new."""
    before, after = (path.read_text(encoding="utf-8").splitlines() for path in (old, new))
    yield from difflib.unified_diff(before, after, str(old), "after lupdate", lineterm="")
    texts = 0
    for context in xml.etree.ElementTree.parse(new).iter("context"):
        for message in context.iter("message"):
            texts += 1
            translation = message.find("translation")
            if translation.get("type") or not (translation.text or "").strip():
                yield f"{old}: {context.find('name').text}: {message.find('source').text} is not translated"
    if not texts:
        yield f"{old} is empty"


def main():
    split = sys.argv.index("--")
    lupdate, work, sources, *files = sys.argv[1:split]
    options = sys.argv[split + 1:]
    if not files:
        sys.exit("There are no translations.")
    work = pathlib.Path(work)
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    copies = [pathlib.Path(shutil.copy(file, work)) for file in files]
    subprocess.run([lupdate, *options, sources, "-ts", *copies], check=True)
    found = [line for file, copy in zip(files, copies)
             for line in complaints(pathlib.Path(file), copy)]
    if found:
        sys.exit("\n".join([*found, "The target kest_lupdate brings the files up to date."]))


if __name__ == "__main__":
    main()
