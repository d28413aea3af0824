// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/headless/internal/PixelDevice.h"

#include <QImage>

namespace Toolkits
{

/// Draws on pixels, texts in the host's fonts. Shapes have the pixels that they have on every toolkit.
class CQtPaintDevice final : public CPixelDevice
{
public:
    using CPixelDevice::CPixelDevice;
    ~CQtPaintDevice() override;

    void Text(const Types::TPoint& at, const System::UnicodeString& text, const TFontData& font,
              const TTextOptions& options) override;
};

/// The pixels as an image that shares them, and so must not outlive them; constant ones are only read.
QImage ViewOf(Pixels& pixels);
QImage ViewOf(const Pixels& pixels);

} // namespace Toolkits
