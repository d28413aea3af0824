// SPDX-License-Identifier: MIT
#include "forms/labels/CTL_Label.h"

#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/Forms.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{

using System::UnicodeString;

UnicodeString Painted(TCTL_Label& label)
{
    Toolkits::PaintRecording recording;
    Toolkits::PaintDevice* const device = &recording;
    label.Perform(WM_PAINT, reinterpret_cast<std::uintptr_t>(device));
    return recording.AsText();
}

TEST(LabelWithAttributesTest, LeavesATextWithAttributesToItsPainter)
{
    const Support::ScriptedBoxes toolkit;
    Forms::TForm form;
    TCTL_Label label(&form);
    label.setParent(&form);
    label.setCaption(u"a");
    const auto former = std::exchange(
        BTL::PaintAttributeText, [](Graphics::TCanvas* canvas, const Types::TRect& rect,
                                    const UnicodeString& text, Classes::TAlignment, bool isTransparent) {
            canvas->TextOut(rect.Left, rect.Top, u"<" + text + (isTransparent ? u"~" : u">"));
        });
    EXPECT_GT(Painted(label).Pos(u"\"a\""), 0);
    Typinfo::SetOrdProp(&label, u"TextHasAttributes", 1);
    EXPECT_GT(Painted(label).Pos(u"\"<a>\""), 0);
    label.setTransparent(true);
    EXPECT_GT(Painted(label).Pos(u"\"<a~\""), 0);
    BTL::PaintAttributeText = nullptr;
    EXPECT_GT(Painted(label).Pos(u"\"a\""), 0);
    BTL::PaintAttributeText = former;
}

} // namespace
