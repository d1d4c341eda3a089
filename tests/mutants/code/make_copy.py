#!/usr/bin/python3
"""Makes and builds a copy of the program in which every change that the tests must notice is compiled in, and lists
the changes.

    make_copy.py SOURCE FOLDER

SOURCE is the repository. FOLDER takes the copy (tree), its build (build) and the list (places.tsv), which has for each
change a line with its number, the file, the line there, the change and the text of that line."""

import concurrent.futures
import hashlib
import json
import os
import pickle
import re
import shlex
import subprocess
import sys
from pathlib import Path

import clang.cindex

import edits
import forms
import places

HERE = Path(__file__).resolve().parent
COPIED = re.compile(r"(CMakeLists\.txt|LICENSE|README\.md|(cmake|packaging|resources|src|tests|tools)/.*)$")
LEFT_OUT = re.compile(r"tests/(mutants|endtoend)/")
# It only starts the program, as the tests end to end do, each of which takes longer than a thousand others.
UNCHANGED = "src/app/main.cpp"
# What the changed files need beside them.
HEADERS = ("Append.h", "Mutant.h")
UIC = "/usr/lib/qt6/libexec/uic"
# So many changes have room in one file: a number tells the file by its upper part.
ROOM = 4096
# The copy is built to run and to break: whoever reaches behind the end of a list ends the program.
FLAGS = "-w -D_GLIBCXX_ASSERTIONS"


def write(path, text):
    """Leaves a file that has this text alone, so that nothing is built again without need."""
    data = text.encode() if isinstance(text, str) else text
    if not path.exists() or path.read_bytes() != data:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)


def replaced_once(text, old, new):
    if text.count(old) != 1:
        raise SystemExit(f"make_copy: {old} does not stand there once")
    return text.replace(old, new)


