// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Words.h"

#include "foundation/UTL_STR_Find.h"
#include "platform/base/internal/System_Ascii.h"

#include <unicode/uchar.h>

#include <array>

namespace UTL
{

namespace
{

using System::WideChar;
using System::Detail::IsAsciiDigit;
using System::Detail::IsAsciiLetter;

bool IsUnicodeLetter(WideChar c)
{
    return u_isalpha(c) != 0;
}

bool IsUnicodeLetterOrDigit(WideChar c)
{
    return u_isalnum(c) != 0;
}

using TWordTable = std::array<unsigned char, 256>;

enum class EDigits
{
    Left,
    Taken,
};

constexpr TWordTable MakeWordTable(EDigits digits)
{
    TWordTable table = {};
    for (unsigned code = 0; code < table.size(); ++code) {
        const bool isLetter = IsAsciiLetter(code) || code == '_';
        const bool isWestern = code == 142 || code == 158 || code == 159 || (code >= 192 && code != 247);
        const bool isDigit = IsAsciiDigit(code);
        table[code] = isLetter || isWestern || (digits == EDigits::Taken && isDigit);
    }
    return table;
}

constexpr TWordTable WordChars = MakeWordTable(EDigits::Left);
constexpr TWordTable WordChars2 = MakeWordTable(EDigits::Taken);

bool IsInTable(char c, const unsigned char* table)
{
    return table != nullptr && table[static_cast<unsigned char>(c)] != 0;
}

template <class Char, class Begins, class Continues>
bool FindWord(const Char* text, unsigned& offset, unsigned& length, Begins begins, Continues continues)
{
    const Char* first = text;
    while (first != nullptr && *first != 0 && !begins(*first)) {
        ++first;
    }
    const Char* end = first;
    while (end != nullptr && *end != 0 && (end == first || continues(*end))) {
        ++end;
    }
    offset = static_cast<unsigned>(first - text);
    length = static_cast<unsigned>(end - first);
    return length != 0;
}

template <class Char>
int FindWords(const Char* text, int count, unsigned& offset, unsigned& length)
{
    if (!GetWord(text, offset, length)) {
        return 0;
    }
    int found = 1;
    unsigned gap = 0;
    unsigned wordLength = 0;
    while (found < count && GetWord(text + offset + length, gap, wordLength)) {
        length += gap + wordLength;
        ++found;
    }
    return found;
}

template <class Char>
bool FindSQLParamOf(const Char* text, int& position, int& length)
{
    position = find_first_of(static_cast<Char>(':'), text, 0);
    length = 0;
    if (position < 0) {
        return false;
    }
    const Char* const name = text + position + 1;
    const Char* end = name;
    while (IsAsciiLetter(*end) || IsAsciiDigit(*end) || *end == '_') {
        ++end;
    }
    length = 1 + static_cast<int>(end - name);
    return length >= 2;
}

} // namespace

const unsigned char* GetWordCharsA()
{
    return WordChars.data();
}

const unsigned char* GetWordCharsW()
{
    return WordChars.data();
}

const unsigned char* GetWordChars2A()
{
    return WordChars2.data();
}

const unsigned char* GetWordChars2W()
{
    return WordChars2.data();
}

bool GetWord(const char* text, unsigned& offset, unsigned& length)
{
    return GetWord(text, offset, length, GetWordChars2A(), GetWordCharsA());
}

bool GetWord(const WideChar* text, unsigned& offset, unsigned& length)
{
    return FindWord(
        text, offset, length, [](WideChar c) { return IsUnicodeLetter(c); },
        [](WideChar c) { return IsUnicodeLetterOrDigit(c); });
}

bool GetWord(const char* text, unsigned& offset, unsigned& length, const unsigned char* table)
{
    return GetWord(text, offset, length, table, table);
}

bool GetWord(const char* text, unsigned& offset, unsigned& length, const unsigned char* following,
             const unsigned char* first)
{
    return FindWord(
        text, offset, length, [first](char c) { return IsInTable(c, first); },
        [following](char c) { return IsInTable(c, following); });
}

int GetWords(const char* text, int count, unsigned& offset, unsigned& length)
{
    return FindWords(text, count, offset, length);
}

int GetWords(const WideChar* text, int count, unsigned& offset, unsigned& length)
{
    return FindWords(text, count, offset, length);
}

bool FindSQLParam(const char* text, int& position, int& length)
{
    return FindSQLParamOf(text, position, length);
}

bool FindSQLParam(const WideChar* text, int& position, int& length)
{
    return FindSQLParamOf(text, position, length);
}

} // namespace UTL
