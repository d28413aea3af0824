// SPDX-License-Identifier: MIT
#include "forms/progress/BTL_ProgressInfoDialog.h"

#include "environment/files/BTL_SYS_FileProgress.h"
#include "forms/progress/BTL_Progress64DLG.h"
#include "forms/progress/BTL_ProgressDLG.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/visual/forms/Forms_Application.h"
#include "platform/visual/forms/Forms_Screen.h"

#include <utility>

namespace BTL
{

using Classes::TComponentWatch;
using System::Int64;
using System::UnicodeString;

namespace
{

AProgressInfo* VisibleProgressInfo()
{
    // Lives to the end of the process, as who holds it may.
    static auto* const info = new CProgressInfoDialog(Forms::Application);
    info->ResetUserCancel();
    return info;
}

/// Makes the dialogs known to the rooms beneath, before any code of a program runs.
[[maybe_unused]] const bool areLinksFilledIn = [] {
    GetVisibleProgressInfo = VisibleProgressInfo;
    MakeProgressOf = [](TProgressDLG* dialog) -> AProgressInfo* { return new CProgressInfoOfForm(dialog); };
    return true;
}();

} // namespace

CProgressInfoOfForm::CProgressInfoOfForm(TProgressForm* form)
{
    SetForm(form);
}

CProgressInfoOfForm::~CProgressInfoOfForm() = default;

TProgressForm* CProgressInfoOfForm::Form() const noexcept
{
    return mWatch != nullptr && mWatch->IsAlive() ? mForm : nullptr;
}

void CProgressInfoOfForm::SetForm(TProgressForm* form)
{
    mForm = form;
    mWatch = form == nullptr ? nullptr : std::make_unique<TComponentWatch>(form);
}

Int64 CProgressInfoOfForm::getMax() const
{
    const TProgressForm* const form = Form();
    return form == nullptr ? 0 : form->getMax();
}

void CProgressInfoOfForm::setMax(Int64 max)
{
    if (TProgressForm* const form = Form()) {
        form->setMax(max);
    }
}

Int64 CProgressInfoOfForm::getPosition() const
{
    const TProgressForm* const form = Form();
    return form == nullptr ? 0 : form->getProgressPosition();
}

void CProgressInfoOfForm::setPosition(Int64 position)
{
    if (TProgressForm* const form = Form()) {
        form->setPosition(position);
    }
}

UnicodeString CProgressInfoOfForm::getCaption() const
{
    const TProgressForm* const form = Form();
    return form == nullptr ? UnicodeString() : form->getCaption();
}

void CProgressInfoOfForm::setCaption(UnicodeString caption)
{
    if (TProgressForm* const form = Form()) {
        form->setCaption(caption);
    }
}

UnicodeString CProgressInfoOfForm::getText1() const
{
    const TProgressForm* const form = Form();
    return form == nullptr ? UnicodeString() : form->getText1();
}

void CProgressInfoOfForm::setText1(UnicodeString text)
{
    if (TProgressForm* const form = Form()) {
        form->setText1(text);
    }
}

UnicodeString CProgressInfoOfForm::getText2() const
{
    const TProgressForm* const form = Form();
    return form == nullptr ? UnicodeString() : form->getText2();
}

void CProgressInfoOfForm::setText2(UnicodeString text)
{
    if (TProgressForm* const form = Form()) {
        form->setText2(text);
    }
}

UnicodeString CProgressInfoOfForm::getTextLines() const
{
    const TProgressForm* const form = Form();
    return form == nullptr ? UnicodeString() : form->getLines()->getText();
}

void CProgressInfoOfForm::setTextLines(UnicodeString lines)
{
    if (TProgressForm* const form = Form()) {
        form->getLines()->setText(lines);
    }
}

bool CProgressInfoOfForm::getUserCancel() const
{
    const TProgressForm* const form = Form();
    return form != nullptr && form->getUserCancel();
}

void CProgressInfoOfForm::Prepare(Int64 max, bool throwOnCancel, bool showCancel,
                                  const UnicodeString& caption, const UnicodeString& text1,
                                  const UnicodeString& text2, const UnicodeString& lines, int width)
{
    if (TProgressForm* const form = Form()) {
        form->Prepare(max, throwOnCancel, showCancel, caption, text1, text2, lines, width);
    }
}

void CProgressInfoOfForm::Prepare(Int64 max, bool throwOnCancel, bool showCancel,
                                  const UnicodeString& caption, const UnicodeString& text1,
                                  const UnicodeString& text2, Classes::TStrings* lines, int width)
{
    if (TProgressForm* const form = Form()) {
        form->Prepare(max, throwOnCancel, showCancel, caption, text1, text2, lines, width);
    }
}

void CProgressInfoOfForm::Start(Int64 max)
{
    if (TProgressForm* const form = Form()) {
        form->Start(max);
    }
}

void CProgressInfoOfForm::Stop()
{
    if (TProgressForm* const form = Form()) {
        form->Stop();
    }
}

void CProgressInfoOfForm::IncPosition()
{
    if (TProgressForm* const form = Form()) {
        form->IncPosition(1);
    }
}

void CProgressInfoOfForm::SetProgressEndPosition()
{
    setPosition(getMax());
}

CProgressInfoDialog::CProgressInfoDialog(Classes::TComponent* owner)
    : CProgressInfoOfForm(new TProgress64DLG(owner)),
      mOwner(owner),
      mOwnerWatch(owner == nullptr ? nullptr : std::make_unique<TComponentWatch>(owner))
{
}

CProgressInfoDialog::~CProgressInfoDialog()
{
    if (mOwner == nullptr) {
        delete Form();
    }
}

Forms::TForm* CProgressInfoStarterModal::ActiveForm()
{
    Forms::TForm* const active = Forms::Screen->getActiveForm();
    return dynamic_cast<TProgressForm*>(active) == nullptr ? active : nullptr;
}

void CProgressInfoDialog::ResetUserCancel()
{
    if (Form() == nullptr && (mOwner == nullptr || mOwnerWatch->IsAlive())) {
        SetForm(new TProgress64DLG(mOwner));
    }
    if (TProgressForm* const form = Form()) {
        form->setUserCancel(false);
    }
}

} // namespace BTL
