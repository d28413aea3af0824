// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/panels/Extctrls_Bevel.h"

#include "platform/toolkit/PaintRecording.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <set>

namespace
{

using namespace Extctrls;

TEST(BevelTest, DrawsEachShapeInItsOwnWay)
{
    Support::ScriptedBoxes toolkit;
    TBevel bevel;
    Toolkits::PaintRecording recording;
    const auto painted = [&] {
        recording.Clear();
        bevel.Perform(WM_PAINT, reinterpret_cast<std::uintptr_t>(&recording));
        return System::ToUtf8(recording.AsText());
    };
    std::set<std::string> seen;
    for (const TBevelShape shape :
         {bsBox, bsFrame, bsTopLine, bsBottomLine, bsLeftLine, bsRightLine, bsSpacer}) {
        bevel.setShape(shape);
        bevel.setStyle(bsLowered);
        const std::string lowered = painted();
        EXPECT_TRUE(seen.insert(lowered).second) << shape;
        bevel.setStyle(bsRaised);
        EXPECT_EQ(painted() == lowered, shape == bsSpacer) << shape;
        EXPECT_EQ(lowered.empty(), shape == bsSpacer) << lowered;
    }
    EXPECT_EQ(bevel.getWidth(), 50);
}

} // namespace
