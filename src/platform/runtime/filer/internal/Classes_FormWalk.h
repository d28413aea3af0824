// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/filer/internal/Classes_FormInput.h"
#include "platform/runtime/filer/internal/Classes_FormSink.h"

namespace Classes::Form
{

/// Tells `sink` of the form resource that `input` begins with. `EReadError` if it is none; the message has
/// the class, the path of the component and the property where it isn't one.
void WalkBinary(CInput& input, ASink& sink);

} // namespace Classes::Form
