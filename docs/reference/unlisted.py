# SPDX-License-Identifier: MIT
"""Tells the public functions that the guide's index of names lacks, one a line: FILE: NAME.

Usage: unlisted.py XMLFOLDER INDEX, the former as Doxygen writes it from the installed headers.

The index has a row for each header, `| `Name`, `Name` | `header.h` |`, and each free function stands in that of its
header, unless the header's own name tells it. A name stands also for its forms:
- with `Try` in front, and with `Def`, `64`, `_V` or `_VA` behind,
- in the other width, with `A` or `W` behind.
"""

import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

FORMS = (r"^Try(?=[A-Z])", r"Def$", r"64$", r"_VA?$", r"[AW]$")
ROOT = "TRS8_BTL/"


def free_functions(folder):
    """The public free functions, as pairs of header and name."""
    for path in sorted(pathlib.Path(folder).glob("*.xml")):
        for compound in ElementTree.parse(path).getroot().iter("compounddef"):
            scope = compound.findtext("compoundname")
            if compound.get("kind") not in ("namespace", "file") or "Detail" in scope or "@" in scope:
                continue
            for member in compound.iter("memberdef"):
                name = member.findtext("name")
                location = member.find("location")
                header = location.get("declfile") or location.get("file") or ""
                is_free = member.get("kind") == "function" and not name.startswith("operator")
                if is_free and header.startswith(ROOT) and "Detail::" not in (member.findtext("qualifiedname") or ""):
                    yield header.removeprefix(ROOT), name


def stands_for(name):
    """The names that an index may have in place of this one."""
    names = {name}
    for form in FORMS:
        names |= {re.sub(form, "", other) for other in names}
    return names | {other + width for other in names for width in "AW"}


def listed(index):
    """The names beside each header of the index."""
    rows = {}
    for line in pathlib.Path(index).read_text(encoding="utf-8").splitlines():
        if re.fullmatch(r"\| `.*\.h` \|", line):
            *names, header = re.findall(r"`([^`]+)`", line)
            rows.setdefault(header, set()).update(name.split("::")[-1] for name in names)
    return rows


def main(folder, index):
    rows = listed(index)
    unlisted = {
        (header, name)
        for header, name in free_functions(folder)
        if name.lower() not in pathlib.PurePath(header).stem.lower() and not stands_for(name) & rows.get(header, set())
    }
    for header, name in sorted(unlisted):
        print(f"{header}: {name}")
    return 1 if unlisted else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
