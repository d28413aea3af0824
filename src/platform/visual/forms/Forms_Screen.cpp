// SPDX-License-Identifier: MIT
#include "platform/visual/forms/Forms_Screen.h"

#include "platform/host/Host_CurrentThread.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Synchronize.h"
#include "platform/runtime/filer/Classes_Fixups.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/forms/Classes_DataModule.h"
#include "platform/visual/forms/Forms_Form.h"

#include <algorithm>
#include <memory>

namespace Forms
{

System::TMetaClass* TScreen::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TScreen>(u"TScreen").Build();
    return record;
}

namespace
{

/// The one of that name that a reference may be set to; null if there is none.
template <class Root>
Classes::TComponent* FindNamed(const std::vector<Root*>& roots, const System::UnicodeString& name)
{
    const auto found = std::ranges::find_if(roots, [&name](const Root* root) {
        return !root->getComponentState().Contains(Classes::csDestroying) &&
               root->getName().CompareIC(name) == 0;
    });
    return found == roots.end() ? nullptr : *found;
}

/// Forms belong to the main thread; others find none.
Classes::TComponent* FindOnScreen(const System::UnicodeString& name)
{
    return GetCurrentThreadId() == System::MainThreadID ? Screen->FindRoot(name) : nullptr;
}

} // namespace

TScreen::TScreen()
{
    Classes::RegisterFindGlobalComponentProc(FindOnScreen);
}

TScreen::~TScreen() = default;

Classes::TComponent* TScreen::FindRoot(const System::UnicodeString& name) const
{
    Classes::TComponent* const form = FindNamed(mForms, name);
    return form != nullptr ? form : FindNamed(mDataModules, name);
}

int TScreen::getWidth() const
{
    return Toolkits::CurrentToolkit().FirstScreenRect().Width();
}

int TScreen::getHeight() const
{
    return Toolkits::CurrentToolkit().FirstScreenRect().Height();
}

Types::TRect TScreen::getDesktopRect() const
{
    return Toolkits::CurrentToolkit().DesktopRect();
}

void TScreen::setCursor(Controls::TCursor cursor)
{
    if (mCursor != cursor) {
        mCursor = cursor;
        Toolkits::CurrentToolkit().SetCursor(cursor);
    }
}

TCustomForm* TScreen::getCustomForms(int index) const
{
    if (index < 0 || index >= getCustomFormCount()) {
        throw Classes::EListError(u"There is no form " + System::UnicodeString(index));
    }
    return mForms[static_cast<std::size_t>(index)];
}

int TScreen::getFormCount() const
{
    return static_cast<int>(std::ranges::count_if(
        mForms, [](const TCustomForm* form) { return dynamic_cast<const TForm*>(form) != nullptr; }));
}

TForm* TScreen::getForms(int index) const
{
    int rest = index;
    for (TCustomForm* form : mForms) {
        auto* const found = dynamic_cast<TForm*>(form);
        if (found != nullptr && rest-- == 0) {
            return found;
        }
    }
    throw Classes::EListError(u"There is no form " + System::UnicodeString(index));
}

Classes::TDataModule* TScreen::getDataModules(int index) const
{
    if (index < 0 || index >= getDataModuleCount()) {
        throw Classes::EListError(u"There is no data module " + System::UnicodeString(index));
    }
    return mDataModules[static_cast<std::size_t>(index)];
}

TForm* TScreen::getActiveForm() const
{
    return dynamic_cast<TForm*>(mActiveForm);
}

void TScreen::AddForm(TCustomForm* form)
{
    mForms.push_back(form);
}

void TScreen::RemoveForm(TCustomForm* form) noexcept
{
    std::erase(mForms, form);
    if (mActiveForm == form) {
        mActiveForm = nullptr;
        mActiveControl = nullptr;
    }
}

void TScreen::AddDataModule(Classes::TDataModule* module)
{
    mDataModules.push_back(module);
}

void TScreen::RemoveDataModule(Classes::TDataModule* module) noexcept
{
    std::erase(mDataModules, module);
}

void TScreen::ActivationMoved(TCustomForm* form, bool isActive)
{
    if (!isActive || form == mActiveForm) {
        return;
    }
    const auto place = std::ranges::find(mForms, form);
    std::rotate(mForms.begin(), place, std::next(place));
    mActiveForm = form;
    if (OnActiveFormChange) {
        OnActiveFormChange(this);
    }
}

void TScreen::FocusMoved(Controls::TWinControl* control)
{
    if (control != mActiveControl) {
        mActiveControl = control;
        if (OnActiveControlChange) {
            OnActiveControlChange(this);
        }
    }
}

void TScreen::Forget(const Controls::TControl* control) noexcept
{
    if (mActiveControl == control) {
        mActiveControl = nullptr;
    }
}

void TScreen::DestroyLater(TCustomForm* form)
{
    const auto watch = std::make_shared<Classes::TComponentWatch>(form);
    Toolkits::CurrentToolkit().Post([form, watch] {
        if (watch->IsAlive()) {
            delete form;
        }
    });
}

} // namespace Forms
