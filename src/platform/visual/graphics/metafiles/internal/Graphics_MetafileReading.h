// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileFields.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileObjects.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafilePlayer.h"

#include <array>

namespace Graphics
{

/// What the records of a metafile work on while it is read.
struct TMetafileReading
{
    explicit TMetafileReading(Toolkits::PaintRecording& recording) : player(recording) {}

    CMetafilePlayer player;
    CMetafileObjects objects;
};

/// Does what a record says. What the record doesn't have is 0.
using TMetafileHandler = void (*)(TMetafileReading& reading, const CByteView& record);

/// By the number of the record; null for one that is passed over.
using TMetafileHandlers = std::array<TMetafileHandler, 256>;

/// What a line or filling makes of the colour that is there, by its number in files.
TPenMode MetafilePenMode(unsigned number);

/// The operation of an image, as `TImageOptions` has it, by the one of the file.
constexpr unsigned char MetafileOperation(unsigned operation)
{
    return static_cast<unsigned char>(operation >> 16U & 255U);
}

/// A bitmap in a record: where its head and its rows are, and how its colours are told.
struct TMetafileBitmap
{
    std::size_t head = 0;
    /// Behind the head if that is 0.
    std::size_t rows = 0;
    unsigned usage = 0;
    /// Whether the part of it that is drawn counts from the row that is the first in memory.
    bool isFromFirstRow = false;
};

/// The pixels of a bitmap, which count for the limits of the metafile. `EInvalidGraphic` if it is damaged. An
/// empty one if its colours are numbers in a palette elsewhere, or only a codec can tell them.
Toolkits::Pixels ReadMetafileBitmap(TMetafileReading& reading, const CByteView& record,
                                    const TMetafileBitmap& bitmap);

/// Draws the part `source` of a bitmap, which covers what is below it but for the operation.
void StretchMetafileBitmap(TMetafileReading& reading, const CByteView& record, const TMetafileBitmap& bitmap,
                           const Types::TRect& source, const Types::TRect& target, unsigned operation);

} // namespace Graphics
