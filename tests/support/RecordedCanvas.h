// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/graphics/Graphics_Canvas.h"

#include <string>

namespace Support
{

/// A canvas of which is told what was drawn on it.
class RecordedCanvas
{
public:
    RecordedCanvas() { mCanvas.setHandle(&mRecording); }

    Graphics::TCanvas* operator->() { return &mCanvas; }
    Graphics::TCanvas* get() { return &mCanvas; }

    /// What was drawn since the last call, one call a line.
    std::string Take()
    {
        const std::string text = System::ToUtf8(mRecording.AsText());
        mRecording.Clear();
        return text;
    }

private:
    Toolkits::PaintRecording mRecording;
    Graphics::TCanvas mCanvas;
};

} // namespace Support
