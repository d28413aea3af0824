// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/edits/Stdctrls_Memo.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/stdctrls/edits/Stdctrls_PublishEdit.h"
#include "platform/visual/stdctrls/edits/internal/Stdctrls_MemoLines.h"

#include <algorithm>

namespace Stdctrls
{

using System::UnicodeString;
using System::WideChar;
using System::Word;
using Types::TPoint;

System::TMetaClass* TCustomMemo::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TCustomMemo>(u"TCustomMemo").Build();
    return record;
}

TCustomMemo::TCustomMemo(Classes::TComponent* owner) : TCustomMemo(owner, std::make_unique<CMemoLines>(this))
{
}

TCustomMemo::TCustomMemo(Classes::TComponent* owner, std::unique_ptr<Classes::TStrings> lines)
    : TCustomEdit(owner), mLines(std::move(lines))
{
    setAutoSize(false);
    SetBounds(0, 0, 185, 89);
    setAutoSelect(false);
    setControlStyle(getControlStyle() - Controls::TControlStyle{Controls::csFixedHeight});
}

TCustomMemo::~TCustomMemo() = default;

void TCustomMemo::setLines(Classes::TStrings* lines)
{
    mLines->Assign(lines);
}

void TCustomMemo::SetText(const UnicodeString& text)
{
    mTop = 0;
    mFirstColumn = 0;
    TCustomEdit::SetText(WithUsualBreaks(text));
}

TPoint TCustomMemo::getCaretPos() const
{
    const int caret = Buffer().getCaret();
    const int line = Buffer().LineAt(caret);
    return {.X = caret - Buffer().LineBegin(line), .Y = line};
}

void TCustomMemo::setCaretPos(TPoint place)
{
    const int begin = Buffer().LineBegin(place.Y);
    setSelStart(std::clamp(begin + std::max(place.X, 0), begin, Buffer().LineEnd(place.Y)));
}

void TCustomMemo::setScrollBars(TScrollStyle bars)
{
    mScrollBars = bars;
    ShowTraitsInWindow();
}

void TCustomMemo::setWordWrap(bool isOn)
{
    mWordWrap = isOn;
    ShowTraitsInWindow();
}

void TCustomMemo::setWantReturns(bool isOn)
{
    mWantReturns = isOn;
    ShowTraitsInWindow();
}

void TCustomMemo::setWantTabs(bool isOn)
{
    mWantTabs = isOn;
    ShowTraitsInWindow();
}

Toolkits::TEditTraits TCustomMemo::EditTraits() const
{
    Toolkits::TEditTraits traits = TCustomEdit::EditTraits();
    traits.isWordWrapped = mWordWrap;
    traits.wantsTabs = mWantTabs;
    traits.wantsReturns = mWantReturns;
    traits.hasHorizontalBar = mScrollBars == ssHorizontal || mScrollBars == ssBoth;
    traits.hasVerticalBar = mScrollBars == ssVertical || mScrollBars == ssBoth;
    return traits;
}

void TCustomMemo::CreateParams(Controls::TCreateParams& params)
{
    TCustomEdit::CreateParams(params);
    params.Kind = Toolkits::EWindowKind::Memo;
}

UnicodeString TCustomMemo::Acceptable(const UnicodeString& text, int replaced) const
{
    return TCustomEdit::Acceptable(WithUsualBreaks(text), replaced);
}

int TCustomMemo::LineBegin(int place) const
{
    return Buffer().LineBegin(Buffer().LineAt(place));
}

int TCustomMemo::LineEnd(int place) const
{
    return Buffer().LineEnd(Buffer().LineAt(place));
}

int TCustomMemo::PageLines() const
{
    return std::max(TextRect().Height() / std::max(LineHeight(), 1), 1);
}

bool TCustomMemo::WantsKey(Word key, Classes::TShiftState shift) const
{
    if (shift.Contains(Classes::ssAlt)) {
        return false;
    }
    if (key == VK_RETURN) {
        return mWantReturns || shift.Contains(Classes::ssCtrl);
    }
    if (key == VK_TAB) {
        return mWantTabs && !shift.Contains(Classes::ssCtrl);
    }
    return TCustomEdit::WantsKey(key, shift);
}

void TCustomMemo::KeyPress(WideChar& key)
{
    const Classes::TComponentWatch watch(this);
    TCustomEdit::KeyPress(key);
    if (watch.IsAlive() && key == VK_RETURN && !mWantReturns) {
        key = 0;
    }
}

bool TCustomMemo::ActOnChar(WideChar character)
{
    if (character == u'\r' || character == u'\n') {
        EditByUser(Buffer().SelStart(), Buffer().SelLength(), u"\r\n");
        return true;
    }
    if (character == u'\t') {
        if (mWantTabs) {
            EditByUser(Buffer().SelStart(), Buffer().SelLength(), u"\t");
        }
        return mWantTabs;
    }
    return TCustomEdit::ActOnChar(character);
}

System::TMetaClass* TMemo::ClassRecord()
{
    static System::TMetaClass* const record =
        PublishMemo(PublishEdit(System::GClassBuilder<TMemo>(u"TMemo"))).Build();
    return record;
}

TMemo::~TMemo() = default;

} // namespace Stdctrls
