// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_CommandLineParser.h"

#include "platform/base/internal/System_CommandLineWord.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/classes/Classes_Update.h"
#include "platform/runtime/sysutils/Character.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "text/editing/BTL_STR_Cut.h"
#include "text/numbers/BTL_NUM_Integers.h"

#include <algorithm>

namespace BTL
{

namespace
{

using Character::TCharacter;
using System::Int64;
using System::UnicodeString;
using System::WideChar;

constexpr WideChar Quote = u'"';
constexpr WideChar EqualSign = u'=';

bool EndsArgument(WideChar c)
{
    return c == Quote || c == EqualSign || TCharacter::IsWhiteSpace(c);
}

bool IsArgument(std::u16string_view text)
{
    return !text.empty() && std::none_of(text.begin(), text.end(), EndsArgument);
}

/// `word` so that it is one token.
UnicodeString AsToken(std::u16string_view word)
{
    const UnicodeString text(word);
    return IsArgument(word) ? text : Sysutils::AnsiQuotedStr(text, Quote);
}

/// `word` so that it is one token, or a name, `=` and a value.
UnicodeString AsTokens(const UnicodeString& word)
{
    const std::u16string_view text = word.AsView();
    const std::size_t equalSign = text.find(EqualSign);
    if (equalSign == std::u16string_view::npos || !IsArgument(text.substr(0, equalSign))) {
        return AsToken(text);
    }
    return UnicodeString(text.substr(0, equalSign + 1)) + AsToken(text.substr(equalSign + 1));
}

/// The 0-based index of the 1-based `position`; the length if it lies outside.
std::size_t IndexIn(std::u16string_view text, int position)
{
    const auto index = static_cast<std::size_t>(static_cast<Int64>(position) - 1);
    return std::min(index, text.size());
}

int PositionOf(std::size_t index)
{
    return static_cast<int>(index + 1);
}

} // namespace

CCommandLineParser::CCommandLineParser(bool caseSensitive) : mCaseSensitive(caseSensitive)
{
    mTokens.setCaseSensitive(caseSensitive);
}

CCommandLineParser::CCommandLineParser(const CCommandLineParser& other)
    : CCommandLineParser(other.mCaseSensitive)
{
    Assign(other);
}

CCommandLineParser& CCommandLineParser::operator=(const CCommandLineParser& other)
{
    if (this != &other) {
        Assign(other);
    }
    return *this;
}

CCommandLineParser::~CCommandLineParser() = default;

void CCommandLineParser::Assign(const CCommandLineParser& other)
{
    if (this == &other) {
        return;
    }
    mCaseSensitive = other.mCaseSensitive;
    mText = other.mText;
    mTokens.Clear();
    mTokens.setCaseSensitive(mCaseSensitive);
    mTokens.AddStrings(&other.mTokens);
}

void CCommandLineParser::Parse(const UnicodeString& text)
{
    const Classes::GUpdateScope update(mTokens);
    mText = text;
    mTokens.Clear();
    int position = 1;
    while (position <= mText.Length()) {
        const WideChar c = mText.c_str()[position - 1];
        if (c == Quote) {
            position = ParserStr(mText, position);
        } else if (c == EqualSign) {
            Add(EqualSign);
            ++position;
        } else if (TCharacter::IsWhiteSpace(c)) {
            ++position;
        } else {
            position = ParserArg(mText, position);
        }
    }
}

void CCommandLineParser::Parse(int argc, const char* const* argv)
{
    UnicodeString text;
    for (int i = 1; i < argc; ++i) {
        if (i > 1) {
            text += u' ';
        }
        text += AsTokens(System::Detail::CommandLineWord(argv[i]));
    }
    Parse(text);
}

int CCommandLineParser::ParserArg(const UnicodeString& text, int position)
{
    const std::u16string_view all = text.AsView();
    const std::size_t start = IndexIn(all, position);
    if (start == all.size()) {
        return PositionOf(start);
    }
    const auto* const end = std::find_if(all.begin() + start + 1, all.end(), EndsArgument);
    Add(UnicodeString(std::u16string_view(all.begin() + start, end)));
    return PositionOf(static_cast<std::size_t>(end - all.begin()));
}

int CCommandLineParser::ParserStr(const UnicodeString& text, int position)
{
    const std::u16string_view all = text.AsView();
    const std::size_t start = IndexIn(all, position);
    if (start == all.size()) {
        return PositionOf(start);
    }
    UnicodeString token;
    std::size_t next = start;
    std::size_t search = start + 1;
    while (true) {
        const std::size_t end = std::min(all.find(Quote, search), all.size() - 1) + 1;
        token.Append(all.substr(next, end - next));
        // A quote that ends the text is no half of a pair: it opens a token of its own.
        if (end + 1 >= all.size() || all[end] != Quote) {
            Add(token);
            return PositionOf(end);
        }
        next = search = end + 1;
    }
}

void CCommandLineParser::Add(const UnicodeString& argument)
{
    if (!argument.IsEmpty()) {
        mTokens.Add(argument);
    }
}

bool CCommandLineParser::IsEqualSign(int index) const
{
    return index >= 0 && index < mTokens.getCount() && mTokens[index] == UnicodeString(EqualSign);
}

bool CCommandLineParser::IsName(int index, const UnicodeString& name) const
{
    const UnicodeString token = mTokens[index];
    return (mCaseSensitive ? token == name : Sysutils::SameText(token, name)) && !IsEqualSign(index - 1);
}

int CCommandLineParser::IndexOf(const UnicodeString& name) const
{
    for (int i = 0; i < mTokens.getCount(); ++i) {
        if (IsName(i, name)) {
            return i;
        }
    }
    return -1;
}

bool CCommandLineParser::Find(const UnicodeString& name, UnicodeString& value, bool unquote) const
{
    const int index = IndexOf(name);
    if (index < 0) {
        return false;
    }
    const int valueIndex = IsEqualSign(index + 1) ? index + 2 : index + 1;
    if (valueIndex < mTokens.getCount()) {
        value = unquote ? ExtractQuotedStr(mTokens[valueIndex], Quote) : mTokens[valueIndex];
    }
    return true;
}

bool CCommandLineParser::Find(const UnicodeString& name, UnicodeString& value,
                              const UnicodeString& defaultValue, bool unquote) const
{
    UnicodeString text;
    const bool found = Find(name, text, unquote);
    value = text.IsEmpty() ? defaultValue : text;
    return found;
}

bool CCommandLineParser::Find(const UnicodeString& name, int& value, int defaultValue) const
{
    UnicodeString text;
    const bool found = Find(name, text, true);
    value = Sysutils::StrToIntDef(text, defaultValue);
    return found;
}

bool CCommandLineParser::Find(const UnicodeString& name, Int64& value, Int64 defaultValue) const
{
    UnicodeString text;
    const bool found = Find(name, text, true);
    value = StrToInt64Def(text, defaultValue);
    return found;
}

bool CCommandLineParser::Find(const UnicodeString& name, bool& value, bool defaultValue) const
{
    UnicodeString text;
    const bool found = Find(name, text, true);
    const UnicodeString upper = text.UpperCase();
    value = upper == u"TRUE" || (upper != u"FALSE" && Sysutils::StrToIntDef(text, defaultValue ? 1 : 0) != 0);
    return found;
}

UnicodeString CCommandLineParser::GetString(const UnicodeString& name,
                                            const UnicodeString& defaultValue) const
{
    UnicodeString value;
    Find(name, value, defaultValue, true);
    return value;
}

int CCommandLineParser::GetInt(const UnicodeString& name, int defaultValue) const
{
    int value = 0;
    Find(name, value, defaultValue);
    return value;
}

Int64 CCommandLineParser::GetInt64(const UnicodeString& name, Int64 defaultValue) const
{
    Int64 value = 0;
    Find(name, value, defaultValue);
    return value;
}

bool CCommandLineParser::GetBool(const UnicodeString& name, bool defaultValue) const
{
    bool value = false;
    Find(name, value, defaultValue);
    return value;
}

void CCommandLineParser::RemoveAt(int index)
{
    if (index < mTokens.getCount()) {
        mTokens.Delete(index);
    }
}

void CCommandLineParser::Remove(const UnicodeString& name)
{
    const int index = IndexOf(name);
    if (index < 0) {
        return;
    }
    RemoveAt(index);
    if (IsEqualSign(index)) {
        RemoveAt(index);
        RemoveAt(index);
    }
}

} // namespace BTL
