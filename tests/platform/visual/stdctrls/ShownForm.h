// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

namespace Support
{

/// A form that is shown when its controls are on it, and a log of what they tell.
class ShownForm : public testing::Test
{
protected:
    template <class T>
    T* Add(const System::UnicodeString& name, Controls::TWinControl* parent = nullptr)
    {
        auto* const control = new T(&mForm);
        control->setName(name);
        control->setParent(parent == nullptr ? &mForm : parent);
        control->setTop(30 * mForm.GetComponentCount());
        return control;
    }

    /// An event that writes the word into the log.
    auto Note(const System::UnicodeString& word)
    {
        return [this, word](System::TObject*) { mLog += word + u" "; };
    }
    System::UnicodeString TakeLog() { return std::exchange(mLog, {}); }

    ScriptedBoxes mToolkit;
    System::UnicodeString mLog;
    Forms::TForm mForm;
    Testing::CFormDriver mDriver{mForm};
};

} // namespace Support
