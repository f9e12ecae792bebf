#!/usr/bin/env python3
"""Measures how well the sources keep the house in order: circles, names, tests.

    packaging/house.py circles|names|tests     prints each fault; ends with 1 where there is one
    packaging/house.py figures                 prints the figures, and never fails

It reads the text alone and needs no build. What a name stands for is told from declarations at the scope of
a namespace or class; locals of functions don't count.
"""

import re
import subprocess
import sys
from collections import defaultdict
from pathlib import Path, PurePath

PRODUCT = ("platform/", "core/", "app/")

# Names that say what they are together with their owner's, as in Playbook::Key or Transcript::Line.
WITH_OWNER = {"Kind", "Key", "Layer", "Line", "Run", "Step", "Piece", "Layout"}


def listed(*patterns):
    command = ["git", "ls-files", "--cached", "--others", "--exclude-standard", *patterns]
    names = subprocess.run(command, capture_output=True, text=True, check=True).stdout.split("\n")
    return sorted({name for name in names if name and PurePath(name).suffix in (".h", ".cpp")})


def text_of(file):
    try:
        with open(file, encoding="utf-8") as stream:
            return stream.read()
    except FileNotFoundError:
        return ""


def is_product(file):
    return file.startswith(PRODUCT)


def stem(file):
    """A header and its source are one thing; what ends in -inl.h belongs to it too."""
    return str(PurePath(file).with_suffix("")).removesuffix("-inl")


# ------------------------------------------------------------------------------ circles --
def includes(file):
    return re.findall(r'^\s*#include "([^"]+)"', text_of(file), re.MULTILINE)


def arrows(files, node):
    """Which node includes which others; only files of the product are looked at."""
    found = defaultdict(set)
    for file in files:
        for other in includes(file):
            if is_product(other) and node(file) != node(other):
                found[node(file)].add(node(other))
    return found


def circles(graph):
    """The knots of a graph: sets of two and more nodes that all reach one another."""
    order, seen = [], set()
    back = defaultdict(set)
    for start, ends in graph.items():
        for end in ends:
            back[end].add(start)

    def walk(start, edges, done):
        stack = [(start, iter(sorted(edges.get(start, ()))))]
        seen.add(start)
        while stack:
            node, rest = stack[-1]
            following = next((other for other in rest if other not in seen), None)
            if following is None:
                done.append(stack.pop()[0])
            else:
                seen.add(following)
                stack.append((following, iter(sorted(edges.get(following, ())))))

    for node in sorted(graph):
        if node not in seen:
            walk(node, graph, order)
    seen.clear()
    knots = []
    for node in reversed(order):
        if node not in seen:
            knot = []
            walk(node, back, knot)
            knots.append(sorted(knot))
    return sorted((knot for knot in knots if len(knot) > 1), key=len, reverse=True)


def folder(file):
    return str(PurePath(file).parent)


def room(file):
    """With all the folders in it, as in core/render."""
    return "/".join(PurePath(file).parts[:2])


# -------------------------------------------------------------------------------- names --
NOISE = re.compile(r'//[^\n]*|/\*.*?\*/|R"\((?:.|\n)*?\)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'|^\s*#[^\n]*',
                   re.DOTALL | re.MULTILINE)
TOKEN = re.compile(r"[A-Za-z_]\w*|::|\[\[|\]\]|[^\s\w]")


class Declaration:
    def __init__(self, file, kind, name, scope, defined):
        self.file, self.kind, self.name, self.scope, self.defined = file, kind, name, scope, defined


def declarations(file):
    """The types and named namespaces that a file declares outside of functions, in order."""
    tokens = TOKEN.findall(NOISE.sub(" ", re.sub(r"(?<=\d)'(?=\d)", "", text_of(file))))
    scopes, found, at, pending = [], [], 0, None
    while at < len(tokens):
        token = tokens[at]
        before = tokens[at - 1] if at else ""
        if token == "{":
            scopes.append(pending or ("block", ""))
            pending = None
        elif token == "}":
            if scopes:
                scopes.pop()
        elif token == "namespace" and before != "using" and not in_function(scopes):
            words = []
            while tokens[at + 1] not in "{;=":
                at += 1
                words.append(tokens[at])
            if tokens[at + 1] == "{":
                name = "".join(words)
                pending = ("namespace", name)
                if name:
                    found.append(Declaration(file, "namespace", name.split("::")[-1], path(scopes), True))
        elif token in ("class", "struct", "union", "enum") and before not in ("<", ",", "friend", "enum"):
            head = type_head(tokens, at)
            if head and not in_function(scopes):
                name, defined = head
                found.append(Declaration(file, token, name, path(scopes), defined))
                if defined:
                    at = skip_to_brace(tokens, at) - 1
                    pending = ("type", name)
        elif token == "concept" or (token == "using" and at + 2 < len(tokens) and tokens[at + 2] == "="):
            if not in_function(scopes):
                found.append(Declaration(file, token, tokens[at + 1], path(scopes), True))
        at += 1
    return found


def in_function(scopes):
    return any(kind == "block" for kind, _ in scopes)


def path(scopes):
    return tuple(word for kind, name in scopes if kind in ("namespace", "type") for word in name.split("::"))


def type_head(tokens, at):
    """The name that a class-key introduces and whether its body follows; nothing where it is but used."""
    at += 1
    if tokens[at] in ("class", "struct"):
        at += 1
    while tokens[at] in ("[[", "alignas"):
        close = "]]" if tokens[at] == "[[" else ")"
        while tokens[at] != close:
            at += 1
        at += 1
    name = None
    while re.match(r"[A-Za-z_]|::", tokens[at]) and tokens[at] != "final":
        if name and tokens[at] != "::" and tokens[at - 1] != "::":
            return None  # a variable of that type
        name = tokens[at]
        at += 1
    if not name:
        return None
    if tokens[at] == ";":
        return name, False
    return (name, True) if tokens[at] in ("{", ":", "final") else None