class Copy:
    def __init__(self, source, folder):
        self.source = source
        self.folder = folder
        self.tree = folder / "tree"
        self.build = folder / "build"
        self.forms = folder / "forms"  # their headers as they are, for the parser
        told = subprocess.run(
            ["git", "-C", source, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
            check=True, stdout=subprocess.PIPE, text=True,
        ).stdout  # fmt: skip
        self.files = sorted(
            file
            for file in set(told.split("\0"))
            if COPIED.match(file) and not LEFT_OUT.match(file) and (source / file).is_file()
        )

    def is_changed(self, file):
        return file.startswith("src/") and file.endswith((".cpp", ".h", ".ui")) and file != UNCHANGED

    def lay_down(self):
        """All that is as it is in the source, and the build that it makes possible."""
        for file in self.files:
            data = (self.source / file).read_bytes()
            if file == "CMakeLists.txt":
                # The headers of the forms are changed too, so they are made here.
                data = replaced_once(data.decode(), "set(CMAKE_AUTOUIC ON)", "set(CMAKE_AUTOUIC OFF)")
            elif file == "tests/app/CMakeLists.txt":
                # Tests that read the code read it as people wrote it.
                data = replaced_once(data.decode(), "${PROJECT_SOURCE_DIR}/src", str(self.source / "src"))
            if not self.is_changed(file):
                write(self.tree / file, data)
            elif not file.endswith(".ui") and not (self.tree / file).exists():
                write(self.tree / file, data)
        for name in HEADERS:
            write(self.tree / "src" / name, (HERE / name).read_bytes())
        wanted = {self.tree / file for file in self.files if not file.endswith(".ui")}
        wanted |= {self.tree / "src" / f"ui_{Path(file).stem}.h" for file in self.files}
        for path in self.tree.rglob("*"):
            if path.is_file() and path not in wanted and path.name not in HEADERS:
                path.unlink()
        subprocess.run(
            ["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja", "-Wno-dev", "-DCMAKE_BUILD_TYPE=Debug",
             "-DCMAKE_CXX_FLAGS_DEBUG=", f"-DCMAKE_CXX_FLAGS={FLAGS}", "-DTALLY_WARNINGS_AS_ERRORS=OFF",
             f"-DCMAKE_RUNTIME_OUTPUT_DIRECTORY={self.build}/bin"],
            check=True, stdout=subprocess.DEVNULL,
        )  # fmt: skip

    def headers_of_forms(self):
        """{file of the form: its header}"""
        headers = {}
        for file in self.files:
            if file.startswith("src/") and file.endswith(".ui"):
                made = subprocess.run([UIC, self.source / file], check=True, stdout=subprocess.PIPE, text=True)
                headers[file] = made.stdout
                write(self.forms / f"ui_{Path(file).stem}.h", made.stdout)
        return headers

    def units(self):
        """(file, arguments) of all that src compiles, as the source stands."""
        tree, source = f"{self.tree}/src", f"{self.source}/src"
        units = {}
        for entry in json.loads((self.build / "compile_commands.json").read_text()):
            if entry["file"].startswith(tree + "/"):
                words = shlex.split(entry["command"])[1:]
                arguments = [word for word in words[: words.index("-o")] if not word.startswith("-W")]
                file = entry["file"].replace(tree, source)
                units[file] = [word.replace(tree, source) for word in arguments] + ["-I", str(self.forms), "-w"]
        return sorted(units.items())


def with_plain_header(arguments, folder):
    """The parser cannot read the compiler's precompiled header, and would if it lay beside; a copy of its text stands
    in for it."""
    if "-include" not in arguments:
        return arguments
    at = arguments.index("-include") + 1
    header = Path(arguments[at])
    plain = folder / f"{header.parent.name}.hxx"
    write(plain, header.read_bytes())
    return [*arguments[:at], str(plain), *arguments[at + 1 :]]


def digest(path):
    return hashlib.sha1(Path(path).read_bytes()).hexdigest()


def parsed(file, arguments, names, roots):
    """What stands in this file and in the headers of the program that it includes, and what it was read from."""
    unit = clang.cindex.Index.create().parse(
        file, args=arguments, options=clang.cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
    )
    for found in unit.diagnostics:
        if found.severity >= clang.cindex.Diagnostic.Error:
            raise RuntimeError(str(found))
    included = {os.path.abspath(include.include.name) for include in unit.get_includes()}
    spots = {name: spots for name, (_, spots) in places.spots_in(unit, names).items()}
    return {path: digest(path) for path in included if path.startswith(roots)}, spots


def is_fresh(path):
    """Whether what was kept there was read from files that are still the same."""
    if not path.exists():
        return False
    sources, _ = pickle.loads(path.read_bytes())
    return all(os.path.exists(source) and digest(source) == known for source, known in sources.items())


def spots_of_code(copy):
    """{file: spots}. What was found is kept, until the file, a header of it or this tool changes."""
    kept = copy.folder / "spots"
    kept.mkdir(exist_ok=True)
    tool = [digest(HERE / "edits.py"), digest(HERE / "places.py")]
    units = copy.units()
    names = {file for file, _ in units} | {str(path) for path in (copy.source / "src").rglob("*.h")}
    roots = (f"{copy.source}/", f"{copy.folder}/")
    spots = {}
    with concurrent.futures.ProcessPoolExecutor() as pool:
        waiting = []
        for file, arguments in units:
            key = hashlib.sha1(repr([tool, file, digest(file), arguments]).encode())
            path = kept / key.hexdigest()
            if is_fresh(path):
                waiting.append((path, None))
            else:
                plain = with_plain_header(arguments, copy.folder / "headers")
                waiting.append((path, pool.submit(parsed, file, plain, names, roots)))
        for path, future in waiting:
            if future:
                path.write_bytes(pickle.dumps(future.result()))
            for name, found in pickle.loads(path.read_bytes())[1].items():
                spots.setdefault(name, found)
    for path in set(kept.iterdir()) - {path for path, _ in waiting}:
        path.unlink()
    return {os.path.relpath(name, copy.source): found for name, found in spots.items()}


def first_numbers(files):
    """A file keeps its numbers whatever other files there are."""
    numbers = {}
    for file in files:
        number = (int(hashlib.sha1(file.encode()).hexdigest()[:5], 16) + 1) * ROOM
        if number in numbers.values():
            raise SystemExit(f"make_copy: {file} has the numbers of another file")
        numbers[file] = number
    return numbers


def line_in_form(form, call):
    """Where the form speaks of the control of a line of its header."""
    name = re.search(r"\b(\w+)(?:->|, )", call)
    at = form.find(f'name="{name[1]}"') if name else -1
    return form.count("\n", 0, max(at, 0)) + 1


def write_changed(copy, texts, spots):
    """Writes the changed files and gives the rows of the list."""
    numbers = first_numbers(sorted(spots))
    listed = []
    for file in sorted(texts):
        text, rows = edits.applied(texts[file], spots.get(file, []), numbers.get(file, 0))
        if len(rows) > ROOM:
            raise SystemExit(f"make_copy: {file} has too many changes")
        target = copy.tree / file
        if file.endswith(".ui"):
            form = (copy.source / file).read_text()
            rows = [(number, line_in_form(form, line), change, line) for number, _, change, line in rows]
            target = copy.tree / "src" / f"ui_{Path(file).stem}.h"
        if rows:
            text = '#include "Mutant.h"\n#line 1\n' + text
        write(target, text)
        listed += [(number, file, line, change, told) for number, line, change, told in rows]
    return listed


def refused_lines(copy, output):
    """The lines of the copy that the compiler does not take: {file: {line}}."""
    refused = {}
    for found in re.finditer(r"^(\S+?):(\d+):(?:\d+:)?\s+(?:error|.*required from)", output, re.M):
        path = Path(os.path.normpath(copy.build / found[1]))
        if path.is_relative_to(copy.tree / "src"):
            refused.setdefault(os.path.relpath(path, copy.tree), set()).add(int(found[2]))
    return refused


def without(text, spots, lines):
    """The spots that change nothing on these lines."""
    return [
        spot
        for spot in spots
        if not any(edits.line_of(text, offset)[0] in lines for offset, *_ in spot.edits)
    ]


def main(source, folder):
    copy = Copy(Path(source).resolve(), Path(folder).resolve())
    copy.lay_down()
    headers = copy.headers_of_forms()
    spots = spots_of_code(copy)
    spots |= {file: forms.spots_in(header) for file, header in headers.items()}
    texts = {file: (copy.source / file).read_bytes().decode() for file in copy.files if copy.is_changed(file)}
    texts |= headers
    while True:
        listed = write_changed(copy, texts, spots)
        print(f"{len(listed)} changes are compiled in", flush=True)
        built = subprocess.run(
            ["cmake", "--build", copy.build, "--", "-k", "0"],
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
        )  # fmt: skip
        if built.returncode == 0:
            break
        left = dict(spots)
        for file, lines in refused_lines(copy, built.stdout).items():
            form = next((form for form in headers if f"src/ui_{Path(form).stem}.h" == file), file)
            left[form] = without(texts[form], spots.get(form, []), lines)
            print(f"not taken by the compiler: {form}, lines {sorted(lines)}", flush=True)
        if left == spots:
            raise SystemExit(built.stdout[-20000:])
        spots = left
    rows = ("\t".join(re.sub(r"\s+", " ", str(field)) for field in row) for row in listed)
    write(copy.folder / "places.tsv", "".join(row + "\n" for row in rows))


if __name__ == "__main__":
    if len(sys.argv) != 3:
        raise SystemExit(__doc__)
    main(*sys.argv[1:])
