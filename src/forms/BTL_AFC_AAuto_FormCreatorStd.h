// SPDX-License-Identifier: MIT
#pragma once

#include "forms/BTL_AFC_AAuto_FormCreator.h"
#include "platform/runtime/typinfo/System_MetaClass.h"

namespace BTL
{

/// A creator that tells the program's register of form classes what it makes, by `RegisterFormClass`.
class TRS8_BTL_API AAuto_FormCreatorStd : public AAuto_FormCreator
{
public:
    /// `type` may be null.
    AAuto_FormCreatorStd(Classes::TComponent*& form, System::TMetaClass* type, bool showSplash, bool owned);
    ~AAuto_FormCreatorStd() override;

protected:
    AAuto_FormCreatorStd(const CVariable& form, System::TMetaClass* type, bool showSplash, bool owned);
};

/// Makes a form of the class `T` when it is needed for the first time.
///
///     TSettingsForm* settingsForm = nullptr;
///     BTL::GAuto_FormCreator<TSettingsForm> settingsCreator(settingsForm, true, false);
///     if (settingsCreator.ShowModal(mainForm) == mrOk) {
///         Apply(settingsForm->getSettings());
///     }
template <class T>
class GAuto_FormCreator : public AAuto_FormCreatorStd
{
public:
    /// With `showSplash` the user is told to wait while the form is made. If `owned` the form goes with the
    /// creator, otherwise with the application.
    GAuto_FormCreator(T*& form, bool showSplash, bool owned)
        : AAuto_FormCreatorStd(CVariable(form), System::ClassOf<T>(), showSplash, owned), mForm(form)
    {
    }

protected:
    void DoCreateForm(bool owned) override
    {
        if (owned) {
            mForm = new T(nullptr);
        } else {
            Forms::Application->CreateForm(mForm);
        }
    }

private:
    T*& mForm;
};

} // namespace BTL
