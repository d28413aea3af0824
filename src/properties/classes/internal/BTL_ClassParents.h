// SPDX-License-Identifier: MIT
#pragma once

namespace System
{
class TMetaClass;
} // namespace System

namespace BTL
{

/// Whether a walk along the parents of a form's class ends in front of `type`: it is null, `Forms::TForm` or
/// `Classes::TDataModule`.
[[nodiscard]] bool EndsParents(const System::TMetaClass* type);

} // namespace BTL
