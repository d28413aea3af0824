// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/edits/internal/Stdctrls_MemoLines.h"

namespace Stdctrls
{

using System::UnicodeString;

using View = std::u16string_view;

namespace
{

constexpr View Break = u"\r\n";

} // namespace

UnicodeString WithUsualBreaks(const UnicodeString& text)
{
    const View source = text.AsView();
    std::u16string result;
    std::size_t done = 0;
    for (std::size_t at = source.find_first_of(Break); at != View::npos;
         at = source.find_first_of(Break, at)) {
        const bool isUsual = source.substr(at).starts_with(Break);
        if (!isUsual) {
            result += source.substr(done, at - done);
            result += Break;
            done = at + 1;
        }
        at += isUsual ? 2 : 1;
    }
    // Most texts are so already, and then share their buffer.
    if (done == 0) {
        return text;
    }
    result += source.substr(done);
    return UnicodeString(View(result));
}

CMemoLines::~CMemoLines() = default;

int CMemoLines::GetCount() const
{
    const CEditBuffer& buffer = mMemo->Buffer();
    const int lines = buffer.LineCount();
    return buffer.LineBegin(lines - 1) == buffer.Length() ? lines - 1 : lines;
}

UnicodeString CMemoLines::Get(int index) const
{
    CheckIndex(index, GetCount());
    const CEditBuffer& buffer = mMemo->Buffer();
    const int begin = buffer.LineBegin(index);
    return buffer.getText().SubString(begin + 1, buffer.LineEnd(index) - begin);
}

void CMemoLines::Put(int index, const UnicodeString& text)
{
    CheckIndex(index, GetCount());
    const CEditBuffer& buffer = mMemo->Buffer();
    const int begin = buffer.LineBegin(index);
    mMemo->Replace(begin, buffer.LineEnd(index) - begin, text);
}

void CMemoLines::Insert(int index, const UnicodeString& text)
{
    CheckIndex(index, GetCount() + 1);
    const CEditBuffer& buffer = mMemo->Buffer();
    if (index < buffer.LineCount()) {
        mMemo->Replace(buffer.LineBegin(index), 0, text + UnicodeString(Break));
    } else {
        mMemo->Replace(buffer.Length(), 0, UnicodeString(Break) + text);
    }
}

void CMemoLines::AppendItems(std::vector<Classes::TStringItem>&& items)
{
    std::u16string added;
    const CEditBuffer& buffer = mMemo->Buffer();
    // The break stands behind each line, unless the text so far ends without one.
    const bool isBreakInFront = GetCount() == buffer.LineCount();
    for (const Classes::TStringItem& item : items) {
        added += isBreakInFront ? Break : View();
        added += item.String.AsView();
        added += isBreakInFront ? View() : Break;
    }
    if (!items.empty()) {
        mMemo->Replace(buffer.Length(), 0, UnicodeString(View(added)));
    }
}

void CMemoLines::Delete(int index)
{
    CheckIndex(index, GetCount());
    const CEditBuffer& buffer = mMemo->Buffer();
    const int begin = buffer.LineBegin(index);
    const int end = index + 1 < buffer.LineCount() ? buffer.LineBegin(index + 1) : buffer.Length();
    mMemo->Replace(begin, end - begin, {});
}

void CMemoLines::Clear()
{
    mMemo->Clear();
}

UnicodeString CMemoLines::GetTextStr() const
{
    return mMemo->GetText();
}

void CMemoLines::SetTextStr(const UnicodeString& text)
{
    mMemo->setText(text);
}

} // namespace Stdctrls
