// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_AutoPtr.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/sysutils/System_Printf.h"

#include <span>

namespace BTL
{

/// Line operations on the `Classes::TStringList` of the class that is derived from it. They follow the
/// pointer of the owner, which is never null. An index out of range raises `Classes::EStringListError`; a
/// null list as an argument counts as empty.
class TRS8_BTL_API MStringList
{
public:
    explicit MStringList(Classes::TStringList*& list) noexcept : mList(list) {}
    MStringList(const MStringList&) = delete;
    MStringList& operator=(const MStringList&) = delete;

    Classes::TStringList* getList() const noexcept { return mList; }
    Classes::TStringList* operator->() const noexcept { return mList; }

    /// The line by value; constant, so that nobody takes it for the list's own. `setStrings` of the list sets
    /// a line: `list->setStrings(0, u"new")`.
    // NOLINTNEXTLINE(readability-const-return-type)
    const System::UnicodeString operator[](int index) const { return mList->getStrings(index); }
    /// The lines as a range, by value.
    Classes::TStrings::CIterator begin() const { return mList->begin(); }
    Classes::TStrings::CIterator end() const { return mList->end(); }
    std::size_t size() const { return mList->size(); }
    [[nodiscard]] bool empty() const { return mList->empty(); }

    /// As the functions of these names of the list itself.
    int GetCount() const { return mList->getCount(); }
    int getCount() const { return mList->getCount(); }
    System::UnicodeString GetCommaText() const { return mList->getCommaText(); }
    System::UnicodeString getCommaText() const { return mList->getCommaText(); }
    void setCommaText(const System::UnicodeString& text) { mList->setCommaText(text); }
    bool Equals(const Classes::TStrings* strings) const { return mList->Equals(strings); }
    bool Equals(const MStringList& other) const { return mList->Equals(other.mList); }

    /// The place of the new line.
    int Add(const System::UnicodeString& text) { return mList->Add(text); }
    void AddStrings(const Classes::TStrings* strings) { mList->AddStrings(strings); }
    void AddCommaText(const System::UnicodeString& text);
    /// An empty list gets `text` as its first line.
    void AppendToLastLine(const System::UnicodeString& text);

    // Lines of a format of the `printf` family, see `System::Printf`.

    template <class... Arguments>
    int Add_VA(const System::WideChar* format, const Arguments&... arguments)
    {
        return Add(System::Printf(format, System::TVarArgs{System::TVarRec(arguments)...}));
    }
    template <class... Arguments>
    int Add_VA(const char* format, const Arguments&... arguments)
    {
        return Add(System::PrintfA(format, System::TVarArgs{System::TVarRec(arguments)...}));
    }
    /// Sets the line at `index`; `Classes::EStringListError` if there is none.
    template <class... Arguments>
    void Set_VA(int index, const System::WideChar* format, const Arguments&... arguments)
    {
        mList->setStrings(index, System::Printf(format, System::TVarArgs{System::TVarRec(arguments)...}));
    }
    template <class... Arguments>
    void Set_VA(int index, const char* format, const Arguments&... arguments)
    {
        mList->setStrings(index, System::PrintfA(format, System::TVarArgs{System::TVarRec(arguments)...}));
    }

    // A sorted list with lines refuses these three, and `AppendToLastLine` and `Set_VA` too.

    void TrimEachLine();
    void InsertPrefixToEachLine(const System::UnicodeString& prefix);
    void AppendSuffixToEachLine(const System::UnicodeString& suffix);

    /// The lines with `delim` between, nothing quoted.
    System::UnicodeString GetDelimitedText(System::WideChar delim) const;

    /// Does nothing to an empty list.
    void DeleteLast();
    /// Deletes all lines but the first `index`.
    void DeleteAllAt(int index);
    /// Deletes up to `count` lines from `index` on.
    void DeleteAt(int index, int count);

    // Lines are compared as the list does it.

    /// -1 if it isn't there.
    int IndexOf(const System::UnicodeString& text) const { return mList->IndexOf(text); }
    void RemoveFirst(const System::UnicodeString& text);
    void RemoveAll(const System::UnicodeString& text);
    bool ContainsAll(const Classes::TStrings* strings) const;
    bool ContainsAll(const System::UnicodeString& commaText) const;

    /// What stands in front of the first `=` of the line; empty for a line without one.
    System::UnicodeString GetKeyOf(int index) const;
    /// What stands behind the first `=` of the line; empty for a line without one.
    System::UnicodeString GetValueOf(int index) const;

    /// Takes the file, in the system's code page, as the lines. `Classes::EFOpenError` if it can't be opened.
    void LoadFromFile(const System::UnicodeString& path);
    /// As `Classes::TStrings::LoadFromFile`.
    void LoadFromFile(const System::UnicodeString& path, Sysutils::TEncoding* encoding);

protected:
    ~MStringList() = default;

private:
    template <class Change>
    void ChangeEachLine(Change change);

    Classes::TStringList*& mList;
};

namespace Detail
{

/// The pointer that an `MStringList` follows, in front of it.
struct TListPointer
{
    Classes::TStringList* mStrings;
};

} // namespace Detail

/// A string list as a value. Copies take the lines and objects and whether the list is sorted, with its
/// `Duplicates`; objects aren't owned.
///
///     BTL::CStringList lines(u"b,a");
///     lines.Add_VA(u"%d of %s", 3, u"c");
///     lines->Sort();
///     const UnicodeString text = lines.GetDelimitedText(u';'); // "3 of c;a;b"
class TRS8_BTL_API CStringList : private Detail::TListPointer, public MStringList
{
public:
    CStringList();
    /// `count` empty lines.
    explicit CStringList(int count);
    /// The items of a comma text; lines as they stand are a `std::span` or go in by `Add`.
    explicit CStringList(const System::UnicodeString& commaText);
    CStringList(const System::UnicodeString& text, bool asLines);
    explicit CStringList(std::span<const System::UnicodeString> lines);
    CStringList(const CStringList& other);
    CStringList& operator=(const CStringList& other);
    ~CStringList();
};

/// The operations on a list that stays the caller's, which must outlive this and not be null.
class TRS8_BTL_API CStringListHelper : private Detail::TListPointer, public MStringList
{
public:
    explicit CStringListHelper(Classes::TStringList* strings) noexcept;
};

/// A `CStringList` for several holders.
class TRS8_BTL_API CAutoStringList : private Detail::TListPointer, public UTL::AAutoObj, public MStringList
{
public:
    CAutoStringList();
    explicit CAutoStringList(int count);
    explicit CAutoStringList(const System::UnicodeString& commaText);
    CAutoStringList(const System::UnicodeString& text, bool asLines);
    CAutoStringList(const CAutoStringList& other);
    CAutoStringList& operator=(const CAutoStringList& other);
    ~CAutoStringList() noexcept(false) override;
};

/// A list that keeps itself sorted and to which `Add` gives each line once; the other ways of adding follow
/// its `Duplicates`. Case doesn't matter.
class TRS8_BTL_API CSortedStringList : public CStringList
{
public:
    explicit CSortedStringList(Classes::TDuplicates duplicates);

    /// Adds nothing if the line is there, whatever the `Duplicates` say. The place of the line.
    int Add(const System::UnicodeString& text);
    /// Whether the line was there.
    bool Delete(const System::UnicodeString& text);
    bool Contains(const System::UnicodeString& text) const { return Find(text) >= 0; }
    /// Whether every line is there; true for an empty list.
    bool Contains(const Classes::TStrings* strings) const { return ContainsAll(strings); }
    /// -1 if it isn't there.
    int Find(const System::UnicodeString& text) const;
};

} // namespace BTL
