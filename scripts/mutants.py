# SPDX-License-Identifier: MIT
"""What scripts/mutate changes: finds the mutants of a C++ file with clang's bindings, and writes the
file with all of them inside, of which the environment chooses one when the program runs.

An expression becomes (kestMutant(17) ? (a <= b) : (a < b)), a statement if (kestMutant(18)) {} else
statement; all in the line where it stood."""

import bisect
import collections
import re
import sys

sys.path.append("/usr/lib/python3/dist-packages")  # where Debian's python has the bindings
from clang.cindex import CursorKind as Kind, Index  # noqa: E402

# The program's side of it. With KEST_MUTANT_LOG it writes down which test function reaches what.
RUNTIME = r"""#pragma once
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <set>
#include <string>
#include <unistd.h>
namespace kestMutants {
inline void log(int id)
{
    static const int file = open(std::getenv("KEST_MUTANT_LOG"), O_WRONLY | O_APPEND | O_CREAT, 0600);
    using Name = const char *(*)();
    static const Name name = Name(dlsym(RTLD_DEFAULT, "_ZN5QTest19currentTestFunctionEv"));
    static std::set<int> *const known = new std::set<int>;
    static std::string *const current = new std::string;
    const char *const function = name ? name() : nullptr;
    if (*current != (function ? function : "")) {
        *current = function ? function : "";
        known->clear();
    }
    if (!known->insert(id).second)
        return;
    char line[256];
    const int size = snprintf(line, sizeof line, "%d %s\n", id, current->c_str());
    if (write(file, line, size_t(size)) != size)
        abort();
}
} // namespace kestMutants
inline bool kestMutant(int id)
{
    static const bool logs = std::getenv("KEST_MUTANT_LOG");
    static const int active = std::getenv("KEST_MUTANT") ? std::atoi(std::getenv("KEST_MUTANT")) : -1;
    if (logs)
        kestMutants::log(id);
    return id == active;
}
"""

# Errors in mutant N of a file are reported for line FIRST_LINE + N * LINES_EACH.
FIRST_LINE = 1_000_000
LINES_EACH = 100

OPERATORS = {
    "<": ["<="], "<=": ["<"], ">": [">="], ">=": [">"], "==": ["!="], "!=": ["=="],
    "&&": ["||"], "||": ["&&"],
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["/"], "&": ["|"], "|": ["&"],
    "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="], "|=": ["&="], "&=": ["|="],
}
NEGATED = "negated condition"
CONDITIONAL = {Kind.IF_STMT, Kind.WHILE_STMT, Kind.DO_STMT, Kind.CONDITIONAL_OPERATOR}
DROPPED = {
    Kind.CALL_EXPR, Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR, Kind.UNARY_OPERATOR,
    Kind.BREAK_STMT, Kind.CONTINUE_STMT, Kind.UNEXPOSED_EXPR,
}
FUNCTIONS = {
    Kind.CXX_METHOD, Kind.FUNCTION_DECL, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.FUNCTION_TEMPLATE,
    Kind.CONVERSION_FUNCTION, Kind.LAMBDA_EXPR,
}
# What has to be constant at compile time.
SKIPPED = {
    Kind.ENUM_DECL, Kind.STATIC_ASSERT, Kind.TEMPLATE_TYPE_PARAMETER,
    Kind.TEMPLATE_NON_TYPE_PARAMETER,
}

# number: its place among the file's, line to end: where it is, key: what tells it from others whatever the lines before it
Mutant = collections.namedtuple("Mutant", "number line end function text change key")


class Site:
    """A stretch of the source that has mutants, and those sites that are within it."""

    def __init__(self, start, end):
        self.start, self.end = start, end
        self.changes = []  # (description, new text, or None for a dropped statement)
        self.within = []


