// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_OldRecords.h"

namespace Graphics
{

namespace
{

using Toolkits::EArc;
using Toolkits::EFlood;

template <EArc Kind>
void Arc(TMetafileReading& reading, const CByteView& record)
{
    reading.player.Arc(Kind, OldRectAt(record, 4), OldPointAt(record, 2), OldPointAt(record, 0));
}

/// Gives the points of the record to an operation of the player.
template <auto Operation>
void WithPoints(TMetafileReading& reading, const CByteView& record)
{
    (reading.player.*Operation)(TOldFields::PointsAt(record, 2, record.At16(0)));
}

void PolyPolygon(TMetafileReading& reading, const CByteView& record)
{
    const std::size_t rows = record.At16(0);
    const std::size_t points = 2 + 2 * rows;
    if (!record.Has(points, 0)) {
        ThrowMetafileDamaged();
    }
    std::vector<std::size_t> counts(rows);
    for (std::size_t i = 0; i < rows; ++i) {
        counts[i] = record.At16(2 + 2 * i);
    }
    reading.player.Polygons(
        TOldFields::PointsAt(record, points, (record.Size() - points) / TOldFields::PointSize), counts);
}

} // namespace

void AddOldShapes(TMetafileHandlers& handlers)
{
    const auto at = [&](unsigned function) -> TMetafileHandler& {
        return handlers[OldRecordIndex(function)];
    };
    at(omPolygon) = &WithPoints<&CMetafilePlayer::Polygon>;
    at(omPolyline) = &WithPoints<&CMetafilePlayer::Polyline>;
    at(omPolyPolygon) = &PolyPolygon;
    at(omRectangle) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.Rectangle(OldRectAt(record, 0), {});
    };
    at(omRoundRect) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.Rectangle(OldRectAt(record, 2), {.cx = WordAt(record, 1), .cy = WordAt(record, 0)});
    };
    at(omEllipse) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.Ellipse(OldRectAt(record, 0));
    };
    at(omArc) = &Arc<EArc::Open>;
    at(omChord) = &Arc<EArc::Chord>;
    at(omPie) = &Arc<EArc::Pie>;
    at(omSetPixel) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.SetPixel(OldPointAt(record, 2), PixelOfReference(record.At32(0)));
    };
    at(omFloodFill) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.FloodFill(OldPointAt(record, 2), PixelOfReference(record.At32(0)), EFlood::Border);
    };
    at(omExtFloodFill) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.FloodFill(OldPointAt(record, 3), PixelOfReference(record.At32(2)),
                                 record.At16(0) == 1 ? EFlood::Surface : EFlood::Border);
    };
}

} // namespace Graphics
