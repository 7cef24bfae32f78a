#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""interface.py compare|record RECORDED DESCRIBER LIBRARY COMPILER FLAG...: describes the library's
interface, and compares it with what RECORDED says, or writes that anew. Of it are the exported
symbols, sizes, bases and virtual tables of the public classes, and what the program DESCRIBER
prints. FLAGs let COMPILER, a GCC, find the library's and Qt's headers."""

import difflib
import pathlib
import re
import subprocess
import sys
import tempfile

FUNCTIONS = ("isLight(", "createFormatRange(", "moveFormatRange(")


def output_of(*command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, check=True, text=True, **options).stdout


def exports(library):
    """The demangled names, without those that the compiler makes of other libraries' code."""
    for line in output_of("nm", "-DC", "--defined-only", library).splitlines():
        name = line.split(maxsplit=2)[2]
        if "Kest" in name or name.startswith(FUNCTIONS):
            yield f"export {name}"


def layouts(compiler, flags):
    """Sizes, bases and virtual tables, as the compiler itself prints them."""
    headers = pathlib.Path(__file__).resolve().parents[2] / "include"
    with tempfile.TemporaryDirectory() as folder:
        source = pathlib.Path(folder) / "interface.cpp"
        source.write_text("".join(f"#include <{header.name}>\n"
                                  for header in sorted(headers.glob("*.h"))))
        subprocess.run([compiler, "-std=c++17", "-fPIC", "-fsyntax-only", "-fdump-lang-class",
                        f"-I{headers}", *flags, source], cwd=folder, check=True)
        dump = next(pathlib.Path(folder).glob("*.class")).read_text()
    for block in re.split(r"\n\s*\n", dump):
        title = re.match(r"(?:Class|Vtable for) (Kest\w+)$", block, re.MULTILINE)
        if not title or title[1].endswith("Private"):
            continue
        if block.startswith("Class"):
            for line in block.splitlines()[1:]:
                # The numbers behind the names are positions in this compiler's memory.
                line = re.sub(r" \(0x\w+\)", "", line.strip())
                if not line.startswith("vptr"):
                    yield f"layout {title[1]} {line}"
            continue
        for line in block.splitlines():
            # Between its own there are Qt's, which are Qt's to keep.
            entry = re.match(r"(\d+)\s+(.*Kest.*)", line)
            size = re.match(r"Kest.*: (\d+ entries)", line)
            if size:
                yield f"virtual {title[1]} {size[1]}"
            elif entry:
                value = entry[2].replace("(int (*)(...))", "")
                yield f"virtual {title[1]} {entry[1]} {value}"


def demangled(lines):
    return output_of("c++filt", input="\n".join(lines)).splitlines()


def main():
    mode, recorded, describer, library, compiler, *flags = sys.argv[1:]
    found = [*sorted(exports(library)), *demangled(layouts(compiler, flags)),
             *output_of(describer).splitlines()]
    recorded = pathlib.Path(recorded)
    if mode == "record":
        recorded.write_text("\n".join(found) + "\n")
        return 0
    difference = [*difflib.unified_diff(recorded.read_text().splitlines(), found, "recorded",
                                        "built", n=0, lineterm="")]
    if not difference:
        return 0
    print("\n".join(difference))
    print("The interface has changed. docs/Compatibility.md says which changes may be made, and how"
          " to record them.")
    return 1


if __name__ == "__main__":
    sys.exit(main())
