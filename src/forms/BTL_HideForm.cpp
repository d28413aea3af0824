// SPDX-License-Identifier: MIT
#include "forms/BTL_HideForm.h"

#include "platform/runtime/classes/Contnrs_ComponentList.h"
#include "platform/visual/data/Dbctrls_DBEdit.h"
#include "platform/visual/data/sets/Db_DataSet.h"
#include "platform/visual/data/sets/Db_Field.h"
#include "platform/visual/forms/Forms_Application.h"
#include "platform/visual/forms/Forms_Screen.h"
#include "properties/components/BTL_Components.h"

namespace BTL
{

namespace
{

bool IsBeingChanged(const Dbctrls::TDBEdit& edit)
{
    const Db::TDataSource* const source = edit.getDataSource();
    const Db::TDataSet* const dataSet = source == nullptr ? nullptr : source->getDataSet();
    return dataSet != nullptr && (dataSet->getState() == Db::dsEdit || dataSet->getState() == Db::dsInsert);
}

} // namespace

CHideForm::CHideForm(bool enabled) : CHideForm(Forms::Screen->getActiveForm(), enabled) {}

CHideForm::CHideForm(Forms::TForm* form, bool enabled) : mForm(form)
{
    if (form == nullptr || !form->getVisible()) {
        mForm = nullptr;
        return;
    }
    mWatch.emplace(form);
    mWasEnabled = form->getEnabled();
    StoreEdits();
    try {
        DisableSources();
        if (HasForm()) {
            form->setEnabled(enabled);
        }
        if (HasForm()) {
            form->Hide();
        }
    } catch (...) {
        // Nobody calls the destructor of what wasn't made.
        Restore();
        throw;
    }
}

CHideForm::~CHideForm()
{
    Restore();
    RunForForm([this] { ReenterActiveControl(); });
}

template <class Action>
void CHideForm::RunForForm(const Action& action)
{
    if (HasForm()) {
        Forms::Application->RunHandled(action);
    }
}

void CHideForm::Restore()
{
    RunForForm([this] { mForm->setEnabled(mWasEnabled); });
    RunForForm([this] { mForm->Show(); });
    RunForForm([this] { EnableDataSources(); });
}

void CHideForm::ReenterActiveControl()
{
    Controls::TWinControl* const active = mForm->getActiveControl();
    if (active == nullptr || !mForm->getVisible() || !mForm->getEnabled()) {
        return;
    }
    const Classes::TComponentWatch watch(active);
    mForm->setActiveControl(nullptr);
    if (HasForm() && watch.IsAlive()) {
        mForm->setActiveControl(active);
    }
}

void CHideForm::StoreEdits()
{
    if (!HasForm()) {
        return;
    }
    Contnrs::TComponentList edits(false);
    for (Classes::TComponent* const component : CComponents(mForm)) {
        if (dynamic_cast<Dbctrls::TDBEdit*>(component) != nullptr) {
            edits.Add(component);
        }
    }
    while (edits.getCount() > 0) {
        auto* const edit = static_cast<Dbctrls::TDBEdit*>(edits.First());
        edits.Remove(edit);
        Db::TField* const field = edit->getModified() && IsBeingChanged(*edit) ? edit->getField() : nullptr;
        if (field != nullptr) {
            field->setText(edit->getText());
        }
    }
}

void CHideForm::DisableDataSources()
{
    StoreEdits();
    DisableSources();
}

void CHideForm::DisableSources()
{
    if (!HasForm()) {
        return;
    }
    Contnrs::TComponentList sources(false);
    for (Classes::TComponent* const component : CComponents(mForm)) {
        const auto* const source = dynamic_cast<Db::TDataSource*>(component);
        if (source != nullptr && source->getEnabled()) {
            sources.Add(component);
        }
    }
    if (sources.getCount() > 0 && mDisabledSources == nullptr) {
        mDisabledSources = System::GOwner<Contnrs::TComponentList>(new Contnrs::TComponentList(false));
    }
    while (sources.getCount() > 0) {
        auto* const source = static_cast<Db::TDataSource*>(sources.First());
        sources.Remove(source);
        mDisabledSources->Add(source);
        source->setEnabled(false);
    }
}

void CHideForm::EnableDataSources()
{
    const auto disabled = std::move(mDisabledSources);
    while (disabled != nullptr && disabled->getCount() > 0) {
        auto* const source = static_cast<Db::TDataSource*>(disabled->First());
        disabled->Remove(source);
        // One that can't be enabled without a word doesn't keep the others from it.
        Forms::Application->RunHandled([&] { source->setEnabled(true); });
    }
}

} // namespace BTL
