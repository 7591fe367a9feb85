#!/usr/bin/env python3
"""Fails where an arrow of the house points up, or a file includes what its library does not link.

    tools/camadas.py [TREE]

The link lines of the CMakeLists.txt say what a library may use; this looks whether the includes keep to them, as the
one include path of the build would let everything pass.
"""

import re
import sys
from pathlib import Path

# From the bottom to the top: a library links those of lower layers only.
LAYERS = (
    ("runtime", "files"),
    ("dao", "ini", "jet", "pages", "ui"),
    ("printer",),
    ("core",),
    ("core_janelas",),
    ("documents",),
    ("shell", "registers", "workorders", "estimates", "finance", "stock", "reports"),
    ("tarvelo",),
)
WINDOWLESS = ("runtime", "files", "dao", "ini", "jet", "pages", "core")
WINDOW_MODULES = ("Qt6::Widgets", "Qt6::PrintSupport", "Qt6::Svg")
# What only one library knows: how it is linked, its header, that library, what it is.
FOREIGN = (
    ("SQLite::", "sqlite3.h", "dao", "the database library"),
    ("PkgConfig::LIBMDB", "mdbtools.h", "jet", "the library of Jet files"),
)
OTHERS = ("support", "tests", "tools", "data", "docs", "bench")  # may use every library, and stand in no layer
SYSTEM_FOLDER = "platform/"  # below it alone stands what differs between systems


class Library:
    def __init__(self, name, folder, sources, links):
        self.name = name
        self.folder = folder
        self.stems = {Path(source).stem for source in sources}
        self.links = links
        self.layer = next((number for number, names in enumerate(LAYERS) if name in names), None)


def words_after(arguments, keyword):
    """What stands behind a keyword of a CMake call, up to the next one."""
    found = re.search(rf"\b{keyword}\b((?:\s+(?![A-Z]+(?:\s|$))\S+)*)", arguments)
    return found.group(1).split() if found else []


def read_libraries(tree):
    libraries = {}
    folders = re.findall(r"^add_subdirectory\((\S+)\)", (tree / "CMakeLists.txt").read_text(), re.M)
    for folder in (folder for folder in folders if folder not in OTHERS):
        text = re.sub(r"#.*", "", (tree / folder / "CMakeLists.txt").read_text())
        for name, arguments in re.findall(r"tarvelo_(?:library|program)\(\s*(\w+)([^)]*)\)", text):
            links = words_after(arguments, "LINK") + words_after(arguments, "PRIVATE")
            libraries[name] = Library(name, folder, words_after(arguments, "SOURCES"), links)
        for name, sources in re.findall(r"target_sources\(\s*(\w+)\s+PRIVATE([^)]*)\)", text):
            libraries[name].stems |= {Path(source).stem for source in sources.split()}
    return libraries


def reach(library, libraries, seen=None):
    """Every name that a library links, itself or through others."""
    seen = set() if seen is None else seen
    for link in library.links:
        if link not in seen:
            seen.add(link)
            if link in libraries:
                reach(libraries[link], libraries, seen)
    return seen


def link_faults(libraries):
    for library in libraries.values():
        if library.layer is None:
            yield f"{library.folder}: {library.name} stands in no layer of tools/camadas.py"
            continue
        for link in library.links:
            if link in libraries and (libraries[link].layer is None or libraries[link].layer >= library.layer):
                yield f"{library.folder}: {library.name} links {link}, which is not below it"
            for name, _, knower, what in FOREIGN:
                if link.startswith(name) and library.name != knower:
                    yield f"{library.folder}: {library.name} links {link}; only {knower} knows {what}"
        if library.name in WINDOWLESS:
            for module in sorted(reach(library, libraries).intersection(WINDOW_MODULES)):
                yield f"{library.folder}: {library.name} reaches {module} and has to do without windows"


class Files:
    """Which library each source file belongs to, and what it includes."""

    def __init__(self, tree, libraries):
        self.tree = tree
        self.libraries = libraries
        self.owners = {}

    def all(self):
        for folder in sorted({library.folder for library in self.libraries.values()}):
            for path in sorted((self.tree / folder).iterdir()):
                if path.suffix in (".h", ".cpp", ".ui"):
                    yield path.relative_to(self.tree).as_posix()

    def includes(self, file):
        text = (self.tree / file).read_text()
        pattern = r"<header>(.*?)</header>" if file.endswith(".ui") else r'^\s*#\s*include\s+"(.*?)"'
        return [name for name in re.findall(pattern, text, re.M) if (self.tree / name).is_file() and "/" in name]

    def system_includes(self, file):
        found = re.findall(r"^\s*#\s*include\s+<(.*?)>", (self.tree / file).read_text(), re.M)
        return [name for name in found if name.endswith(".h") or ("/" in name and not name.startswith("Qt"))]

    def owner(self, file):
        """A header or a layout of its own belongs to the lowest library of its folder that links what it includes."""
        if file not in self.owners:
            path = Path(file)
            here = [library for library in self.libraries.values() if library.folder == path.parent.as_posix()]
            here.sort(key=lambda library: library.layer or 0)
            twins = [library for library in here if path.stem in library.stems]
            self.owners[file] = twins[0] if twins else None
            if not twins and path.suffix in (".h", ".ui"):
                able = [library for library in here if not self.strangers(file, library)]
                self.owners[file] = (able or here or [None])[0]
        return self.owners[file]

    def strangers(self, file, library):
        """The files that `file` includes and `library` does not link."""
        allowed = reach(library, self.libraries) | {library.name}
        owners = ((name, self.owner(name)) for name in self.includes(file) if name != file)
        return [name for name, owner in owners if owner is None or owner.name not in allowed]


def include_faults(tree, libraries):
    files = Files(tree, libraries)
    for file in files.all():
        owner = files.owner(file)
        if owner is None:
            yield f"{file}: belongs to no library"
            continue
        for name in files.strangers(file, owner):
            yield f"{file}: includes {name}, which {owner.name} does not link"
        for name in files.system_includes(file):
            strange = [(knower, what) for _, header, knower, what in FOREIGN if name == header and owner.name != knower]
            if strange:
                knower, what = strange[0]
                yield f"{file}: includes {name}; only {knower} knows {what}"
            elif not file.startswith(SYSTEM_FOLDER):
                yield f"{file}: includes the system header {name}; such stand below {SYSTEM_FOLDER} only"


def main():
    tree = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent)
    libraries = read_libraries(tree)
    faults = [*link_faults(libraries), *include_faults(tree, libraries)]
    print("\n".join(faults), file=sys.stderr, end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
