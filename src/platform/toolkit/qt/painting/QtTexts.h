// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintDevice.h"

#include <QPainter>

namespace Toolkits
{

/// Draws lines of text on an image, and keeps from one to the next what they have in common.
///
///     CQtTexts texts(image, 1.0);
///     texts.Draw({2, 2}, u"Pressure", font, {}, {0, 0, 100, 20});
class CQtTexts
{
public:
    /// `factor` is pixels of the image to one of the library's, in which fonts are measured.
    CQtTexts(QImage& image, double factor);

    /// The pixels of the image that the corner, and the limit, are at.
    void Draw(const Types::TPoint& corner, const System::UnicodeString& text, const TFontData& font,
              const TTextOptions& options, const Types::TRect& clip);

private:
    void TakeFont(const TFontData& font);
    void TakeClip(const Types::TRect& clip);
    void TakeColor(TPixel color);
    void TakeGround(bool isCovered, TPixel ground);
    void DrawLine(double x, double top, const QString& line, const TTextOptions& options);

    QPainter mPainter;
    double mFactor;
    TFontData mFont;
    bool mHasFont = false;
    int mAscent = 0;
    int mHeight = 0;
    TPixel mColor = OpaquePixel(0, 0, 0);
    TPixel mGround = OpaquePixel(255, 255, 255);
    bool mIsCovered = false;
    Types::TRect mClip;
};

} // namespace Toolkits
