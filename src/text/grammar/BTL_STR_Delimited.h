// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_StringList.h"

#include <concepts>

namespace BTL
{

// Lists as one text. A null list counts as empty, and filling it does nothing. Narrow characters beside wide
// texts are those that they are in the system's code page.
//
//     Classes::TStringList list;
//     BTL::SetDelimitedTextEx(&list, u"a;'b;c'", u';', u'\'');          // "a" and "b;c"
//     const auto text = BTL::GetDelimitedTextEx(&list, u';', u'\'');   // the text again
//     UnicodeString csv;
//     BTL::AddCSVString(csv, u"a;b", u';');                            // "\"a;b\""

/// Appends a field to a line of comma separated values, which is also the result. Double quotes in the field
/// are doubled; the field is put in quotes if it holds `delim`, or if it is the first one and begins with
/// "ID", which would make readers take the line for another format. Not each line can be read back: empty
/// fields in front are lost, and a field without `delim` isn't put in quotes for the quotes and line ends
/// that it holds. `CsvLine` and `CCsvWriter` write what `CCsvReader` reads back.
TRS8_BTL_API System::UnicodeString& AddCSVString(System::UnicodeString& csv,
                                                 const System::UnicodeString& value, System::WideChar delim);
template <std::same_as<char> Narrow>
System::UnicodeString& AddCSVString(System::UnicodeString& csv, const System::UnicodeString& value,
                                    Narrow delim)
{
    return AddCSVString(csv, value, System::UnicodeString(delim)[1]);
}

/// The lines with `delim` between; a line that holds `delim` is quoted.
TRS8_BTL_API System::UnicodeString GetDelimitedTextEx(Classes::TStrings* strings, System::WideChar delim,
                                                      System::WideChar quote);
TRS8_BTL_API System::AnsiString GetDelimitedTextEx(Classes::TStrings* strings, char delim, char quote);
/// Fills the list from a text. Blanks and `delim` end an item unless it is quoted; a `delim` at the end adds
/// no empty item. A zero `quote` quotes nothing.
TRS8_BTL_API void SetDelimitedTextEx(Classes::TStrings* strings, const System::UnicodeString& text,
                                     System::WideChar delim, System::WideChar quote);
TRS8_BTL_API void SetDelimitedTextEx(Classes::TStrings* strings, const System::AnsiString& text, char delim,
                                     char quote);
template <std::same_as<char> Narrow>
void SetDelimitedTextEx(Classes::TStrings* strings, const System::UnicodeString& text, Narrow delim,
                        char quote)
{
    SetDelimitedTextEx(strings, text, System::UnicodeString(delim)[1], System::UnicodeString(quote)[1]);
}

/// The lines with `delim` between, nothing quoted.
TRS8_BTL_API System::UnicodeString GetDelimitedText(Classes::TStrings* strings, System::WideChar delim);
TRS8_BTL_API System::AnsiString GetDelimitedText(Classes::TStrings* strings, char delim);
/// As `GetDelimitedText`: nothing is quoted, so that only `TStrings::getCommaText` brings any list back.
TRS8_BTL_API System::UnicodeString CommaText(Classes::TStrings* strings, System::WideChar delim = u',');
TRS8_BTL_API System::AnsiString CommaTextA(Classes::TStrings* strings, char delim = ',');
/// As `CommaText`, with a narrow delimiter.
template <std::same_as<char> Narrow>
System::UnicodeString CommaText(Classes::TStrings* strings, Narrow delim)
{
    return CommaText(strings, System::UnicodeString(delim)[1]);
}

/// A text of several lines as the comma text of a string list; any other text as it is.
[[nodiscard]] TRS8_BTL_API System::UnicodeString LinesToCommaText(const System::UnicodeString& s);
[[nodiscard]] TRS8_BTL_API System::AnsiString LinesToCommaText(const System::AnsiString& s);

} // namespace BTL
