// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/classes/Classes_Update.h"

namespace BTL
{

/// Keeps a string list between `BeginUpdate` and `EndUpdate` for a scope.
///
///     const BTL::CStringsUpdate update(list);
///     list->Add(u"a");
///     list->Add(u"b"); // observers hear of both at once
class CStringsUpdate : public Classes::GUpdateScope<Classes::TStrings>
{
public:
    /// `strings` must not be null and must outlive the scope.
    explicit CStringsUpdate(Classes::TStrings* strings) : GUpdateScope(*strings) {}
};

} // namespace BTL
