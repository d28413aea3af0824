// SPDX-License-Identifier: MIT
#include "progress/BTL_THRD_ActionThreadWithForm.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/forms/Forms_Form.h"

#include <memory>
#include <utility>

namespace BTL
{

using Forms::TCustomForm;

/// Knows a form as long as that is there.
class TActionThreadWithForm::CFormLink : public Classes::TComponent
{
public:
    explicit CFormLink(TCustomForm* form) : mForm(form) { form->FreeNotification(this); }

    TCustomForm* getForm() const noexcept { return mForm; }

    void Notification(TComponent* component, Classes::TOperation operation) override
    {
        TComponent::Notification(component, operation);
        if (operation == Classes::opRemove && component == mForm) {
            mForm = nullptr;
        }
    }

private:
    TCustomForm* mForm;
};

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
      mOwnForm(form == nullptr ? nullptr : new CFormLink(form))
{
}

TActionThreadWithForm::~TActionThreadWithForm()
{
    EndThread();
    if (mOwnForm != nullptr && !IsTheCurrentThreadTheMainThread()) {
        // The thread destroys its object itself, and the form knows the link.
        auto link = std::make_shared<System::GOwner<CFormLink>>(std::move(mOwnForm));
        Toolkits::CurrentToolkit().Post([link = std::move(link)] { *link = nullptr; });
    }
}

void TActionThreadWithForm::CloseForm(int modalResult)
{
    if (mOwnForm == nullptr) {
        return;
    }
    Synchronize([this, modalResult] {
        if (TCustomForm* const form = mOwnForm->getForm(); form != nullptr) {
            form->setModalResult(modalResult);
        }
    });
}

void TActionThreadWithForm::CloseForm(TCustomForm* form, int modalResult)
{
    if (form != nullptr) {
        Synchronize([form, modalResult] { form->setModalResult(modalResult); });
    }
}

} // namespace BTL
