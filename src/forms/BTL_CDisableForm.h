// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/forms/Forms_Form.h"

#include <optional>

namespace BTL
{

/// Disables a form while something else runs. Without a form, or with one that is disabled already, nothing
/// happens at either end, and nothing at the end of one that is gone by then. What handlers raise at the end
/// goes to the application.
///
///     const BTL::CDisableForm disabled(this);
///     Measure();                                                  // nobody clicks meanwhile
class TRS8_BTL_API CDisableForm
{
public:
    /// Disables the screen's active form.
    CDisableForm();
    explicit CDisableForm(Forms::TForm* form);
    CDisableForm(const CDisableForm&) = delete;
    CDisableForm& operator=(const CDisableForm&) = delete;
    ~CDisableForm();

private:
    /// Null if nothing was disabled.
    Forms::TForm* mForm = nullptr;
    std::optional<Classes::TComponentWatch> mWatch;
};

} // namespace BTL
