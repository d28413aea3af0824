// SPDX-License-Identifier: MIT
#include "platform/base/System_DynamicArray.h"

#include "platform/base/Sysutils_Exception.h"

namespace System
{

TSharedBlock::~TSharedBlock() = default;

void ThrowArrayRange(int index, int length)
{
    throw Sysutils::ERangeError(u"Array index " + UnicodeString(index) + u" is not in 0 to " +
                                UnicodeString(length - 1) + u".");
}

void ThrowArrayLength(int length)
{
    throw Sysutils::ERangeError(u"An array can't have " + UnicodeString(length) + u" elements.");
}

void ThrowArrayMemory()
{
    throw Sysutils::EOutOfMemory(u"There is no memory for the elements of an array.");
}

} // namespace System
