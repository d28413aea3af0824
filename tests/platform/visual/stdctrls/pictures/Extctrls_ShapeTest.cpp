// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/pictures/Extctrls_Shape.h"

#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/graphics/Graphics_Brush.h"
#include "platform/visual/graphics/Graphics_Pen.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

namespace
{

using namespace Extctrls;

TEST(ShapeTest, DrawsItsShapeWithinItsLine)
{
    Support::ScriptedBoxes toolkit;
    TShape shape;
    shape.SetBounds(0, 0, 40, 20);
    const auto painted = [&] {
        Toolkits::PaintRecording recording;
        shape.Perform(WM_PAINT, reinterpret_cast<std::uintptr_t>(&recording));
        return System::ToUtf8(recording.AsText());
    };
    const struct
    {
        TShapeType shape;
        int line;
        const char* drawn;
    } cases[] = {
        {stRectangle, 1, "0,0,40,20"}, {stSquare, 1, "10,0,30,20"},   {stRoundRect, 1, "0,0,40,20"},
        {stCircle, 1, "10,0,30,20"},   {stRectangle, 0, "0,0,40,20"}, {stEllipse, 4, "2,2,39,19"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.shape << ' ' << c.line);
        shape.setShape(c.shape);
        shape.getPen()->setWidth(c.line);
        EXPECT_NE(painted().find(c.drawn), std::string::npos) << painted();
    }
    const std::string black = painted();
    shape.getPen()->setColor(Graphics::clRed);
    EXPECT_NE(painted(), black);
    shape.SetBounds(0, 0, 0, 0);
    EXPECT_NO_THROW(painted());
}

} // namespace
