// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_StringList.h"

namespace BTL
{

/// Cuts a command line into tokens and finds values by name. There is no list of valid names: a name is any
/// token that follows no `=`, with the switch character that the caller uses, if any. Its value is the next
/// token, or the one behind a `=` that follows; that may also be another switch.
///
///     BTL::CCommandLineParser line(true);
///     line.Parse(argc, argv);                              // program --port=8080 "--name=My station"
///     const int port = line.GetInt(u"--port", 80);
///     const UnicodeString name = line.GetString(u"--name", u"station");
///
/// Where the options are known, `CCommandLineOptions` refuses others and writes the help.
///
/// Tokens are `=`, text in double quotes, and runs of other characters without white space. A quoted token
/// keeps its quotes; a doubled quote inside is one. An unclosed quote ends with the text.
class TRS8_BTL_API CCommandLineParser
{
public:
    /// `caseSensitive` tells how names are compared.
    explicit CCommandLineParser(bool caseSensitive);
    CCommandLineParser(const CCommandLineParser& other);
    CCommandLineParser& operator=(const CCommandLineParser& other);
    ~CCommandLineParser();

    /// As the assignment of `other`.
    void Assign(const CCommandLineParser& other);

    /// Takes the tokens of `text` in place of all that was there.
    void Parse(const System::UnicodeString& text);
    /// Takes the words that `main` gets, in UTF-8, without the program's name, so that none has to be quoted
    /// again: of `name=value` the value, blanks and quotes included, is that of the name; any other word with
    /// a blank, a quote or a `=` is a quoted token, as is an empty one. `getText` is the text with these
    /// tokens. Bytes that are no UTF-8 stay as in the paths of `Sysutils::FromHostPath`, so that a file of
    /// such a name can be opened.
    void Parse(int argc, const char* const* argv);
    /// Adds the run of characters that begins at the 1-based `position`, and gives the position behind it. A
    /// position outside the text adds nothing and gives its end.
    int ParserArg(const System::UnicodeString& text, int position);
    /// As `ParserArg`, but for the quoted token whose opening quote is at `position`.
    int ParserStr(const System::UnicodeString& text, int position);
    /// Appends a token, unless it is empty.
    void Add(const System::UnicodeString& argument);

    bool getCaseSensitive() const noexcept { return mCaseSensitive; }
    /// The text last parsed.
    const System::UnicodeString& getText() const noexcept { return mText; }
    const Classes::TStringList& getTokens() const noexcept { return mTokens; }

    /// The first token that is this name; -1 if there is none.
    int IndexOf(const System::UnicodeString& name) const;

    // Whether the name is there. `value` becomes its value, without the outer quotes where `unquote` says so
    // or the value is a number; where there is no value, `value` stays.

    bool Find(const System::UnicodeString& name) const { return IndexOf(name) >= 0; }
    bool Find(const System::UnicodeString& name, System::UnicodeString& value, bool unquote) const;

    // The same, but `value` becomes `defaultValue` without a name and with a value that is missing, empty or
    // of another kind.

    bool Find(const System::UnicodeString& name, System::UnicodeString& value,
              const System::UnicodeString& defaultValue, bool unquote) const;
    bool Find(const System::UnicodeString& name, int& value, int defaultValue) const;
    bool Find(const System::UnicodeString& name, System::Int64& value, System::Int64 defaultValue) const;
    /// Values are `true` and `false`, in any case, and integers, of which 0 is false.
    bool Find(const System::UnicodeString& name, bool& value, bool defaultValue) const;

    /// Without its outer quotes.
    System::UnicodeString GetString(const System::UnicodeString& name,
                                    const System::UnicodeString& defaultValue) const;
    int GetInt(const System::UnicodeString& name, int defaultValue) const;
    System::Int64 GetInt64(const System::UnicodeString& name, System::Int64 defaultValue) const;
    bool GetBool(const System::UnicodeString& name, bool defaultValue) const;

    /// Removes the name, and with it a `=` behind it and the value behind that. A value without `=` stays.
    void Remove(const System::UnicodeString& name);

private:
    bool IsEqualSign(int index) const;
    bool IsName(int index, const System::UnicodeString& name) const;
    void RemoveAt(int index);

    bool mCaseSensitive;
    System::UnicodeString mText;
    Classes::TStringList mTokens;
};

} // namespace BTL
