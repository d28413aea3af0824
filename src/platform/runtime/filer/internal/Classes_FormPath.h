// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <string>
#include <string_view>
#include <vector>

namespace Classes::Form
{

/// Where in a form one is, for messages.
class CFormPath
{
public:
    bool IsEmpty() const noexcept { return mSteps.empty(); }
    void Enter(std::string_view className, std::string_view name)
    {
        mSteps.push_back({std::string(className), std::string(name)});
    }
    void Leave() { mSteps.pop_back(); }
    const std::string& getProperty() const noexcept { return mProperty; }
    void setProperty(std::string_view path) { mProperty = path; }

    /// As in "Form1.Panel1.Button1.Caption (TButton)": the components from the root on, one without a name by
    /// its class, the property, and the class of the last component. "the form" outside of all.
    System::UnicodeString AsText() const;

private:
    struct TStep
    {
        std::string className;
        std::string name;
    };

    std::vector<TStep> mSteps;
    std::string mProperty;
};

} // namespace Classes::Form
