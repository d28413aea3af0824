// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"

namespace Classes
{

TComponentWatch::~TComponentWatch()
{
    if (mComponent == nullptr) {
        return;
    }
    // Watches end in the reverse of their order, unless one of them isn't on the stack.
    TComponentWatch** place = &mComponent->mWatches;
    while (*place != this) {
        place = &(*place)->mNext;
    }
    *place = mNext;
}

} // namespace Classes
