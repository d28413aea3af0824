// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_FormPath.h"

namespace Classes::Form
{

System::UnicodeString CFormPath::AsText() const
{
    if (mSteps.empty()) {
        return u"the form";
    }
    std::string text;
    for (const TStep& step : mSteps) {
        text += (text.empty() ? "" : ".") + (step.name.empty() ? step.className : step.name);
    }
    if (!mProperty.empty()) {
        text += "." + mProperty;
    }
    return System::FromUtf8(text + " (" + mSteps.back().className + ")");
}

} // namespace Classes::Form
