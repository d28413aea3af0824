// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Classes
{
class TComponent;
} // namespace Classes

namespace BTL
{

/// The name under which `component` is found from the top: its name, behind those of its owners and a point
/// each, but for the topmost owner, which is the application. Empty for a component without a name. Behind an
/// owner without a name the path begins with the point. Null is an internal fault and gives the empty text if
/// the user lets that pass.
///
///     BTL::GetNamePath(edit);                                     // "FormMain.FrameData.EditName"
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetNamePath(Classes::TComponent* component);

} // namespace BTL
