// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"
#include "testing/FormDriver.h"

namespace Support
{

/// A form with one edit of the class, which has the focus, and an empty one behind it.
template <class Edit, class Other = Edit>
struct TEditForm
{
    TEditForm()
    {
        for (Controls::TWinControl* control : {static_cast<Controls::TWinControl*>(edit), other}) {
            control->setParent(&form);
            control->setText({});
        }
        form.Show();
    }

    ScriptedBoxes toolkit;
    Forms::TForm form;
    Edit* edit = Named(new Edit(&form), u"fEdit");
    Controls::TWinControl* other = Named(new Other(&form), u"fOther");
    Testing::CFormDriver driver{form};

private:
    template <class T>
    static T* Named(T* control, const System::UnicodeString& name)
    {
        control->setName(name);
        return control;
    }
};

} // namespace Support