class Source:
    def __init__(self, path, text, arguments, constants):
        """path: of the file to be mutated, arguments: (file to compile, its options),
        constants: names that have to be known at compile time"""
        self.path, self.text, self.constants = path, text, constants
        self.bytes = text.encode()
        self.line_starts = [0] + [i + 1 for i, c in enumerate(self.bytes) if c == 10]
        self.sites = {}
        self.functions = []  # (start, end, name)
        unit = Index.create().parse(*arguments)
        errors = [d for d in unit.diagnostics if d.severity >= 3]
        if errors:
            raise SystemExit(f"mutate: {path} can not be parsed: {errors[0]}")
        for cursor in unit.cursor.get_children():
            if cursor.location.file and cursor.location.file.name == path:
                self.visit(cursor, None)
        self.mutants = []
        self.roots = self.nest()

    # Finding

    def slice(self, start, end):
        return self.bytes[start:end].decode()

    def span(self, cursor):
        extent = cursor.extent
        if not extent.start.file or extent.start.file.name != self.path:
            return None
        return extent.start.offset, extent.end.offset

    def add(self, span, description, text):
        site = self.sites.setdefault(span, Site(*span))
        if all(description != known for known, _ in site.changes):
            site.changes.append((description, text))

    def visit(self, cursor, parent):
        kind = cursor.kind
        if kind in SKIPPED:
            return
        if kind == Kind.VAR_DECL and cursor.spelling in self.constants:
            return
        if kind in FUNCTIONS and kind != Kind.LAMBDA_EXPR and self.span(cursor):
            self.functions.append((*self.span(cursor), cursor.spelling))
        children = list(cursor.get_children())
        span = self.span(cursor)
        if span:
            self.operators(cursor, children, span)
            self.literals(cursor, span)
            self.conditions(cursor, children)
            self.statements(cursor, children, parent)
        for index, child in enumerate(children):
            if kind == Kind.CASE_STMT and index == 0:
                continue
            self.visit(child, cursor)

    def operators(self, cursor, children, span):
        kind = cursor.kind
        if kind == Kind.UNARY_OPERATOR and len(children) == 1:
            inner = self.span(children[0])
            if not inner:
                return
            sign = self.slice(span[0], inner[0]).strip()
            if sign in ("!", "-", "~") and inner[1] == span[1]:
                text = self.slice(*inner)
                self.add(span, f"dropped {sign}", f"bool({text})" if sign == "!" else text)
            return
        if kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR):
            if len(children) != 2:
                return
            left, right = self.span(children[0]), self.span(children[1])
        elif kind == Kind.CALL_EXPR and len(children) == 3 and re.match(
                r"operator\W", cursor.spelling):
            left, right = self.span(children[0]), self.span(children[2])
            # Written as a call of the operator, or of another one in a template.
            if not left or not right or left[0] != span[0] or right[1] != span[1]:
                return
        else:
            return
        if not left or not right or left[1] > right[0]:
            return
        sign = self.slice(left[1], right[0])
        for other in OPERATORS.get(sign.strip(), ()):
            if sign.strip() == "+" and "QString" in cursor.type.spelling:
                continue
            text = self.slice(*left) + sign.replace(sign.strip(), other) + self.slice(*right)
            if sign.strip() in ("|", "&"):
                text = f"decltype({self.slice(*span)})({text})"  # of enumerators, flags or numbers
            self.add(span, f"{sign.strip()} -> {other}", text)

    def literals(self, cursor, span):
        kind = cursor.kind
        text = self.slice(*span)
        if kind == Kind.INTEGER_LITERAL:
            digits = re.fullmatch(r"(0[xX][0-9a-fA-F]+|\d+)([uUlL]*)", text)
            if not digits:
                return
            value, suffix = int(digits[1], 0), digits[2]
            for other in (value + 1, value - 1) if value else (1,):
                self.add(span, f"{text} -> {other}", f"{other}{suffix}")
        elif kind == Kind.FLOATING_LITERAL and re.fullmatch(r"[\d.]+[fF]?", text):
            value = float(text.rstrip("fF"))
            for other in value + 1, value / 2 if value else 0.5:
                self.add(span, f"{text} -> {other}", f"{other}" + "f" * (text[-1] in "fF"))
        elif kind == Kind.CXX_BOOL_LITERAL_EXPR and text in ("true", "false"):
            other = "false" if text == "true" else "true"
            self.add(span, f"{text} -> {other}", other)

    def conditions(self, cursor, children):
        kind = cursor.kind
        if kind not in CONDITIONAL or not children:
            return
        if any(c.kind in (Kind.VAR_DECL, Kind.DECL_STMT) for c in children[:2]) and (
                kind != Kind.CONDITIONAL_OPERATOR):
            # A condition that declares what it asks for, which can be skipped but not negated.
            if kind == Kind.IF_STMT and self.span(cursor):
                self.drop(self.span(cursor))
            return
        condition = children[1] if kind == Kind.DO_STMT else children[0]
        span = self.span(condition)
        if not span or not condition.kind.is_expression():
            return
        text = self.slice(*span)
        if re.match(r"![^=]", text) and not re.search(r"&&|\|\|", text):
            return  # the dropped ! is the same
        if re.fullmatch(r"[\w.:()>*-]+ [=!]= [\w.:()>*-]+", text):
            return  # so is the other comparison
        self.add(span, NEGATED, f"!({text})")

    def drop(self, span):
        text = self.slice(*span)
        first = text.split("\n")[0]
        self.add((span[0], span[0]), f"dropped {first}", None)

    def statements(self, cursor, children, parent):
        """Drops those of the children that are statements of their own."""
        kind = cursor.kind
        if kind == Kind.COMPOUND_STMT:
            bodies = children
        elif kind in (Kind.IF_STMT, Kind.WHILE_STMT):
            bodies = children[1:]
        elif kind in (Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT):
            bodies = children[-1:]
        elif kind in (Kind.CASE_STMT, Kind.DEFAULT_STMT):
            bodies = children[-1:]
        else:
            return
        for body in bodies:
            span = self.span(body)
            if not span or not self.bytes[span[1]:].lstrip().startswith(b";"):
                continue
            empty_return = body.kind == Kind.RETURN_STMT and not list(body.get_children())
            text = self.slice(*span)
            if not (body.kind in DROPPED or empty_return) or text.startswith("Q_"):
                continue
            # What ends there anyway.
            last = re.match(r"\s*;\s*}", self.slice(span[1], span[1] + 80))
            if last and body.kind == Kind.BREAK_STMT and (
                    kind == Kind.DEFAULT_STMT or parent and parent.kind == Kind.SWITCH_STMT):
                continue
            if last and empty_return and parent and parent.kind in FUNCTIONS:
                continue
            self.drop(span)

    # Writing

    def nest(self):
        roots, stack = [], []
        for site in sorted(self.sites.values(), key=lambda s: (s.start, s.start == s.end and -1,
                                                              -s.end)):
            # The first mutant of a statement stands before it.
            while stack and (stack[-1].end <= site.start or stack[-1].start == stack[-1].end):
                stack.pop()
            if stack and site.end > stack[-1].end:
                continue  # overlaps: of a macro
            (stack[-1].within if stack else roots).append(site)
            if site.start != site.end:
                stack.append(site)
        return roots

    def number(self, roots=None):
        """Gives each mutant its number and returns them all."""
        if roots is None:
            self.mutants, self.by_site = [], {}
            self.counts = collections.Counter()
            self.number(self.roots)
            return self.mutants
        for site in roots:
            for index, (change, _) in enumerate(site.changes):
                line = bisect.bisect_right(self.line_starts, site.start)
                end = bisect.bisect_right(self.line_starts, site.end)
                text = self.text.split("\n")[line - 1].strip()
                function = next((name for start, end, name in reversed(self.functions)
                                 if start <= site.start < end), "")
                key = " | ".join((function, text, change))
                self.counts[key] += 1
                if self.counts[key] > 1:
                    key += f" | {self.counts[key]}"
                number = len(self.mutants)
                self.by_site[id(site), index] = number
                self.mutants.append(Mutant(number, line, end, function, text, change, key))
            self.number(site.within)
        return None

    def render(self, base, without, header):
        """Returns the text with all mutants, those numbers aside; base is the first one's id."""
        def line_of(offset):
            return bisect.bisect_right(self.line_starts, offset)

        def stretch(start, end, sites):
            out, at = [], start
            for site in sites:
                out.append(self.slice(at, site.start))
                live = [(self.by_site[id(site), i], text)
                        for i, (_, text) in enumerate(site.changes)
                        if self.by_site[id(site), i] not in without]
                for number, text in live:
                    mark = f"\n#line {FIRST_LINE + number * LINES_EACH}\n"
                    if text is None:
                        out.append(f"{mark}if (kestMutant({base + number})) {{ }} else")
                    else:
                        out.append(f"{mark}(kestMutant({base + number}) ? ({text}) :")
                if live:
                    out.append(f"\n#line {line_of(site.start)}\n")
                inner = stretch(site.start, site.end, site.within)
                if any(change == NEGATED for change, _ in site.changes):
                    inner = f"bool({inner})"
                closing = ")" * sum(text is not None for _, text in live)
                out.append(f"({inner}){closing}" if closing else inner)
                at = site.end
            out.append(self.slice(at, end))
            return "".join(out)

        return (f'#include "{header}"\n#line 1\n'
                + stretch(0, len(self.bytes), self.roots))
