// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/controls/Controls_Thread.h"
#include "platform/visual/controls/Controls_WindowActs.h"
#include "platform/visual/stdctrls/edits/Stdctrls_PublishEdit.h"

#include <algorithm>

namespace Stdctrls
{

using Classes::TComponentWatch;
using Messages::TMessage;
using System::UnicodeString;
using System::WideChar;

namespace
{

using View = std::u16string_view;

/// What the user did to a text: `length` units from `start` on gave way to `text`.
struct TEdited
{
    int start = 0;
    int length = 0;
    UnicodeString text;
};

/// How `former` became `now`; by what was selected, where that tells it.
TEdited FindEdit(View former, View now, int selStart, int selLength)
{
    const auto start = static_cast<std::size_t>(selStart);
    const auto end = static_cast<std::size_t>(selStart + selLength);
    const std::size_t rest = former.size() - end;
    if (now.size() >= start + rest && now.substr(0, start) == former.substr(0, start) &&
        now.substr(now.size() - rest) == former.substr(end)) {
        return {selStart, selLength, UnicodeString(now.substr(start, now.size() - start - rest))};
    }
    const auto differs = std::mismatch(former.begin(), former.end(), now.begin(), now.end());
    const auto same = static_cast<std::size_t>(differs.first - former.begin());
    const std::size_t most = std::min(former.size(), now.size()) - same;
    const auto tail =
        std::mismatch(former.rbegin(), former.rbegin() + static_cast<std::ptrdiff_t>(most), now.rbegin());
    const auto sameEnd = static_cast<std::size_t>(tail.first - former.rbegin());
    return {static_cast<int>(same), static_cast<int>(former.size() - same - sameEnd),
            UnicodeString(now.substr(same, now.size() - same - sameEnd))};
}

bool IsDigit(WideChar c)
{
    return c >= u'0' && c <= u'9';
}

/// Sets a pointer for a scope, unless the component is gone at its end.
class CWindowTextScope
{
public:
    CWindowTextScope(const TCustomEdit& edit, const UnicodeString*& field, const UnicodeString& text)
        : mWatch(&edit), mField(field)
    {
        mField = &text;
    }
    CWindowTextScope(const CWindowTextScope&) = delete;
    CWindowTextScope& operator=(const CWindowTextScope&) = delete;
    ~CWindowTextScope()
    {
        if (mWatch.IsAlive()) {
            mField = nullptr;
        }
    }

    bool IsAlive() const noexcept { return mWatch.IsAlive(); }

private:
    TComponentWatch mWatch;
    const UnicodeString*& mField;
};

} // namespace

System::TMetaClass* TCustomEdit::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TCustomEdit>(u"TCustomEdit").Build();
    return record;
}

TCustomEdit::TCustomEdit(Classes::TComponent* owner) : TWinControl(owner)
{
    setControlStyle({Controls::csClickEvents, Controls::csSetCaption, Controls::csDoubleClicks,
                     Controls::csCaptureMouse, Controls::csFixedHeight});
    SetBounds(0, 0, 121, 21);
    setTabStop(true);
    setParentColor(false);
    TControl::SetAutoSize(true);
}

TCustomEdit::~TCustomEdit() = default;

UnicodeString TCustomEdit::InCase(const UnicodeString& text) const
{
    switch (mCharCase) {
    case ecUpperCase:
        return text.UpperCase();
    case ecLowerCase:
        return text.LowerCase();
    default:
        return text;
    }
}

void TCustomEdit::SetText(const UnicodeString& text)
{
    Controls::CheckMainThread();
    const UnicodeString value = InCase(text);
    if (value == mBuffer.getText()) {
        return;
    }
    const int former = mBuffer.Length();
    mBuffer.SetText(value);
    Edited(0, former, value.Length());
    mModified = false;
    mFirstSeen = 0;
    Perform(CM_TEXTCHANGED);
}

void TCustomEdit::Clear()
{
    SetText({});
}

UnicodeString TCustomEdit::GetSelText() const
{
    return mBuffer.getText().SubString(mBuffer.SelStart() + 1, mBuffer.SelLength());
}

void TCustomEdit::Select(int anchor, int caret)
{
    Controls::CheckMainThread();
    mBuffer.Select(anchor, caret);
    ShowSelectionInWindow();
    ScrollCaret();
    Invalidate();
}

void TCustomEdit::SelectAll()
{
    Select(0, mBuffer.Length());
}

void TCustomEdit::SetSelStart(int start)
{
    Select(start, start);
}

void TCustomEdit::SetSelLength(int length)
{
    const int start = mBuffer.SelStart();
    const int rest = mBuffer.Length() - start;
    Select(start, start + std::clamp(length, 0, rest));
}

void TCustomEdit::SetSelText(const UnicodeString& text)
{
    Replace(mBuffer.SelStart(), mBuffer.SelLength(), InCase(text));
}

