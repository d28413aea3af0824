// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/controls/Controls_FormHost.h"
#include "platform/visual/grids/Grids_CustomGrid.h"
#include "platform/visual/grids/Grids_InplaceEdit.h"
#include "platform/visual/grids/internal/Grids_FlagScope.h"

// The editor of the cell at hand.

namespace Grids
{

using Classes::TComponentWatch;
using System::UnicodeString;
using System::WideChar;

TInplaceEdit* TCustomGrid::CreateEditor()
{
    return new TInplaceEdit(this);
}

UnicodeString TCustomGrid::GetEditText(int, int)
{
    return {};
}

void TCustomGrid::SetEditText(int, int, const UnicodeString&) {}

UnicodeString TCustomGrid::GetEditMask(int, int)
{
    return {};
}

int TCustomGrid::GetEditLimit()
{
    return 0;
}

bool TCustomGrid::CanEditAcceptKey(WideChar)
{
    return true;
}

bool TCustomGrid::CanEditModify()
{
    return HasOption(goEditing);
}

bool TCustomGrid::IsActive() const
{
    const Controls::AFormHost* const form = Controls::FindFormHost(this);
    return form != nullptr && form->getActiveControl() != nullptr &&
           ContainsControl(form->getActiveControl());
}

bool TCustomGrid::CanEditShow()
{
    return HasOption(goEditing) && !HasOption(goRowSelect) && mEditorMode && !IsDesigning() &&
           !IsDestroying() && getShowing() && IsInGrid(mCurrent.X, mCurrent.Y) &&
           (HasOption(goAlwaysShowEditor) || IsActive());
}

void TCustomGrid::setEditorMode(bool isOn)
{
    if (isOn) {
        ShowEditor();
    } else {
        HideEditor();
    }
}

void TCustomGrid::ShowEditor()
{
    mEditorMode = true;
    UpdateEditor();
}

void TCustomGrid::HideEditor()
{
    const TComponentWatch watch(this);
    HideEdit();
    if (watch.IsAlive()) {
        mEditorMode = false;
    }
}

void TCustomGrid::ShowEditorChar(WideChar character)
{
    const TComponentWatch watch(this);
    ShowEditor();
    if (watch.IsAlive() && IsEditing()) {
        mEditor->TypeCharacter(character);
    }
}

bool TCustomGrid::IsEditing() const noexcept
{
    return mEditor != nullptr && mEditorCell.X >= 0;
}

void TCustomGrid::UpdateEditor()
{
    if (!CanEditShow()) {
        return;
    }
    const TComponentWatch watch(this);
    if (mEditor == nullptr) {
        TInplaceEdit* const editor = CreateEditor();
        if (editor == nullptr) {
            return;
        }
        mEditor = editor;
        editor->setParent(this);
    }
    if (mEditorCell != mCurrent) {
        mEditorCell = mCurrent;
        FillEditor();
        if (watch.IsAlive() && IsEditing()) {
            mEditor->Move(CellRect(mCurrent.X, mCurrent.Y));
        }
    }
    if (watch.IsAlive() && IsEditing() && IsActive() && mEditor->CanFocus()) {
        mEditor->SetFocus();
    }
}

void TCustomGrid::FillEditor()
{
    const CFlagScope filling(*this, mIsFillingEditor);
    mEditor->UpdateContents();
}

void TCustomGrid::HideEdit()
{
    if (!IsEditing()) {
        return;
    }
    const TComponentWatch watch(this);
    const CFlagScope hiding(*this, mIsHidingEditor);
    const Controls::AFormHost* const form = Controls::FindFormHost(this);
    if (form != nullptr && form->getActiveControl() == mEditor && CanFocus()) {
        // It may refuse to be left, and then goes on as it was.
        SetFocus();
    }
    if (watch.IsAlive() && IsEditing()) {
        mEditorCell = {-1, -1};
        mEditor->setVisible(false);
    }
}

void TCustomGrid::InvalidateEditor()
{
    if (!IsEditing() || mIsFillingEditor) {
        return;
    }
    // Who corrects what is being typed mustn't have the next character typed elsewhere.
    const int start = mEditor->getSelStart();
    const int length = mEditor->getSelLength();
    const TComponentWatch watch(this);
    FillEditor();
    if (watch.IsAlive() && IsEditing()) {
        mEditor->setSelStart(start);
        mEditor->setSelLength(length);
    }
}

void TCustomGrid::PlaceEditor()
{
    if (IsEditing()) {
        mEditor->UpdateLoc(CellRect(mEditorCell.X, mEditorCell.Y));
    }
}

void TCustomGrid::EditorChanged()
{
    if (IsEditing() && !mIsFillingEditor && IsInGrid(mEditorCell.X, mEditorCell.Y)) {
        SetEditText(mEditorCell.X, mEditorCell.Y, mEditor->getText());
    }
}

void TCustomGrid::CancelEditor(const UnicodeString& formerText)
{
    if (!IsEditing()) {
        return;
    }
    const TComponentWatch watch(this);
    // The change of the text tells the cell.
    mEditor->setText(formerText);
    if (watch.IsAlive() && !HasOption(goAlwaysShowEditor)) {
        HideEditor();
    }
}

void TCustomGrid::KeyPress(WideChar& key)
{
    const TComponentWatch watch(this);
    TCustomControl::KeyPress(key);
    if (watch.IsAlive() && key == VK_RETURN && HasOption(goEditing) && !HasOption(goAlwaysShowEditor)) {
        key = 0;
        setEditorMode(!mEditorMode);
    }
}

void TCustomGrid::DoExit()
{
    const TComponentWatch watch(this);
    TCustomControl::DoExit();
    if (watch.IsAlive() && !HasOption(goAlwaysShowEditor)) {
        HideEditor();
    }
}

bool TCustomGrid::StartTyping(Messages::TMessage& message)
{
    const auto character = static_cast<WideChar>(message.WParam);
    if (!HasOption(goEditing) || HasOption(goRowSelect) || (character < VK_SPACE && character != VK_BACK)) {
        return false;
    }
    message.Result = 1;
    ShowEditorChar(character);
    return true;
}

void TCustomGrid::Notification(Classes::TComponent* component, Classes::TOperation operation)
{
    TCustomControl::Notification(component, operation);
    if (operation == Classes::opRemove && component == mEditor) {
        mEditor = nullptr;
        mEditorCell = {-1, -1};
    }
}

} // namespace Grids
