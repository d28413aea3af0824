# SPDX-License-Identifier: MIT
"""Tells the public declarations without a comment, one a line: FILE:LINE: NAME.

Usage: undocumented.py XMLFOLDER INCLUDEFOLDER, the former as Doxygen writes it from the headers of the latter.

Every class, enumeration, type, constant and function has a comment, except where its name is all there is to say:
- Overloads may share one, and so may neighbours without an empty line between them: it stands above the first, also
  as a plain comment.
- An override has that of the function it overrides; constructors, destructors and operators mean what they always do.
- `getX` and `setX` read and write a property, the names of the standard library's containers mean what they mean there.
- A specialisation does what its template says.
- The members of a record that has a comment itself, and the values of an enumeration.
"""

import itertools
import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

STANDARD_NAMES = set(
    """back begin c_str capacity cbegin cend clear count data empty end erase find front insert max_size pop_back
    push_back push_front rbegin rend reserve resize size swap const_iterator const_reference difference_type iterator
    iterator_category pointer reference size_type value_type View CharType Char""".split()
)
# What the macros that declare a class of the component tree put into it.
CLASS_RECORD = {"ThisClass", "ParentClass", "OwnClass", "ClassRecord", "ClassInfo", "ClassName"}


def has_comment(element):
    parts = (element.find("briefdescription"), element.find("detaileddescription"))
    return any(part is not None and "".join(part.itertext()).strip() for part in parts)


def is_hidden(scope):
    return "Detail" in re.split(r"::|@", scope) or "@" in scope


class Headers:
    """The lines of the headers, and which of them stand in a row below a comment."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.lines = {}

    def in_commented_row(self, file, line):
        if file not in self.lines:
            self.lines[file] = (self.folder / file).read_text(encoding="utf-8").split("\n")
        lines = self.lines[file]
        above = [text.strip() for text in reversed(lines[: line - 1])]
        row = list(itertools.takewhile(lambda text: text and not text.endswith(":") and text not in ("{", "};"), above))
        # A comment with an empty line below it is for all of the row.
        heading = above[len(row) + 1 : len(row) + 2] if above[len(row) : len(row) + 1] == [""] else []
        return any(text.startswith("//") for text in row + heading)


def place(element):
    location = element.find("location")
    file = location.get("declfile") or location.get("file")
    line = int(location.get("declline") or location.get("line"))
    return file, line


def says_all(member, scope, kind):
    """Whether the name is all there is to say."""
    name = member.findtext("name")
    if name.startswith(("~", "operator")) or member.find("reimplements") is not None or member.get("kind") == "friend":
        return True
    if " override" in (member.findtext("argsstring") or ""):
        return True
    if re.match(r"[gs]et(_|[A-Z])", name) or name in STANDARD_NAMES or name in CLASS_RECORD:
        return True
    if kind in ("class", "struct", "union"):
        own_name = re.sub(r"<.*", "", scope).split("::")[-1].strip()
        is_constructor = member.get("kind") == "function" and not "".join(member.find("type").itertext())
        return member.get("kind") == "variable" or name == own_name or is_constructor
    return False


def undocumented(compound, headers):
    kind, scope = compound.get("kind"), compound.findtext("compoundname")
    if kind not in ("namespace", "class", "struct", "union") or is_hidden(scope) or compound.get("prot") == "private":
        return
    if kind in ("class", "struct") and "<" in scope:
        return
    if kind != "namespace" and not has_comment(compound):
        yield place(compound), scope
    members = list(compound.iter("memberdef"))
    told = {member.findtext("name") for member in members if has_comment(member)}
    for member in members:
        name = member.findtext("name")
        if member.get("prot") == "private" or has_comment(member) or name in told or says_all(member, scope, kind):
            continue
        at = place(member)
        if not headers.in_commented_row(*at):
            yield at, f"{scope}::{name}"


def main(xml_folder, header_folder):
    headers = Headers(header_folder)
    files = sorted(pathlib.Path(xml_folder).glob("*.xml"))
    compounds = [compound for file in files for compound in ElementTree.parse(file).getroot().findall("compounddef")]
    if not compounds:
        sys.exit(f"{xml_folder} tells of no class and no function")
    found = {(at, name) for compound in compounds for at, name in undocumented(compound, headers)}
    for (file, line), name in sorted(found):
        print(f"{file.replace('TRS8_BTL/', 'src/', 1)}:{line}: {name}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
