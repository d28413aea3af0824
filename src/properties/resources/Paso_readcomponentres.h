// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

namespace PASO
{

/// Reads into `component` the form resources of the class `type` and of its parents below `Forms::TForm`,
/// `Forms::TFrame` or `Classes::TDataModule`, the outermost first, each by a `CReader`, and gives the
/// component. Null and these three have nothing to read. Unlike the constructors of forms it wants a resource
/// of each class: `Classes::EResNotFound` for one without.
///
///     PASO::ReadComponentRes(form, System::ClassOf<TMainForm>());
TRS8_BTL_API Classes::TComponent* ReadComponentRes(Classes::TComponent* component, System::TMetaClass* type);

} // namespace PASO
