// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/edits/Mask_MaskEdit.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/stdctrls/edits/Stdctrls_PublishEdit.h"
#include "platform/visual/stdctrls/edits/internal/Mask_EditMask.h"

#include <algorithm>

namespace Mask
{

using Classes::TComponentWatch;
using System::UnicodeString;

using View = std::u16string_view;

EDBEditError::~EDBEditError() = default;

System::TMetaClass* TCustomMaskEdit::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCustomMaskEdit>(u"TCustomMaskEdit").Build();
    return record;
}

TCustomMaskEdit::TCustomMaskEdit(Classes::TComponent* owner) : TCustomEdit(owner) {}

TCustomMaskEdit::~TCustomMaskEdit() = default;

void TCustomMaskEdit::SetEditMask(const UnicodeString& mask)
{
    if (mask == mEditMask) {
        return;
    }
    const UnicodeString value = getText();
    mEditMask = mask;
    auto parsed = std::make_unique<CEditMask>(mask);
    mMask = parsed->IsEmpty() ? nullptr : std::move(parsed);
    setText(value);
}

UnicodeString TCustomMaskEdit::getText() const
{
    return mMask == nullptr ? GetText() : mMask->ToValue(GetText());
}

void TCustomMaskEdit::setText(const UnicodeString& text)
{
    TCustomEdit::SetText(mMask == nullptr ? text : mMask->ToEditText(text));
}

void TCustomMaskEdit::SetText(const UnicodeString& text)
{
    TCustomEdit::SetText(mMask == nullptr ? text : mMask->Fit(text));
}

void TCustomMaskEdit::Clear()
{
    setText({});
}

bool TCustomMaskEdit::Validate(const UnicodeString& editText, int& place) const
{
    const int fault = mMask == nullptr ? -1 : mMask->FirstFault(editText);
    if (fault >= 0) {
        place = fault;
    }
    return fault < 0;
}

void TCustomMaskEdit::ValidateEdit()
{
    int place = 0;
    if (!getModified() || Validate(GetText(), place)) {
        return;
    }
    const TComponentWatch watch(this);
    if (!Focused() && CanFocus()) {
        SetFocus();
    }
    if (watch.IsAlive()) {
        setSelStart(place);
        ValidateError();
    }
}

void TCustomMaskEdit::ValidateError()
{
    throw EDBEditError(u"Invalid input value. Use escape key to abandon changes");
}

void TCustomMaskEdit::Reset()
{
    if (getModified()) {
        SetText(mOldText);
        setModified(false);
    }
}

void TCustomMaskEdit::Dispatch(void* record)
{
    const unsigned message = static_cast<const Messages::TMessage*>(record)->Msg;
    if (mMask == nullptr || IsDesigning()) {
        return TCustomEdit::Dispatch(record);
    }
    const TComponentWatch watch(this);
    if (message == CM_EXIT) {
        ValidateEdit();
    }
    if (!watch.IsAlive()) {
        return;
    }
    if (message == CM_ENTER && !getModified()) {
        mOldText = GetText();
    }
    TCustomEdit::Dispatch(record);
}

void TCustomMaskEdit::KeyPress(System::WideChar& key)
{
    const TComponentWatch watch(this);
    TCustomEdit::KeyPress(key);
    if (watch.IsAlive() && mMask != nullptr && key == VK_ESCAPE) {
        key = 0;
        Reset();
    }
}

int TCustomMaskEdit::TypeInto(std::u16string& text, int place, View typed) const
{
    for (const System::WideChar c : typed) {
        const int slot = mMask->NextEditable(place);
        const System::WideChar accepted = mMask->Accepted(slot, c);
        if (accepted != 0) {
            text[static_cast<std::size_t>(slot)] = accepted;
            place = mMask->NextEditable(slot + 1);
            continue;
        }
        const int behind = mMask->BehindLiteral(place, c);
        if (behind >= 0) {
            place = mMask->NextEditable(behind);
        }
    }
    return place;
}

bool TCustomMaskEdit::EditByUser(int start, int length, const UnicodeString& typed)
{
    if (mMask == nullptr) {
        return EditCanModify() && TCustomEdit::EditByUser(start, length, typed);
    }
    if (getReadOnly() || !EditCanModify()) {
        return false;
    }
    std::u16string text(GetText().AsView());
    const int end = std::min(start + length, mMask->Length());
    for (int i = mMask->NextEditable(start); i < end; i = mMask->NextEditable(i + 1)) {
        text[static_cast<std::size_t>(i)] = mMask->Blank();
    }
    const int caret = TypeInto(text, start, typed.AsView());
    const UnicodeString result{View(text)};
    if (result == GetText()) {
        // The window may have moved its own caret, or changed its own text, all the same.
        Select(caret, caret);
        return false;
    }
    ReplaceAll(result, caret);
    return true;
}

System::TMetaClass* TMaskEdit::ClassRecord()
{
    static System::TMetaClass* const record =
        Stdctrls::PublishLine(Stdctrls::PublishEdit(System::GClassBuilder<TMaskEdit>(u"TMaskEdit")))
            .Property(u"EditMask", &TMaskEdit::getEditMask, &TMaskEdit::setEditMask)
            .Build();
    return record;
}

TMaskEdit::~TMaskEdit() = default;

} // namespace Mask
