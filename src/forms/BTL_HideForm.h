// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/forms/Forms_Form.h"

#include <optional>

namespace Contnrs
{
class TComponentList;
} // namespace Contnrs

namespace BTL
{

/// Hides a form while something else runs, its data sources disabled meanwhile. What users typed into its
/// data edits goes into their fields first; if one of these refuses it, nothing is hidden and the exception
/// comes out. Without a form, or with one that isn't visible, nothing happens at either end. A form, or a
/// data source, that is destroyed meanwhile is left alone. What handlers raise at the end goes to the
/// application.
///
///     {
///         const BTL::CHideForm hidden(this, false);
///         wizard->ShowModal();
///     }                                                           // the form is shown again
class TRS8_BTL_API CHideForm
{
public:
    /// Hides the screen's active form.
    explicit CHideForm(bool enabled);
    /// `enabled` is what the form is while it is hidden.
    CHideForm(Forms::TForm* form, bool enabled);
    CHideForm(const CHideForm&) = delete;
    CHideForm& operator=(const CHideForm&) = delete;
    ~CHideForm();

    /// Brings what data edits hold into their fields, and disables the form's data sources that are enabled.
    void DisableDataSources();
    /// Enables those again that `DisableDataSources` disabled.
    void EnableDataSources();

private:
    void StoreEdits();
    void DisableSources();
    void Restore();
    void ReenterActiveControl();
    /// Calls `action` if the form is still there; what it raises goes to the application.
    template <class Action>
    void RunForForm(const Action& action);
    bool HasForm() const noexcept { return mWatch.has_value() && mWatch->IsAlive(); }

    Forms::TForm* mForm;
    bool mWasEnabled = false;
    /// Null as long as none was disabled.
    System::GOwner<Contnrs::TComponentList> mDisabledSources;
    std::optional<Classes::TComponentWatch> mWatch;
};

} // namespace BTL
