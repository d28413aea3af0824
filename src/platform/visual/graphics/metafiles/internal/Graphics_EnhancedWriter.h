// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileWriter.h"

#include <initializer_list>

namespace Graphics
{

/// Writes enhanced metafiles.
class CEnhancedWriter final : public CMetafileWriter
{
public:
    CEnhancedWriter(const Types::TSize& size, const TMetafileNames& names);
    ~CEnhancedWriter() override;

    std::vector<System::Byte> TakeFile() override;

protected:
    void PutClip(const Types::TRect& rect) override;
    void PutEndOfClip() override;
    void PutObject(std::size_t number, const Toolkits::TPenData& pen) override;
    void PutObject(std::size_t number, const TLogicalBrush& brush, unsigned color) override;
    void PutPattern(std::size_t number, std::span<const System::Byte> dib) override;
    void PutObject(std::size_t number, const Toolkits::TFontData& font) override;
    void PutSelect(std::size_t number) override;
    void PutDelete(std::size_t number) override;
    void PutSetting(ESetting setting, unsigned value) override;
    void PutPixel(const Types::TPoint& at, unsigned color) override;
    void PutPoints(const std::vector<Types::TPoint>& points, bool isClosed) override;
    void PutFill(const Types::TRect& rect) override;
    void PutRectangle(const Types::TRect& rect, const Types::TSize& corner) override;
    void PutEllipse(const Types::TRect& rect) override;
    void PutArc(Toolkits::EArc kind, const Types::TRect& rect, const Types::TPoint& from,
                const Types::TPoint& to) override;
    void PutText(const TText& text) override;
    void PutImage(const Toolkits::Pixels& image, const Types::TRect& target, unsigned operation) override;
    void PutBlend(const Toolkits::Pixels& image, const Types::TRect& target, unsigned opacity) override;
    void PutFlood(const Types::TPoint& at, unsigned color, bool isSurface) override;

private:
    /// A record is a type and fields in whole words.
    void PutRecord(unsigned type, CByteWriter fields);
    void PutNumbers(unsigned type, std::initializer_list<unsigned> numbers);
    /// The rectangle around all of the picture, with which many records begin.
    void PutBounds(CByteWriter& fields) const;

    TMetafileNames mNames;
    CByteWriter mRecords;
    unsigned mCount = 0;
};

} // namespace Graphics
