// SPDX-License-Identifier: MIT
#include "forms/BTL_CDisableForm.h"

#include "platform/visual/forms/Forms_Application.h"
#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/forms/Forms_Screen.h"

namespace BTL
{

CDisableForm::CDisableForm() : CDisableForm(Forms::Screen->getActiveForm()) {}

CDisableForm::CDisableForm(Forms::TForm* form)
{
    if (form == nullptr || !form->getEnabled()) {
        return;
    }
    mForm = form;
    mWatch.emplace(form);
    try {
        form->setEnabled(false);
    } catch (...) {
        // Nobody calls the destructor of what wasn't made.
        Restore();
        throw;
    }
}

CDisableForm::~CDisableForm()
{
    Restore();
}

void CDisableForm::Restore()
{
    if (mWatch.has_value() && mWatch->IsAlive()) {
        Forms::Application->RunHandled([this] { mForm->setEnabled(true); });
    }
}

} // namespace BTL
