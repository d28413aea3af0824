// SPDX-License-Identifier: MIT
#include "forms/BTL_CDisableForm.h"

#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/forms/Forms_Screen.h"

namespace BTL
{

CDisableForm::CDisableForm() : CDisableForm(Forms::Screen->getActiveForm()) {}

CDisableForm::CDisableForm(Forms::TForm* form)
{
    if (form != nullptr && form->getEnabled()) {
        mForm = form;
        mWatch.emplace(form);
        form->setEnabled(false);
    }
}

CDisableForm::~CDisableForm()
{
    if (mForm != nullptr && mWatch->IsAlive()) {
        mForm->setEnabled(true);
    }
}

} // namespace BTL
