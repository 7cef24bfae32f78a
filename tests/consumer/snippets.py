# SPDX-License-Identifier: MIT
"""The pieces of code in Markdown files."""

import collections
import re

Block = collections.namedtuple("Block", "language line text")


def blocks(path):
    """Returns the fenced blocks of the file."""
    found, opened = [], None
    for number, line in enumerate(path.read_text().splitlines(), 1):
        if opened is None and re.match(r"```\w", line):
            opened = (line[3:].strip(), number + 1, [])
        elif opened and line == "```":
            found.append(Block(opened[0], opened[1], "\n".join(opened[2]) + "\n"))
            opened = None
        elif opened:
            opened[2].append(line)
    return found


def write(paths, folder):
    """Writes the C++ of the files as sources into the folder, and returns these. What includes
    headers stands alone; the rest is found in the surroundings of SnippetContext.h, statements as a
    member function of their own."""
    sources = []
    pieces = ['#include "SnippetContext.h"\n']
    for path in paths:
        for block in blocks(path):
            if block.language != "cpp":
                continue
            name = f"{path.stem}_{block.line}"
            text = f'#line {block.line} "{path}"\n{block.text}'
            if "#include" in block.text:
                sources.append(folder / f"{name}.cpp")
                sources[-1].write_text(text)
            elif re.search(r"^(class|int|void|bool) ", block.text, re.MULTILINE):
                pieces.append(f"namespace {name} {{\n{text}}}\n")
            else:
                pieces.append(f"struct {name} : Surroundings\n{{\nauto run()\n{{\n{text}}}\n}};\n")
    sources.append(folder / "pieces.cpp")
    sources[-1].write_text("".join(pieces))
    return sources
