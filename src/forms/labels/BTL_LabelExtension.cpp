// SPDX-License-Identifier: MIT
#include "forms/labels/BTL_LabelExtension.h"

#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"

namespace BTL
{

void (*PaintAttributeText)(Graphics::TCanvas* canvas, const Types::TRect& rect,
                           const System::UnicodeString& text, Classes::TAlignment alignment,
                           bool isTransparent) = nullptr;

bool CLabelExtension::Paint()
{
    if (!mTextHasAttributes || PaintAttributeText == nullptr) {
        return false;
    }
    Graphics::TCanvas* const canvas = mLabel->getCanvas();
    const bool isTransparent = mLabel->getTransparent();
    if (!isTransparent) {
        canvas->getBrush()->setColor(mLabel->getColor());
        canvas->getBrush()->setStyle(Graphics::bsSolid);
    } else if (mLabel->getParent() != nullptr) {
        canvas->getBrush()->setColor(mLabel->getParent()->getBrush()->getColor());
        canvas->getBrush()->setStyle(Graphics::bsClear);
    }
    canvas->setFont(const_cast<Graphics::TFont*>(&mLabel->GetShownFont()));
    PaintAttributeText(canvas, mLabel->GetClientRect(), mLabel->getCaption(), mLabel->getAlignment(),
                       isTransparent);
    return true;
}

void CLabelExtension::SetTextHasAttributes(bool isOn)
{
    if (isOn != mTextHasAttributes) {
        mTextHasAttributes = isOn;
        mLabel->Repaint();
    }
}

} // namespace BTL