def skip_to_brace(tokens, at):
    while tokens[at] != "{":
        at += 1
    return at


def header_types(headers):
    """The types that headers declare at the scope of a namespace, with a body or an equals sign."""
    kinds = ("class", "struct", "union", "enum", "concept")
    for file in headers:
        for each in declarations(file):
            if each.kind in kinds and each.defined and not nested_in_type(each, file):
                yield each


def nested_in_type(declaration, file):
    types = {each.name for each in declarations(file) if each.kind in ("class", "struct", "union")}
    return any(name in types for name in declaration.scope)


def unnamed_headers(headers):
    found = []
    for file in headers:
        name = PurePath(stem(file)).name
        if not any(each.name.lower() == name.lower() for each in declarations(file)):
            found.append(file)
    return found


def homeless_types(headers, files):
    """Types whose name leads to no header. Those are at home that are named together with their header
    (Picker::Pick), and helpers that nobody names but their header's own files."""
    named = {PurePath(stem(file)).name for file in headers}
    words = {file: set(re.findall(r"\w+", text_of(file))) for file in files}
    return [each for each in header_types(headers) if each.name not in named and
            PurePath(stem(each.file)).name not in each.scope and
            any(each.name in words[file] for file in files if stem(file) != stem(each.file))]


def namesakes(files):
    """Type names with a body in two places or more, as name: places."""
    places = defaultdict(set)
    for file in files:
        for each in declarations(file):
            if each.kind in ("class", "struct", "union", "enum") and each.defined:
                places[each.name].add(stem(file))
    return {name: sorted(where) for name, where in sorted(places.items())
            if len(where) > 1 and name not in WITH_OWNER}


# -------------------------------------------------------------------------------- tests --
TEST = re.compile(r"^TEST(?:_[FP])?\(\s*(\w+)\s*,\s*(\w+)\s*\)", re.MULTILINE)


def untested_sources(sources, tests):
    """Sources that no test is named after: neither a file of tests nor the approved text of a tour."""
    names = {PurePath(file).stem for file in tests}
    names |= {file.stem + "Test" for file in Path("tests").glob("*/approved/*.txt")}
    return [file for file in sources if PurePath(file).stem + "Test" not in names]


def doubled_tests(tests):
    """Tests, and files of tests, of one name."""
    places = defaultdict(list)
    for file in tests:
        if file.endswith("Test.cpp"):
            places[PurePath(file).name].append(file)
        for suite, name in TEST.findall(text_of(file)):
            places[f"{suite}.{name}"].append(file)
    return {name: where for name, where in sorted(places.items()) if len(where) > 1}


# ---------------------------------------------------------------------------------- all --
class Measure:
    """Something that is counted over the sources. `worst` is the least share in per cent, or else the largest count,
    with which the check holds. Rooms are still being put in order: mend, then draw the limit after."""

    def __init__(self, group, meaning, worst, faults, of=None):
        self.group, self.meaning, self.worst, self.faults, self.of = group, meaning, worst, faults, of

    def value(self):
        return len(self.faults) if self.of is None else 100 * (1 - len(self.faults) / max(self.of, 1))

    def holds(self):
        return self.value() <= self.worst if self.of is None else self.value() >= self.worst

    def figure(self):
        value = f"{len(self.faults)}" if self.of is None else f"{self.value():.1f} % of {self.of}"
        limit = f"at most {self.worst}" if self.of is None else f"at least {self.worst} %"
        return f"{self.meaning:<42}{value:<16}{limit}"


def knots(files, node, what):
    found = circles(arrows(files, node))
    return [f"{name}: in a circle of {len(knot)} {what}: {', '.join(knot)}" for knot in found for name in knot]


def measures():
    files = [file for file in listed() if is_product(file)]
    headers = [file for file in files if file.endswith(".h") and not file.endswith("-inl.h")]
    sources = [file for file in files if file.endswith(".cpp")]
    tests = listed("tests/")
    return [
        Measure("circles", "files in circles", 0, knots(files, stem, "files")),
        Measure("circles", "folders in circles", 0, knots(files, folder, "folders")),
        Measure("circles", "rooms in circles", 0, knots(files, room, "rooms")),
        Measure("names", "headers named after what they declare", 98,
                [f"{file}: declares no type or namespace of its name" for file in unnamed_headers(headers)],
                len(headers)),
        Measure("names", "types with a header of their own name", 97,
                [f"{each.file}: {each.name} has no header of its name" for each in homeless_types(headers, files)],
                len(list(header_types(headers)))),
        Measure("names", "type names that stand for several things", 4,
                [f"{name}: stands for {len(where)} things: {', '.join(where)}"
                 for name, where in namesakes(files).items()]),
        Measure("tests", "sources with a test of their name", 85,
                [f"{file}: no test has its name" for file in untested_sources(sources, tests)], len(sources)),
        Measure("tests", "names that several tests have", 0,
                [f"{name}: is there {len(where)} times: {', '.join(where)}"
                 for name, where in doubled_tests(tests).items()]),
    ]


def main():
    if len(sys.argv) != 2 or sys.argv[1] not in ("circles", "names", "tests", "figures"):
        sys.exit(__doc__)
    if sys.argv[1] == "figures":
        for measure in measures():
            print(measure.figure())
        return
    failed = [measure for measure in measures() if measure.group == sys.argv[1] and not measure.holds()]
    for measure in failed:
        print(measure.figure())
        for fault in measure.faults:
            print("  " + fault)
    sys.exit(1 if failed else 0)


main()
