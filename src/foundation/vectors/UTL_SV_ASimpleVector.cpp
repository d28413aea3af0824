// SPDX-License-Identifier: MIT
#include "foundation/vectors/UTL_SV_ASimpleVector.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/sysutils/System_Printf.h"

#include <algorithm>

namespace UTL
{

namespace
{

unsigned NotNegative(int value)
{
    return static_cast<unsigned>(std::max(value, 0));
}

} // namespace

ASimpleVector::ASimpleVector(ECapacity, int capacity, int increment) : ASimpleVector(capacity, 0, increment)
{
}

ASimpleVector::ASimpleVector(int capacity, int size, int increment)
    : mIncrement(NotNegative(increment)),
      mCapacity(NotNegative(capacity)),
      mSize(std::min(NotNegative(size), mCapacity))
{
}

unsigned ASimpleVector::SizeWith(unsigned count) const
{
    if (count > MaxSize - mSize) {
        FailMemory();
    }
    return mSize + count;
}

unsigned ASimpleVector::CapacityWith(unsigned count) const
{
    const unsigned size = SizeWith(count);
    if (size <= mCapacity) {
        return mCapacity;
    }
    const unsigned long long step = NewCapacity() - mCapacity;
    const unsigned long long steps = (size - mCapacity + step - 1) / step;
    return static_cast<unsigned>(std::min<unsigned long long>(mCapacity + steps * step, MaxSize));
}

void ASimpleVector::FailPosition()
{
    throw Sysutils::ERangeError(u"The position lies outside the vector.");
}

void ASimpleVector::FailMemory()
{
    throw Sysutils::EOutOfMemory(u"The vector grows too large.");
}

void ASimpleVector::FailRange(unsigned index, const CFaultPlace& place) const
{
    const System::AnsiString expression =
        System::PrintfA("SimpleVector out of range. Index = %d, Size = %d", static_cast<int>(index), mSize);
    THROW_XAssert(place, expression.c_str());
    throw Sysutils::ERangeError(expression);
}

} // namespace UTL
