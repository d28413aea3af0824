// SPDX-License-Identifier: MIT
#include "forms/validators/BTL_TextValidator.h"

#include "foundation/UTL_Toggle.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "text/verifiers/BTL_DateTextVerifier.h"

namespace BTL
{

using Classes::TComponentWatch;
using Stdctrls::TCustomEdit;
using System::TObject;
using System::UnicodeString;

namespace
{

TCustomEdit* AsEdit(TObject* object)
{
    return dynamic_cast<TCustomEdit*>(object);
}

} // namespace

/// Off while a change is dealt with.
struct ATextValidator::TActivity : System::TSharedBlock
{
    bool isOn = true;
};

ATextValidator::ATextValidator() : mActivity(new TActivity) {}

ATextValidator::~ATextValidator() = default;

void ATextValidator::Exit(TObject* sender)
{
    ATextVerifier verifier;
    DoExit(sender, verifier);
}

bool ATextValidator::Validate(const UnicodeString&)
{
    return true;
}

bool ATextValidator::GetValidText(UnicodeString&)
{
    return false;
}

void ATextValidator::KeyDown(TObject* sender, System::Word&, Classes::TShiftState)
{
    SetObject(sender);
    SetOldText();
}

void ATextValidator::SetObject(TObject* sender)
{
    const bool isGone = mWatch != nullptr && !mWatch->IsAlive();
    if (sender == mObject && !isGone) {
        return;
    }
    mObject = sender;
    mIsOldTextValid = false;
    const auto* const component = dynamic_cast<Classes::TComponent*>(sender);
    mWatch = System::GOwner<TComponentWatch>(component == nullptr ? nullptr : new TComponentWatch(component));
}

void ATextValidator::SetOldText()
{
    const TCustomEdit* const edit = AsEdit(mObject);
    if (edit == nullptr) {
        return;
    }
    mSelStart = edit->getSelStart();
    mSelLength = edit->getSelLength();
    mOldText = edit->GetText();
    mIsOldTextValid = Validate(mOldText);
}

void ATextValidator::Change(TObject* sender)
{
    if (!mActivity->isOn) {
        return;
    }
    const System::GSharedBlock<TActivity> activity = mActivity;
    const UTL::CToggle scope(activity->isOn);
    SetObject(sender);
    UnicodeString text = GetObjectText();
    if (Validate(text)) {
        return;
    }
    if (GetValidText(text)) {
        SetObjectText(text);
    } else {
        DoObjectUndo();
    }
    const bool isGone = activity.IsUnique();
    if (!isGone) {
        mIsOldTextValid = false;
    }
}

UnicodeString ATextValidator::GetObjectText() const
{
    const TCustomEdit* const edit = AsEdit(mObject);
    return edit == nullptr ? UnicodeString() : edit->GetText();
}

void ATextValidator::SetObjectText(const UnicodeString& text)
{
    if (TCustomEdit* const edit = AsEdit(mObject)) {
        edit->SetText(text);
    }
}

void ATextValidator::DoObjectUndo()
{
    TCustomEdit* const edit = AsEdit(mObject);
    if (edit == nullptr) {
        return;
    }
    if (!mIsOldTextValid) {
        edit->SetText({});
        return;
    }
    // Others hear of the text, too, and may do anything.
    const TComponentWatch watch(edit);
    const UnicodeString text = mOldText;
    const int start = mSelStart;
    const int length = mSelLength;
    edit->SetText(text);
    if (watch.IsAlive()) {
        edit->setSelStart(start);
        edit->setSelLength(length);
    }
}

void ATextValidator::DoExit(TObject* sender, ATextVerifier& verifier)
{
    SetObject(sender);
    UnicodeString text = GetObjectText();
    if (verifier.ExitText(text)) {
        SetObjectText(text);
    }
}

CTextValidator::CTextValidator(ATextVerifier* verifier) : mVerifier(verifier) {}

CTextValidator::~CTextValidator() = default;

void CTextValidator::Exit(TObject* sender)
{
    if (mVerifier != nullptr) {
        DoExit(sender, *mVerifier);
    }
}

bool CTextValidator::Validate(const UnicodeString& text)
{
    return mVerifier != nullptr && (*mVerifier)(text);
}

// Never destroyed: the edits of global objects may be left last.
CNumberTextValidator& CNumberTextValidator::StdValidator = *new CNumberTextValidator(0, 0);

CNumberTextValidator::~CNumberTextValidator() = default;

void CNumberTextValidator::Exit(TObject* sender)
{
    CFloatTextVerifier verifier(mMin, mMax);
    DoExit(sender, verifier);
}

bool CNumberTextValidator::Test(ATextVerifier&& verifier, const UnicodeString& text) const
{
    return (text.IsEmpty() && !mTestsEmpty) || verifier(text);
}

bool CNumberTextValidator::Validate(const UnicodeString& text)
{
    return Test(CNumberTextVerifier(mMin, mMax), text);
}

CFloatTextValidator::~CFloatTextValidator() = default;

bool CFloatTextValidator::Validate(const UnicodeString& text)
{
    return Test(CFloatTextVerifier(getMin(), getMax()), text);
}

CUnitTextValidator::~CUnitTextValidator() = default;

bool CUnitTextValidator::Validate(const UnicodeString& text)
{
    return Test(CUnitTextVerifier(mUnit), text);
}

CCurrencyTextValidator::~CCurrencyTextValidator() = default;

bool CCurrencyTextValidator::Validate(const UnicodeString& text)
{
    return Test(CCurrencyTextVerifier(), text);
}

CTimeTextValidator::~CTimeTextValidator() = default;

bool CTimeTextValidator::Validate(const UnicodeString& text)
{
    return CTimeTextVerifier()(text);
}

CDateTextValidator::~CDateTextValidator() = default;

void CDateTextValidator::Exit(TObject* sender)
{
    CDateTextVerifier verifier;
    DoExit(sender, verifier);
}

bool CDateTextValidator::Validate(const UnicodeString& text)
{
    return CDateTextVerifier()(text);
}

} // namespace BTL
