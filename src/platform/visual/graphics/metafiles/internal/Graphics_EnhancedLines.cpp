// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_EnhancedRecords.h"

#include <numeric>

namespace Graphics
{

namespace
{

using Types::TPoint;

constexpr std::size_t CountPlace = 24;
constexpr std::size_t PointsPlace = 28;

/// Gives the points of the record to an operation of the player.
template <class Number, auto Operation>
void WithPoints(TMetafileReading& reading, const CByteView& record)
{
    (reading.player.*
     Operation)(GMetafileFields<Number>::PointsAt(record, PointsPlace, record.At32(CountPlace)));
}

/// As `WithPoints`, for several rows of them.
template <class Number, auto Operation>
void WithRows(TMetafileReading& reading, const CByteView& record)
{
    constexpr std::size_t countsPlace = 32;
    const std::size_t rows = record.At32(CountPlace);
    if (rows > record.Size() / 4 || !record.Has(countsPlace, rows * 4)) {
        ThrowMetafileDamaged();
    }
    std::vector<std::size_t> counts(rows);
    for (std::size_t i = 0; i < rows; ++i) {
        counts[i] = record.At32(countsPlace + 4 * i);
    }
    const auto points =
        GMetafileFields<Number>::PointsAt(record, countsPlace + rows * 4, record.At32(PointsPlace));
    (reading.player.*Operation)(points, counts);
}

/// Lines and curves by the kind of each point.
template <class Number>
void PolyDraw(TMetafileReading& reading, const CByteView& record)
{
    constexpr unsigned closing = 1;
    constexpr unsigned line = 2;
    constexpr unsigned curve = 4;
    constexpr unsigned move = 6;
    const std::size_t count = record.At32(CountPlace);
    const auto points = GMetafileFields<Number>::PointsAt(record, PointsPlace, count);
    const std::size_t kinds = PointsPlace + count * GMetafileFields<Number>::PointSize;
    CMetafilePlayer& player = reading.player;
    TPoint start = player.State().at;
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned kind = record.At8(kinds + i);
        if ((kind & ~closing) == move) {
            start = points[i];
            player.MoveTo(points[i]);
            continue;
        }
        if ((kind & ~closing) == line) {
            player.LinesTo({points[i]});
        } else if ((kind & ~closing) == curve && i + 2 < count) {
            player.BezierTo({points[i], points[i + 1], points[i + 2]});
            i += 2;
        }
        if ((record.At8(kinds + i) & closing) != 0) {
            player.LinesTo({start});
        }
    }
}

/// Both widths of numbers of a record.
template <auto Operation>
void AddPoints(TMetafileHandlers& handlers, unsigned wide, unsigned narrow)
{
    handlers[wide] = &WithPoints<std::int32_t, Operation>;
    handlers[narrow] = &WithPoints<std::int16_t, Operation>;
}

template <auto Operation>
void AddRows(TMetafileHandlers& handlers, unsigned wide, unsigned narrow)
{
    handlers[wide] = &WithRows<std::int32_t, Operation>;
    handlers[narrow] = &WithRows<std::int16_t, Operation>;
}

} // namespace

void AddEnhancedLines(TMetafileHandlers& handlers)
{
    AddPoints<&CMetafilePlayer::Bezier>(handlers, emPolyBezier, emPolyBezier16);
    AddPoints<&CMetafilePlayer::BezierTo>(handlers, emPolyBezierTo, emPolyBezierTo16);
    AddPoints<&CMetafilePlayer::Polygon>(handlers, emPolygon, emPolygon16);
    AddPoints<&CMetafilePlayer::Polyline>(handlers, emPolyline, emPolyline16);
    AddPoints<&CMetafilePlayer::LinesTo>(handlers, emPolylineTo, emPolylineTo16);
    AddRows<&CMetafilePlayer::Polylines>(handlers, emPolyPolyline, emPolyPolyline16);
    AddRows<&CMetafilePlayer::Polygons>(handlers, emPolyPolygon, emPolyPolygon16);
    handlers[emPolyDraw] = &PolyDraw<std::int32_t>;
    handlers[emPolyDraw16] = &PolyDraw<std::int16_t>;
    handlers[emBeginPath] = [](TMetafileReading& reading, const CByteView&) { reading.player.BeginPath(); };
    handlers[emEndPath] = [](TMetafileReading& reading, const CByteView&) { reading.player.EndPath(); };
    handlers[emAbortPath] = [](TMetafileReading& reading, const CByteView&) { reading.player.AbortPath(); };
    handlers[emCloseFigure] = [](TMetafileReading& reading, const CByteView&) { reading.player.ClosePath(); };
    handlers[emFillPath] = [](TMetafileReading& reading, const CByteView&) {
        reading.player.DrawPath(true, false);
    };
    handlers[emDrawAndFillPath] = [](TMetafileReading& reading, const CByteView&) {
        reading.player.DrawPath(true, true);
    };
    handlers[emDrawPath] = [](TMetafileReading& reading, const CByteView&) {
        reading.player.DrawPath(false, true);
    };
    handlers[emClipPath] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.ClipPath(record.At32(8));
    };
}

} // namespace Graphics
