// SPDX-License-Identifier: MIT
#include "forms/BTL_AFC_AAuto_FormCreator.h"

#include "forms/BTL_HideForm.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_ComponentLink.h"
#include "platform/visual/forms/Forms_Form.h"
#include "progress/BTL_HourGlassCursor.h"
#include "progress/BTL_WaitSplash.h"

namespace BTL
{

namespace
{

constexpr UTL::CFaultPlace CreationForbidden{"BTL_AFC_AAuto_FormCreator", 1};

bool HasMainForm()
{
    return Forms::Application != nullptr && Forms::Application->getMainForm() != nullptr;
}

} // namespace

AAuto_FormCreator::AAuto_FormCreator(Classes::TComponent*& form, bool showSplash, bool owned)
    : AAuto_FormCreator(CVariable(form), showSplash, owned)
{
}

AAuto_FormCreator::AAuto_FormCreator(const CVariable& form, bool showSplash, bool owned)
    : mForm(form), mShowSplash(showSplash), mOwned(owned)
{
}

AAuto_FormCreator::~AAuto_FormCreator()
{
    if (mOwned) {
        Free();
    }
}

void AAuto_FormCreator::CreateForm(bool showSplash)
{
    if (!mCanCreate) {
        UTL::THROW_XAssert(CreationForbidden);
    }
    if (mForm.Get() != nullptr) {
        return;
    }
    const CWaitForDataSplash splash(showSplash);
    const CHourGlassCursor busy(true);
    mOwned = mOwned || !HasMainForm();
    try {
        DoCreateForm(mOwned);
    } catch (...) {
        // A form whose handler raised as it was made is there all the same.
        Watch();
        throw;
    }
    Watch();
}

void AAuto_FormCreator::Watch()
{
    const auto clear = [this] { mForm.Clear(); };
    mLink = System::MakeOwner<Classes::TComponentLink>(mForm.Get(), clear);
}

int AAuto_FormCreator::ShowModal(Forms::TForm* over)
{
    CreateForm();
    const CHideForm hidden(over, false);
    auto* const form = dynamic_cast<Forms::TForm*>(mForm.Get());
    return form == nullptr ? 0 : form->ShowModal();
}

void AAuto_FormCreator::Free()
{
    Classes::TComponent* const form = mForm.Get();
    mLink = nullptr;
    mForm.Clear();
    delete form;
}

} // namespace BTL
