# Makes a program of the C++ blocks of a page. Each block is the body of a function, run in the order of the page; its
# includes go to the top, and a block behind the line "<!-- declarations -->" stands outside of functions. The block
# of text behind a block of code is what that code prints.
# A page whose one block is a whole program is read with "-v whole=1".
# Usage: awk -v page=NAME -v program=FILE -v expected=FILE -f Snippets.awk PAGE

function endOfCode() {
    if (whole) {
        printf "%s", code >program
    } else if (isDeclaration) {
        declarations = declarations code
    } else {
        functions = functions "void Snippet" start "()\n{\n" code "}\n\n"
        calls = calls "    std::cout << \"-- line " start "\\n\";\n    Snippet" start "();\n"
        print "-- line " start >expected
    }
    isDeclaration = 0
}

BEGIN { printf "" >expected }

fence == "cpp" && /^```/ { endOfCode(); fence = ""; next }
fence == "text" && /^```/ { fence = ""; next }
fence == "other" && /^```/ { fence = ""; next }
fence == "cpp" && !whole && /^#include / { if (!seen[$0]++) includes = includes $0 "\n"; code = code "\n"; next }
fence == "cpp" { code = code $0 "\n"; next }
fence == "text" { print >expected; next }
fence == "other" { next }
/^<!-- declarations -->$/ { isDeclaration = 1; next }
/^```cpp$/ { fence = "cpp"; start = NR; code = "#line " NR + 1 " \"" page "\"\n"; next }
/^```text$/ { fence = "text"; next }
/^```/ { fence = "other"; next }

END {
    if (fence != "") {
        print page ": the block from line " start " on has no end" >"/dev/stderr"
        exit 1
    }
    if (whole) {
        exit
    }
    print includes "#include <iostream>\n" >program
    print declarations "\nnamespace\n{\n" >program
    print functions "} // namespace\n\nint main()\n{\n" calls "}" >program
}