void TCustomEdit::Replace(int start, int length, const UnicodeString& text)
{
    Controls::CheckMainThread();
    start = std::clamp(start, 0, mBuffer.Length());
    length = std::clamp(length, 0, mBuffer.Length() - start);
    mBuffer.Replace(start, length, text);
    Edited(start, length, text.Length());
    TextReplaced();
}

void TCustomEdit::ReplaceAll(const UnicodeString& text, int caret)
{
    Controls::CheckMainThread();
    const int former = mBuffer.Length();
    mBuffer.Replace(0, former, text);
    mBuffer.Select(caret, caret);
    Edited(0, former, text.Length());
    TextReplaced();
}

void TCustomEdit::TextReplaced()
{
    mModified = true;
    ShowTextInWindow();
    ScrollCaret();
    Invalidate();
    Change();
}

UnicodeString TCustomEdit::Acceptable(const UnicodeString& text, int replaced) const
{
    UnicodeString result = InCase(text);
    if (!IsMultiLine()) {
        const std::size_t end = result.AsView().find_first_of(View(u"\r\n\0", 3));
        if (end != View::npos) {
            result = result.SubString(1, static_cast<int>(end));
        }
    }
    if (mTraits.maxLength > 0) {
        const int room = std::max(mTraits.maxLength - (mBuffer.Length() - replaced), 0);
        result = result.SubString(1, room);
    }
    return result;
}

bool TCustomEdit::EditByUser(int start, int length, const UnicodeString& text)
{
    if (mTraits.isReadOnly || (mNumbersOnly && !std::all_of(text.begin(), text.end(), IsDigit))) {
        return false;
    }
    const UnicodeString accepted = Acceptable(text, length);
    if (accepted.IsEmpty() && (length == 0 || !text.IsEmpty())) {
        return false;
    }
    Replace(start, length, accepted);
    return true;
}

void TCustomEdit::ClearSelection()
{
    Perform(WM_CLEAR);
}

void TCustomEdit::CopyToClipboard()
{
    Perform(WM_COPY);
}

void TCustomEdit::CutToClipboard()
{
    Perform(WM_CUT);
}

void TCustomEdit::PasteFromClipboard()
{
    Perform(WM_PASTE);
}

void TCustomEdit::Undo()
{
    Perform(WM_UNDO);
}

void TCustomEdit::PutOnClipboard() const
{
    if (GetSelLength() > 0 && mTraits.passwordChar == 0) {
        Toolkits::CurrentToolkit().SetClipboardText(GetSelText());
    }
}

bool TCustomEdit::DispatchEdit(unsigned message)
{
    const int start = mBuffer.SelStart();
    const int length = mBuffer.SelLength();
    switch (message) {
    case WM_COPY:
        PutOnClipboard();
        return true;
    case WM_CUT:
        if (mTraits.passwordChar == 0 && !mTraits.isReadOnly) {
            PutOnClipboard();
            EditByUser(start, length, {});
        }
        return true;
    case WM_PASTE:
        EditByUser(start, length, Toolkits::CurrentToolkit().GetClipboardText());
        return true;
    case WM_CLEAR:
        EditByUser(start, length, {});
        return true;
    case WM_UNDO:
        if (!mTraits.isReadOnly && mBuffer.CanUndo()) {
            const int former = mBuffer.Length();
            mBuffer.Undo();
            // What came back is selected; what went had stood there too.
            const int begin = mBuffer.SelStart();
            const int back = mBuffer.SelLength();
            Edited(begin, former - (mBuffer.Length() - back), back);
            TextReplaced();
        }
        return true;
    default:
        return false;
    }
}

void TCustomEdit::DefaultHandler(void* record)
{
    auto& message = *static_cast<TMessage*>(record);
    if (message.Msg == WM_PAINT) {
        if (message.WParam != 0 && !Controls::WindowActs(*this)) {
            PaintOn(*reinterpret_cast<Toolkits::PaintDevice*>(message.WParam));
            message.Result = 1;
        }
        return;
    }
    if (!DispatchEdit(message.Msg)) {
        TWinControl::DefaultHandler(record);
    }
}

void TCustomEdit::Dispatch(void* record)
{
    const auto& message = *static_cast<const TMessage*>(record);
    const TComponentWatch watch(this);
    switch (message.Msg) {
    case WM_PAINT:
        // The window paints itself, unless a derived class does.
        DefaultHandler(record);
        return;
    case CM_TEXTCHANGED:
        TWinControl::Dispatch(record);
        if (GetWindow() != nullptr) {
            TextShown(EShown::Given);
        }
        ShowSelectionInWindow();
        Invalidate();
        Change();
        return;
    case CM_BIDIMODECHANGED:
        TWinControl::Dispatch(record);
        if (watch.IsAlive()) {
            ShowTraitsInWindow();
        }
        return;
    case CM_FONTCHANGED:
    case CM_CTL3DCHANGED:
        TWinControl::Dispatch(record);
        if (watch.IsAlive()) {
            AdjustSize();
        }
        return;
    case CM_ENTER:
        if (mAutoSelect && !IsMultiLine() && !getControlState().Contains(Controls::csLButtonDown)) {
            SelectAll();
        }
        TWinControl::Dispatch(record);
        return;
    default:
        TWinControl::Dispatch(record);
    }
}

