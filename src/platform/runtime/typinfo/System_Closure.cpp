// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/System_Closure.h"

namespace System::Detail
{

void ThrowEmptyClosure()
{
    throw Sysutils::Exception(u"An event without a method was called.");
}

} // namespace System::Detail
