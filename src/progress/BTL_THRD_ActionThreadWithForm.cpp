// SPDX-License-Identifier: MIT
#include "progress/BTL_THRD_ActionThreadWithForm.h"

#include "platform/runtime/classes/Classes_ComponentLink.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/forms/Forms_Screen.h"

#include <memory>
#include <utility>

namespace BTL
{

using Forms::TCustomForm;

namespace
{

/// Whether there is a form at this address; of the main thread.
bool Exists(const TCustomForm* form)
{
    for (int i = 0; i < Forms::Screen->getCustomFormCount(); ++i) {
        if (Forms::Screen->getCustomForms(i) == form) {
            return true;
        }
    }
    return false;
}

} // namespace

System::TMetaClass* TActionThreadWithForm::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TActionThreadWithForm>(u"TActionThreadWithForm").Build();
    return record;
}

TActionThreadWithForm::TActionThreadWithForm(bool createSuspended, bool synchronized, bool processMessages)
    : TActionThread(createSuspended, synchronized, processMessages)
{
}

TActionThreadWithForm::TActionThreadWithForm(TCustomForm* form, bool createSuspended, bool synchronized,
                                             bool processMessages)
    : TActionThread(createSuspended, synchronized, processMessages),
      mOwnForm(form == nullptr ? nullptr : new Classes::TComponentLink(form))
{
}

TActionThreadWithForm::~TActionThreadWithForm()
{
    EndThread();
    if (mOwnForm != nullptr && !IsTheCurrentThreadTheMainThread()) {
        // The thread destroys its object itself, and the form knows the link.
        auto link = std::make_shared<System::GOwner<Classes::TComponentLink>>(std::move(mOwnForm));
        Toolkits::CurrentToolkit().Post([link = std::move(link)] { *link = nullptr; });
    }
}

void TActionThreadWithForm::CloseForm(int modalResult)
{
    if (mOwnForm == nullptr) {
        return;
    }
    Synchronize([this, modalResult] {
        if (auto* const form = static_cast<TCustomForm*>(mOwnForm->getComponent()); form != nullptr) {
            form->setModalResult(modalResult);
        }
    });
}

void TActionThreadWithForm::CloseForm(TCustomForm* form, int modalResult)
{
    if (form == nullptr) {
        return;
    }
    Synchronize([form, modalResult] {
        // It may have gone while the thread waited.
        if (Exists(form)) {
            form->setModalResult(modalResult);
        }
    });
}

} // namespace BTL