void TCustomEdit::Edited(int, int, int) {}

void TCustomEdit::Change()
{
    if (OnChange && !IsLoading()) {
        OnChange(this);
    }
}

void TCustomEdit::SetReadOnly(bool isOn)
{
    if (isOn != mTraits.isReadOnly) {
        mTraits.isReadOnly = isOn;
        ShowTraitsInWindow();
    }
}

void TCustomEdit::SetMaxLength(int length)
{
    mTraits.maxLength = std::max(length, 0);
    ShowTraitsInWindow();
}

void TCustomEdit::setPasswordChar(WideChar character)
{
    if (character != mTraits.passwordChar) {
        mTraits.passwordChar = character;
        ShowTraitsInWindow();
    }
}

void TCustomEdit::setCharCase(TEditCharCase charCase)
{
    if (charCase != mCharCase) {
        mCharCase = charCase;
        SetText(GetText());
    }
}

void TCustomEdit::setHideSelection(bool isOn)
{
    mTraits.hidesSelection = isOn;
    ShowTraitsInWindow();
}

void TCustomEdit::setAlignment(Classes::TAlignment alignment)
{
    if (alignment != mAlignment) {
        mAlignment = alignment;
        ShowTraitsInWindow();
    }
}

void TCustomEdit::setBorderStyle(Forms::TBorderStyle style)
{
    style = style == Forms::bsNone ? Forms::bsNone : Forms::bsSingle;
    if (style != mBorderStyle) {
        mBorderStyle = style;
        ShowTraitsInWindow();
        AdjustSize();
        Invalidate();
    }
}

void TCustomEdit::setTextHint(const UnicodeString& hint)
{
    mTraits.hint = hint;
    ShowTraitsInWindow();
}

Toolkits::TEditTraits TCustomEdit::EditTraits() const
{
    Toolkits::TEditTraits traits = mTraits;
    const bool isSwapped = UseRightToLeftAlignment() && mAlignment != Classes::taCenter;
    traits.alignment = isSwapped ? Classes::taRightJustify - mAlignment : mAlignment;
    traits.hasBorder = mBorderStyle != Forms::bsNone;
    return traits;
}

void TCustomEdit::ShowTraitsInWindow()
{
    if (GetWindow() != nullptr) {
        GetWindow()->SetEditTraits(EditTraits());
        Invalidate();
    }
}

void TCustomEdit::ShowTextInWindow()
{
    if (GetWindow() == nullptr) {
        return;
    }
    if (mWindowText != nullptr && *mWindowText == GetText()) {
        TextShown(EShown::Edited);
        return;
    }
    GetWindow()->SetText(GetText());
    TextShown(EShown::Given);
    ShowSelectionInWindow();
}

void TCustomEdit::ShowSelectionInWindow()
{
    if (GetWindow() != nullptr) {
        GetWindow()->SetSelection(mBuffer.SelStart(), mBuffer.SelLength());
    }
}

bool TCustomEdit::CanAutoSize(int&, int& height)
{
    if (mBorderStyle == Forms::bsNone) {
        return false;
    }
    height = LineHeight() + (getCtl3D() ? 8 : 6);
    return true;
}

void TCustomEdit::CreateParams(Controls::TCreateParams& params)
{
    TWinControl::CreateParams(params);
    params.Kind = Toolkits::EWindowKind::Edit;
}

void TCustomEdit::CreateWnd()
{
    TWinControl::CreateWnd();
    ShowTraitsInWindow();
    TextShown(EShown::Given);
    ShowSelectionInWindow();
}

void TCustomEdit::TextEditedInWindow(const UnicodeString& text)
{
    if (text == GetText()) {
        return;
    }
    const TEdited edit =
        FindEdit(mBuffer.getText().AsView(), text.AsView(), mBuffer.SelStart(), mBuffer.SelLength());
    const CWindowTextScope scope(*this, mWindowText, text);
    const bool isTaken = EditByUser(edit.start, edit.length, edit.text);
    if (scope.IsAlive() && !isTaken) {
        ShowTextInWindow();
    }
}

void TCustomEdit::SelectionMovedInWindow(int start, int length)
{
    mBuffer.Select(start, start + length);
}

System::TMetaClass* TEdit::ClassRecord()
{
    static System::TMetaClass* const record =
        PublishLine(PublishEdit(System::GClassBuilder<TEdit>(u"TEdit")))
            .Property(u"NumbersOnly", &TEdit::getNumbersOnly, &TEdit::setNumbersOnly, {.defaultValue = 0})
            .Build();
    return record;
}

TEdit::~TEdit() = default;

} // namespace Stdctrls

namespace Typinfo
{

TTypeInfo GEnumType<Stdctrls::TEditCharCase>::Make()
{
    return EnumType(u"TEditCharCase", {u"ecNormal", u"ecUpperCase", u"ecLowerCase"});
}

} // namespace Typinfo
