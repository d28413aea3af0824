// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Strings.h"

#include <set>
#include <span>

namespace BTL
{

/// A set of texts in the exact order of their characters, so that case matters. A null list as an argument
/// counts as empty, and filling it does nothing.
///
///     BTL::CStringSet names(u"fig,pear");
///     names << u"apple" >> u"fig";
///     const bool hasBoth = names.ContainsAll(u"apple,pear");
///     const UnicodeString text = names.getCommaText(); // "apple,pear"
class TRS8_BTL_API CStringSet : public std::set<System::UnicodeString>
{
public:
    CStringSet() = default;
    /// The items of a comma text; texts as they stand are a `std::span` or go in by `<<`.
    explicit CStringSet(const System::UnicodeString& commaText);
    explicit CStringSet(std::span<const System::UnicodeString> texts);

    // Insertion, and removal of what is there.

    CStringSet& operator<<(const System::UnicodeString& text);
    CStringSet& operator<<(const CStringSet& other);
    CStringSet& operator<<(const Classes::TStrings* strings);
    CStringSet& operator>>(const System::UnicodeString& text);
    CStringSet& operator>>(const CStringSet& other);
    CStringSet& operator>>(const Classes::TStrings* strings);
    void AddCommaText(const System::UnicodeString& text);

    /// Whether the text is in the set.
    bool Contains(const System::UnicodeString& text) const { return contains(text); }
    // True for an empty argument.
    bool ContainsAll(const CStringSet& other) const;
    bool ContainsAll(const Classes::TStrings* strings) const;
    bool ContainsAll(const System::UnicodeString& commaText) const;

    /// Adds each text as a line, in the order of the set; null does nothing.
    void AddStringsTo(Classes::TStrings* strings) const;
    /// Clears the list first.
    void GetStrings(Classes::TStrings* strings) const;
    /// Takes the lines in place of all that was there.
    void SetStrings(const Classes::TStrings* strings);
    /// The texts with `delim` between, nothing quoted.
    System::UnicodeString GetDelimitedText(System::WideChar delim) const;
    System::UnicodeString getCommaText() const;
    /// Takes the items in place of all that was there.
    void setCommaText(const System::UnicodeString& text);
};

} // namespace BTL
