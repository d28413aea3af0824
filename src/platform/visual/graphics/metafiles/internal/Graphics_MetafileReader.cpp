// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileReader.h"

#include "platform/visual/graphics/metafiles/internal/Graphics_EnhancedRecords.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_OldRecords.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>

namespace Graphics
{

namespace
{

using TBytes = std::span<const System::Byte>;

const TMetafileHandlers& EnhancedHandlers()
{
    static const TMetafileHandlers handlers = [] {
        TMetafileHandlers all{};
        for (const auto add : {&AddEnhancedState, &AddEnhancedObjects, &AddEnhancedLines, &AddEnhancedShapes,
                               &AddEnhancedTexts, &AddEnhancedImages}) {
            add(all);
        }
        return all;
    }();
    return handlers;
}

const TMetafileHandlers& OldHandlers()
{
    static const TMetafileHandlers handlers = [] {
        TMetafileHandlers all{};
        for (const auto add : {&AddOldState, &AddOldObjects, &AddOldShapes, &AddOldImages, &AddOldTexts}) {
            add(all);
        }
        return all;
    }();
    return handlers;
}

void Handle(const TMetafileHandlers& handlers, std::size_t number, TMetafileReading& reading, TBytes record)
{
    if (number < handlers.size() && handlers[number] != nullptr) {
        handlers[number](reading, CByteView(record));
    }
}

/// How the pixels of the device that the file was made for become those of the picture.
void SetDevice(const CByteView& file, CMetafileMapping& mapping)
{
    constexpr std::size_t framePlace = 24;
    constexpr std::size_t pixelsPlace = 72;
    constexpr std::size_t millimetresPlace = 80;
    const auto density = [&](std::size_t axis) {
        const int millimetres = file.Signed32(millimetresPlace + axis);
        return millimetres <= 0 ? 1.0 : 1.0 * file.Signed32(pixelsPlace + axis) / millimetres;
    };
    const TMetafilePoint perMillimetre{.x = density(0), .y = density(4)};
    const auto origin = [&](std::size_t axis, double pixels) {
        return std::floor(file.Signed32(framePlace + axis) * pixels / 100 + 0.5);
    };
    mapping.setDevice({.x = origin(0, perMillimetre.x), .y = origin(4, perMillimetre.y)}, perMillimetre);
}

void ReadEnhanced(TBytes bytes, TMetafileReading& reading)
{
    constexpr std::size_t recordHead = 8;
    const CByteView file(bytes);
    SetDevice(file, reading.player.State().mapping);
    for (std::size_t place = 0;;) {
        const std::size_t size = file.At32(place + 4);
        if (size < recordHead || !file.Has(place, size)) {
            ThrowMetafileDamaged();
        }
        const unsigned type = file.At32(place);
        if (type == emEnd) {
            return;
        }
        Handle(EnhancedHandlers(), type, reading, file.Part(place, size));
        place += size;
    }
}

/// Calls `use` for each record until it returns false, or the end. `EInvalidGraphic` if the file is damaged.
template <class Use>
void ForEachOldRecord(const CByteView& file, std::size_t place, Use use)
{
    for (;;) {
        const std::size_t size = std::size_t{2} * file.At32(place);
        if (size < OldRecordHead || !file.Has(place, size)) {
            ThrowMetafileDamaged();
        }
        const unsigned function = file.At16(place + 4);
        if (function == omEnd || !use(function, file.Part(place + OldRecordHead, size - OldRecordHead))) {
            return;
        }
        place += size;
    }
}

bool HasFrame(const CByteView& file)
{
    return file.At32(0) == PlaceableSignature;
}

/// Where the records begin: behind the frame, if there is one, and a head whose length is in words.
std::size_t FirstOldRecord(const CByteView& file)
{
    const std::size_t head = HasFrame(file) ? PlaceableSize : 0;
    return head + std::size_t{2} * file.At16(head + 2);
}

/// The window that covers the picture until the file sets another one.
void SetWindow(const CByteView& file, const Types::TSize& size, CMetafileMapping& mapping)
{
    mapping.setMode(mmAnisotropic);
    mapping.setViewportExtent(size);
    mapping.setWindowExtent(size);
    if (HasFrame(file)) {
        const Types::TRect frame = TOldFields::RectAt(file, 6);
        mapping.setWindowOrigin({.X = frame.Left, .Y = frame.Top});
        mapping.setWindowExtent({.cx = frame.Width(), .cy = frame.Height()});
    }
}

void ReadOld(TBytes bytes, const Types::TSize& size, TMetafileReading& reading)
{
    const CByteView file(bytes);
    SetWindow(file, size, reading.player.State().mapping);
    ForEachOldRecord(file, FirstOldRecord(file), [&](unsigned function, TBytes record) {
        Handle(OldHandlers(), OldRecordIndex(function), reading, record);
        return true;
    });
}

} // namespace

void ReadMetafile(Toolkits::EPictureType type, TBytes bytes, const Types::TSize& size,
                  Toolkits::PaintRecording& recording)
{
    TMetafileReading reading(recording);
    if (type == Toolkits::EPictureType::EnhancedMetafile) {
        ReadEnhanced(bytes, reading);
    } else {
        ReadOld(bytes, size, reading);
    }
    reading.player.Finish();
}

TMetafileNames ReadMetafileNames(TBytes bytes)
{
    constexpr std::size_t countPlace = 60;
    constexpr std::size_t offsetPlace = 64;
    const CByteView file(bytes);
    // One behind the other, each with a zero at its end.
    TMetafileNames names;
    System::UnicodeString* const both[] = {&names.createdBy, &names.description};
    std::size_t index = 0;
    const std::size_t offset = file.At32(offsetPlace);
    const std::size_t count =
        file.Has(offset, 0) ? std::min<std::size_t>(file.At32(countPlace), bytes.size() / 2) : 0;
    for (std::size_t i = 0; i < count && index < std::size(both); ++i) {
        const auto unit = static_cast<System::WideChar>(file.At16(offset + 2 * i));
        if (unit == 0) {
            ++index;
        } else {
            *both[index] += unit;
        }
    }
    return names;
}

bool IsFrameless(TBytes bytes)
{
    const CByteView file(bytes);
    const unsigned type = file.At16(0);
    const unsigned version = file.At16(4);
    return (type == 1 || type == 2) && file.At16(2) == OldHeadSize / 2 &&
           (version == 0x100 || version == 0x300) && file.Has(0, OldHeadSize);
}

Types::TSize FramelessSize(TBytes bytes)
{
    const CByteView file(bytes);
    Types::TSize size;
    ForEachOldRecord(file, FirstOldRecord(file), [&](unsigned function, TBytes record) {
        if (function != omSetWindowExtent) {
            return true;
        }
        const Types::TPoint extent = OldPointAt(CByteView(record), 0);
        size = {.cx = std::abs(extent.X), .cy = std::abs(extent.Y)};
        return false;
    });
    return size;
}

} // namespace Graphics
