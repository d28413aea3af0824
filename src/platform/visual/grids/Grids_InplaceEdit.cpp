// SPDX-License-Identifier: MIT
#include "platform/visual/grids/Grids_InplaceEdit.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/grids/Grids_CustomGrid.h"

namespace Grids
{

using Classes::TComponentWatch;
using Classes::TShiftState;
using System::WideChar;
using System::Word;

System::TMetaClass* TInplaceEdit::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TInplaceEdit>(u"TInplaceEdit").Build();
    return record;
}

TInplaceEdit::TInplaceEdit(Classes::TComponent* owner)
    : TCustomMaskEdit(owner), mGrid(dynamic_cast<TCustomGrid*>(owner))
{
    setBorderStyle(Forms::bsNone);
    setTabStop(false);
    setParentCtl3D(false);
    setCtl3D(false);
    setVisible(false);
}

TInplaceEdit::~TInplaceEdit() = default;

void TInplaceEdit::Deselect()
{
    setSelStart(getText().Length());
}

void TInplaceEdit::Move(const Types::TRect& rect)
{
    const TComponentWatch watch(this);
    UpdateLoc(rect);
    if (watch.IsAlive()) {
        SelectAll();
    }
}

void TInplaceEdit::UpdateLoc(const Types::TRect& rect)
{
    const bool isInSight = rect.Width() > 0 && rect.Height() > 0;
    const TComponentWatch watch(this);
    // Hidden it would lose the focus, though the user may come back to it.
    if (isInSight) {
        setBoundsRect(rect);
    } else {
        SetBounds(-getWidth() - 1, -getHeight() - 1, getWidth(), getHeight());
    }
    if (watch.IsAlive()) {
        setVisible(true);
    }
}

void TInplaceEdit::UpdateContents()
{
    if (mGrid == nullptr) {
        return;
    }
    const TGridCoord cell{mGrid->getCol(), mGrid->getRow()};
    const TComponentWatch watch(this);
    setText(System::UnicodeString());
    if (!watch.IsAlive()) {
        return;
    }
    const System::UnicodeString mask = mGrid->GetEditMask(cell.X, cell.Y);
    if (watch.IsAlive()) {
        setEditMask(mask);
    }
    if (!watch.IsAlive()) {
        return;
    }
    const System::UnicodeString text = mGrid->GetEditText(cell.X, cell.Y);
    if (watch.IsAlive()) {
        setText(text);
    }
    if (!watch.IsAlive()) {
        return;
    }
    setMaxLength(mGrid->GetEditLimit());
    mFormerText = getText();
}

void TInplaceEdit::Change()
{
    const TComponentWatch watch(this);
    TCustomMaskEdit::Change();
    if (watch.IsAlive() && mGrid != nullptr) {
        mGrid->EditorChanged();
    }
}

void TInplaceEdit::DblClick()
{
    const TComponentWatch watch(this);
    TCustomMaskEdit::DblClick();
    if (watch.IsAlive() && mGrid != nullptr) {
        mGrid->DblClick();
    }
}

bool TInplaceEdit::WantsKey(Word key, TShiftState shift) const
{
    switch (key) {
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
    case VK_RETURN:
    case VK_ESCAPE:
        return true;
    case VK_TAB:
        return mGrid != nullptr && mGrid->WantsKey(key, shift);
    default:
        return TCustomMaskEdit::WantsKey(key, shift);
    }
}

bool TInplaceEdit::IsForGrid(Word key, const TShiftState& shift) const
{
    const bool isCtrl = shift.Contains(Classes::ssCtrl);
    // An edit that is always there mustn't be where the arrows end.
    const bool goesOn = mGrid->getOptions().Contains(goAlwaysShowEditor) && !shift.Contains(Classes::ssShift);
    const int length = getText().Length();
    const bool isAllSelected = getSelLength() == length;
    switch (key) {
    case VK_UP:
    case VK_DOWN:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_ESCAPE:
        return true;
    case VK_TAB:
        return !shift.Contains(Classes::ssAlt);
    case VK_INSERT:
        return shift.Empty();
    case VK_DELETE:
        return isCtrl;
    case VK_LEFT:
    case VK_HOME:
        return goesOn && (isCtrl || isAllSelected || (getSelStart() == 0 && getSelLength() == 0));
    case VK_RIGHT:
    case VK_END:
        return goesOn && (isCtrl || isAllSelected || getSelStart() == length);
    default:
        return false;
    }
}

void TInplaceEdit::KeyDown(Word& key, TShiftState shift)
{
    if (mGrid == nullptr) {
        TCustomMaskEdit::KeyDown(key, shift);
        return;
    }
    const TComponentWatch watch(this);
    if (IsForGrid(key, shift)) {
        Word sent = key;
        mGrid->KeyDown(sent, shift);
        if (watch.IsAlive() && sent == VK_ESCAPE) {
            mGrid->CancelEditor(mFormerText);
        }
        key = 0;
        return;
    }
    if (mGrid->OnKeyDown) {
        mGrid->OnKeyDown(mGrid, key, shift);
    }
    if (!watch.IsAlive()) {
        return;
    }
    if (key == VK_F2) {
        Deselect();
    }
    if (key == VK_DELETE && !mGrid->CanEditModify()) {
        key = 0;
    }
    if (watch.IsAlive() && key != 0) {
        TCustomMaskEdit::KeyDown(key, shift);
    }
}

void TInplaceEdit::KeyUp(Word& key, TShiftState shift)
{
    const TComponentWatch watch(this);
    if (mGrid != nullptr && mGrid->OnKeyUp) {
        mGrid->OnKeyUp(mGrid, key, shift);
    }
    if (watch.IsAlive() && key != 0) {
        TCustomMaskEdit::KeyUp(key, shift);
    }
}

void TInplaceEdit::KeyPress(WideChar& key)
{
    constexpr WideChar paste = 22;
    constexpr WideChar cut = 24;
    const TComponentWatch watch(this);
    if (mGrid != nullptr) {
        mGrid->KeyPress(key);
        if (!watch.IsAlive()) {
            return;
        }
        const bool isText = key >= VK_SPACE;
        const bool changes = isText || key == VK_BACK || key == paste || key == cut;
        if (key == VK_TAB || key == VK_ESCAPE || (isText && !mGrid->CanEditAcceptKey(key)) ||
            (changes && !mGrid->CanEditModify())) {
            key = 0;
        }
    }
    if (watch.IsAlive() && key != 0) {
        TCustomMaskEdit::KeyPress(key);
    }
}

bool TInplaceEdit::MouseWheel(TShiftState shift, int delta, Types::TPoint place)
{
    return mGrid != nullptr ? mGrid->MouseWheel(shift, delta, place)
                            : TCustomMaskEdit::MouseWheel(shift, delta, place);
}

void TInplaceEdit::TypeCharacter(WideChar character)
{
    const TComponentWatch watch(this);
    const bool isTaken = GetWindowEvents().CharacterTyped(character);
    // A window that edits by itself does so for keys of the user alone.
    if (watch.IsAlive() && !isTaken && GetWindow() != nullptr && GetWindow()->ActsByItself()) {
        ActOnChar(character);
    }
}

} // namespace Grids
