// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileWriter.h"

#include <initializer_list>

namespace Graphics
{

/// Writes metafiles of the older type, with a frame. Texts keep the characters that one character set has,
/// and a pixel of a blended image covers or doesn't.
class COldWriter final : public CMetafileWriter
{
public:
    /// The most pixels each way.
    static constexpr int LargestExtent = 0x7FFF;

    explicit COldWriter(const Types::TSize& size);
    ~COldWriter() override;

    std::vector<System::Byte> TakeFile() override;

protected:
    Toolkits::TFontData FontFor(const Toolkits::TFontData& font, const System::UnicodeString& text) override;
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
    /// A record is a function and words.
    void PutRecord(unsigned function, CByteWriter words);
    void PutWords(unsigned function, std::initializer_list<int> words);

    CByteWriter mRecords;
    std::size_t mLongest = 0;
};

} // namespace Graphics
