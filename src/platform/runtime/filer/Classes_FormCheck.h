// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <string_view>
#include <vector>

namespace Classes
{

/// What is wrong at a place of a form's text.
struct TFormFault
{
    /// Both from 1 on; the column in characters.
    int Line;
    int Column;
    /// With the path of the component, the property and the class.
    System::UnicodeString Message;
};

/// Whether classes that nobody registered are faults.
enum TFormClasses
{
    fcKnown,
    fcAll
};

/// Looks for faults in the text of a form, in UTF-8: in its grammar, names and properties that are there
/// twice, inherited components where nothing is inherited; and, of classes that are registered, properties
/// that they haven't got and values that these can't hold. A component of each such class is made for that,
/// none of the class of the form itself. With `fcAll` an unknown class other than the form's is a fault too.
/// The faults come in the order of their places; behind one of the grammar nothing is looked at, nor behind
/// a hundred.
///
///     for (const TFormFault& fault : CheckFormText(text)) {
///         std::cerr << name << ':' << fault.Line << ':' << fault.Column << ": " << fault.Message << '\n';
///     }
[[nodiscard]] TRS8_BTL_API std::vector<TFormFault> CheckFormText(std::string_view text,
                                                                 TFormClasses classes = fcKnown);

} // namespace Classes
