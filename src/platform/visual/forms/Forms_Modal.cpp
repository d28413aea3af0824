// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/toolkit/Dialogs.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/forms/Forms_Application.h"
#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/forms/Forms_Screen.h"

#include <iostream>
#include <memory>
#include <vector>

// Forms that are shown until they are answered.

namespace Forms
{

using Classes::TComponentWatch;

namespace
{

/// Keeps the user from all other forms, and gives back to him those that he could use.
class COtherFormsDisabled
{
public:
    explicit COtherFormsDisabled(const TCustomForm* form)
    {
        for (int i = 0; i < Screen->getCustomFormCount(); ++i) {
            TCustomForm* const other = Screen->getCustomForms(i);
            if (other != form && other->GetWindow() != nullptr && other->getEnabled()) {
                other->GetWindow()->SetEnabled(false);
                mDisabled.push_back({other, std::make_unique<TComponentWatch>(other)});
            }
        }
    }
    COtherFormsDisabled(const COtherFormsDisabled&) = delete;
    COtherFormsDisabled& operator=(const COtherFormsDisabled&) = delete;
    ~COtherFormsDisabled()
    {
        for (const TOther& other : mDisabled) {
            if (other.watch->IsAlive() && other.form->GetWindow() != nullptr && other.form->getEnabled()) {
                other.form->GetWindow()->SetEnabled(true);
            }
        }
    }

private:
    struct TOther
    {
        TCustomForm* form;
        std::unique_ptr<TComponentWatch> watch;
    };

    std::vector<TOther> mDisabled;
};

} // namespace

int TCustomForm::ShowModal()
{
    if (getVisible() || !getEnabled() || mFormState.Contains(fsModal)) {
        throw Classes::EInvalidOperation(u"Cannot make a visible window modal");
    }
    const TComponentWatch watch(this);
    AfterConstruction();
    if (!watch.IsAlive()) {
        return mrCancel;
    }
    TCustomForm* const former = Screen->getActiveCustomForm();
    const std::unique_ptr<TComponentWatch> formerWatch =
        former == nullptr ? nullptr : std::make_unique<TComponentWatch>(former);
    const int result = RunModal();
    if (former != nullptr && formerWatch->IsAlive() && former->getShowing() &&
        former->GetWindow() != nullptr) {
        former->GetWindow()->Focus();
    }
    return result;
}

int TCustomForm::RunModal()
{
    const TComponentWatch watch(this);
    mFormState << fsModal;
    const auto leave = [&] {
        if (watch.IsAlive()) {
            mFormState >> fsModal;
            Hide();
        }
    };
    int result = mrCancel;
    try {
        const COtherFormsDisabled disabled(this);
        mModalResult = mrNone;
        Show();
        Toolkits::CurrentToolkit().EnterModal(*this);
        while (watch.IsAlive() && mModalResult == mrNone) {
            Application->HandleMessage();
            if (!watch.IsAlive()) {
                break;
            }
            if (Application->getTerminated()) {
                mModalResult = mrCancel;
            } else if (mModalResult != mrNone) {
                CloseModal();
            }
        }
        if (watch.IsAlive()) {
            result = mModalResult;
        }
    } catch (...) {
        leave();
        throw;
    }
    leave();
    return result;
}

void TCustomForm::CloseModal()
{
    const TComponentWatch watch(this);
    try {
        TCloseAction action = caNone;
        if (CloseQuery() && watch.IsAlive()) {
            action = caHide;
            DoClose(action);
        }
        if (!watch.IsAlive()) {
            return;
        }
        if (action == caNone) {
            mModalResult = mrNone;
        } else if (action == caFree) {
            Release();
        }
    } catch (...) {
        if (watch.IsAlive()) {
            mModalResult = mrNone;
        }
        Application->HandleException(watch.IsAlive() ? this : nullptr);
    }
}

void TCustomForm::CloseUnattended()
{
    std::cerr << ModalCaption() << ": nobody attends, closed\n" << std::flush;
    mModalResult = mrCancel;
    const TComponentWatch watch(this);
    CloseModal();
    if (watch.IsAlive()) {
        mModalResult = mrCancel;
    }
}

} // namespace Forms
