// SPDX-License-Identifier: MIT
#include "charts/internal/BTL_CD_ChartStream.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/classes/Classes_Stream.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>
#include <vector>

namespace BTL::Detail
{

namespace
{

using Classes::TStream;
using System::UnicodeString;
using UTL::CDoubleVector;

static_assert(std::endian::native == std::endian::little, "the bytes of numbers stand as they are in memory");

template <class Items>
void WriteItems(TStream& stream, const Items& items)
{
    WriteNumber(stream, static_cast<int>(items.size()));
    stream.WriteBuffer(items.data(),
                       static_cast<System::Int64>(items.size()) * System::Int64{sizeof(*items.data())});
}

/// Hands the items to `take` in blocks, as far as the stream has them.
template <class Item, class Take>
void ReadItems(TStream& stream, Take take)
{
    constexpr unsigned blockSize = 8192;
    unsigned left = ReadCount(stream);
    std::vector<Item> block(std::min(left, blockSize));
    while (left > 0) {
        const unsigned count = std::min(left, blockSize);
        stream.ReadBuffer(block.data(), System::Int64{count} * System::Int64{sizeof(Item)});
        take(block.data(), count);
        left -= count;
    }
}

} // namespace

void ThrowDamagedChart(const UnicodeString& place, const char* fault)
{
    throw Sysutils::Exception(u"The chart is damaged: " + place + u" " + UnicodeString(fault) + u".");
}

void WriteNumber(TStream& stream, int number)
{
    stream.WriteBuffer(&number, sizeof number);
}

void WriteText(TStream& stream, const UnicodeString& text)
{
    WriteItems(stream, text.AsView());
}

void WriteValues(TStream& stream, const CDoubleVector& values)
{
    WriteItems(stream, values);
}

int ReadNumber(TStream& stream)
{
    std::int32_t number = 0;
    stream.ReadBuffer(&number, sizeof number);
    return number;
}

unsigned ReadCount(TStream& stream)
{
    const int count = ReadNumber(stream);
    if (count < 0) {
        ThrowDamagedChart(u"a count", "is negative");
    }
    return static_cast<unsigned>(count);
}

UnicodeString ReadText(TStream& stream)
{
    std::u16string text;
    ReadItems<char16_t>(stream, [&](const char16_t* block, unsigned count) { text.append(block, count); });
    return UnicodeString(text);
}

CDoubleVector ReadValues(TStream& stream)
{
    CDoubleVector values;
    ReadItems<double>(stream, [&](const double* block, unsigned count) {
        values.insert(values.end(), block, block + count);
    });
    return values;
}

} // namespace BTL::Detail
