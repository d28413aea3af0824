// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_ComponentWatch.h"

#include <optional>

namespace Forms
{
class TForm;
} // namespace Forms

namespace BTL
{

/// A scope in which a form is out of use, unless it was so before. What handlers raise at its begin comes
/// out, and the form is of use again; at its end it goes to the application.
///
///     {
///         const BTL::CDisableForm disabled(mainForm);
///         Measure();                                              // the user can't touch the form
///     }
class TRS8_BTL_API CDisableForm
{
public:
    /// The form that the user works in.
    CDisableForm();
    /// Null does nothing. The form may be destroyed meanwhile.
    explicit CDisableForm(Forms::TForm* form);
    CDisableForm(const CDisableForm&) = delete;
    CDisableForm& operator=(const CDisableForm&) = delete;
    ~CDisableForm();

private:
    void Restore();

    /// Null if it isn't this that disabled one.
    Forms::TForm* mForm = nullptr;
    std::optional<Classes::TComponentWatch> mWatch;
};

} // namespace BTL
