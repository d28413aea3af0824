// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"
#include "platform/toolkit/PaintTypes.h"
#include "platform/visual/graphics/internal/Graphics_Bytes.h"

#include <cstdint>
#include <vector>

namespace Graphics
{

[[noreturn]] inline void ThrowMetafileDamaged()
{
    throw EInvalidGraphic(u"The metafile is damaged");
}

/// What stands in records of metafiles, in which numbers have the size of `Number`: two bytes or four.
///
///     using TFields = GMetafileFields<std::int32_t>;
///     const Types::TRect box = TFields::RectAt(record, 8);
template <class Number>
struct GMetafileFields
{
    static constexpr std::size_t Size = sizeof(Number);
    static constexpr std::size_t PointSize = 2 * Size;

    /// 0 for what isn't there.
    static int At(const CByteView& record, std::size_t offset)
    {
        return Size == 2 ? record.Signed16(offset) : record.Signed32(offset);
    }
    static Types::TPoint PointAt(const CByteView& record, std::size_t offset)
    {
        return {.X = At(record, offset), .Y = At(record, offset + Size)};
    }
    static Types::TSize SizeAt(const CByteView& record, std::size_t offset)
    {
        return {.cx = At(record, offset), .cy = At(record, offset + Size)};
    }
    static Types::TRect RectAt(const CByteView& record, std::size_t offset)
    {
        return {.Left = At(record, offset),
                .Top = At(record, offset + Size),
                .Right = At(record, offset + 2 * Size),
                .Bottom = At(record, offset + 3 * Size)};
    }
    /// None if the record hasn't as many.
    static std::vector<int> NumbersAt(const CByteView& record, std::size_t offset, std::size_t count)
    {
        std::vector<int> numbers;
        if (count <= record.Size() / Size && record.Has(offset, count * Size)) {
            numbers.resize(count);
            for (std::size_t i = 0; i < count; ++i) {
                numbers[i] = At(record, offset + i * Size);
            }
        }
        return numbers;
    }
    /// `EInvalidGraphic` if the record hasn't as many.
    static std::vector<Types::TPoint> PointsAt(const CByteView& record, std::size_t offset, std::size_t count)
    {
        if (count > record.Size() / PointSize || !record.Has(offset, count * PointSize)) {
            ThrowMetafileDamaged();
        }
        std::vector<Types::TPoint> points(count);
        for (std::size_t i = 0; i < count; ++i) {
            points[i] = PointAt(record, offset + i * PointSize);
        }
        return points;
    }
};

} // namespace Graphics
