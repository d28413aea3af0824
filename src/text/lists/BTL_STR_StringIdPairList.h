// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_StringList.h"

namespace BTL
{

// Lines with a 64-bit id each, which lies in an object on the line. A line without an object has the id 0. An
// index that is not below the count raises `Classes::EStringListError`.
//
//     BTL::TStringIdPairList list;
//     list.AddStringIdPair(u"Anna", 4711);
//     const System::Int64 id = BTL::GetIdAt(&list, 0); // 4711

/// Adds a line. The list owns its objects from then on. Nothing happens for a null list. A sorted list that
/// has the line already, and ignores or refuses it, keeps its former id.
TRS8_BTL_API void AddStringIdPair(Classes::TStringList* list, const System::UnicodeString& text,
                                  System::Int64 id);
/// Gives the line an id. The list owns its objects from then on; another object that was on the line is the
/// caller's. Nothing happens for a null list.
TRS8_BTL_API void SetIdAt(Classes::TStringList* list, int index, System::Int64 id);
/// 0 for a negative `index`, a null list, and a line with no id or with any other object.
TRS8_BTL_API System::Int64 GetIdAt(const Classes::TStrings* strings, int index);

/// A list of such lines. Of lines that come from another list it takes the texts and ids.
class TRS8_BTL_API TStringIdPairList : public Classes::TStringList
{
    TRS8_BTL_CLASS(TStringIdPairList, Classes::TStringList)

public:
    TStringIdPairList();
    ~TStringIdPairList() override;

    /// As the function of this name, on this list.
    void AddStringIdPair(const System::UnicodeString& text, System::Int64 id);
    System::Int64 getId(int index) const { return GetIdAt(this, index); }
    void setId(int index, System::Int64 id) { SetIdAt(this, index, id); }

protected:
    void AppendItems(std::vector<Classes::TStringItem>&& items) override;
};

} // namespace BTL
