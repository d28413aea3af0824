// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/runtime/classes/Classes_StringList.h"

#include <initializer_list>

namespace BTL
{

/// A set of texts in the order of the user's language, in which case matters. It takes no memory until it is
/// used. A null list as an argument counts as empty.
///
///     BTL::CStrSet names = {u"Zoe", u"\u00C4nne"};
///     names.AddCommaText(u"Bob,Zoe");
///     const UnicodeString text = names.getCommaText(); // "\u00C4nne,Bob,Zoe"
///     for (const UnicodeString& name : names) { ... }  // in that order
class TRS8_BTL_API CStrSet
{
public:
    CStrSet();
    CStrSet(std::initializer_list<System::UnicodeString> texts);
    CStrSet(const CStrSet& other);
    CStrSet& operator=(const CStrSet& other);
    ~CStrSet();

    /// The texts, made if they aren't there. The list stays the set's, and must keep its order. It is there
    /// until `Clear`, also by way of an empty comma text that is set.
    Classes::TStringList* CreateStrings();

    /// Adds a text, or each line; what is there already stays as it is.
    void Add(const System::UnicodeString& text);
    void Add(const Classes::TStrings* strings);
    /// Adds the items. A text with the item `=` takes the place of all that was there instead.
    void AddCommaText(const System::UnicodeString& text);
    void Remove(const System::UnicodeString& text);
    void Remove(const Classes::TStrings* strings);
    void RemoveCommaText(const System::UnicodeString& text);
    void Clear() noexcept;

    /// The count of texts in the set.
    int GetCount() const { return mStrings == nullptr ? 0 : mStrings->getCount(); }

    // The texts as a range, valid until the set changes. They come by value.

    using const_iterator = Classes::TStrings::CIterator;
    const_iterator begin() const { return mStrings == nullptr ? const_iterator() : mStrings->begin(); }
    const_iterator end() const { return mStrings == nullptr ? const_iterator() : mStrings->end(); }
    std::size_t size() const { return static_cast<std::size_t>(GetCount()); }
    [[nodiscard]] bool empty() const { return GetCount() == 0; }
    /// Whether the text is in the set.
    bool Contains(const System::UnicodeString& text) const;
    // True for an empty argument.
    bool ContainsAll(const Classes::TStrings* strings) const;
    bool ContainsAll(const System::UnicodeString& commaText) const;

    System::UnicodeString getCommaText() const;
    /// Takes the items in place of all that was there.
    void setCommaText(const System::UnicodeString& text);

private:
    /// Null while the set is unused.
    System::GOwner<Classes::TStringList> mStrings;
};

} // namespace BTL
