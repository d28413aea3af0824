// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"

namespace Stdctrls
{

/// The bars by which what a control shows can be scrolled.
enum TScrollStyle
{
    ssNone,
    ssHorizontal,
    ssVertical,
    ssBoth
};

} // namespace Stdctrls

/// By the names of its values.
template <>
struct TRS8_BTL_API Typinfo::GEnumType<Stdctrls::TScrollStyle>
{
    static TTypeInfo Make();
};
