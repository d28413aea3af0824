# SPDX-License-Identifier: MIT
"""Runs in gdb: stops the program where its values stand, and compares how they are shown with expected.txt."""

import os

import gdb


def shown(expression):
    try:
        return gdb.execute(f"output {expression}", to_string=True)
    except gdb.error as error:
        return f"an error: {error}"


def main():
    gdb.execute("break Stop")
    gdb.execute("run", to_string=True)
    gdb.execute("up", to_string=True)
    with open(os.path.join(os.path.dirname(__file__), "expected.txt"), encoding="utf-8") as lines:
        rows = [line.rstrip("\n").split(" = ", 1) for line in lines]
    wrong = [(name, text, shown(name)) for name, text in rows if shown(name) != text]
    for name, text, found in wrong:
        print(f"{name}: '{found}', not '{text}'")
    return 1 if wrong or not rows else 0


try:
    code = main()
except Exception as error:
    print(error)
    code = 1
gdb.execute("kill", to_string=True)
gdb.execute(f"quit {code}")
