// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtProgress.h"

#include "platform/toolkit/qt/WindowLog.h"

#include <QProgressBar>

#include <gtest/gtest.h>

#include <limits>

namespace
{

class QtProgressTest : public testing::Test
{
protected:
    Support::TShownWindow mShown{Toolkits::EWindowKind::ProgressBar};
    QProgressBar* mBar = qobject_cast<QProgressBar*>(Support::FindWidget("Form.Window"));
};

TEST_F(QtProgressTest, ShowsWhatTheControlHas)
{
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    struct TRow
    {
        Toolkits::TProgress shown;
        /// Thousandths of the bar that are filled; -1 for a block that wanders.
        int filled;
    };
    for (const auto& [progress, filled] :
         {TRow{{.min = 0, .max = 200, .position = 50}, 250},
          {{.min = -100, .max = 100, .position = 100}, 1000},
          {{.min = 5, .max = 5, .position = 5}, 0},
          {{.min = 0, .max = 0, .position = 0}, 0},
          {{.min = least, .max = most, .position = 0}, 500},
          {{.min = 0, .max = 100, .position = 30, .isWandering = true}, -1},
          {{.min = 0, .max = 100, .position = 30, .isVertical = true}, 300}}) {
        SCOPED_TRACE(testing::Message() << progress.min << ' ' << progress.max);
        mShown.window->SetProgress(progress);
        EXPECT_EQ(mBar->minimum() == 0 && mBar->maximum() == 0, filled < 0);
        EXPECT_EQ(mBar->orientation() == Qt::Vertical, progress.isVertical);
        if (filled >= 0) {
            const double done = 1.0 * mBar->value() - mBar->minimum();
            EXPECT_NEAR(done * 1000 / (1.0 * mBar->maximum() - mBar->minimum()), filled, 1);
        }
        mBar->grab();
    }
}

TEST_F(QtProgressTest, KeepsItsColoursWhenTheFontChanges)
{
    const Toolkits::TPixel red = Toolkits::OpaquePixel(255, 0, 0);
    mShown.window->SetProgress({.position = 50, .bar = red, .ground = Toolkits::OpaquePixel(0, 0, 1)});
    mShown.window->SetLook({.ground = Toolkits::OpaquePixel(9, 9, 9)});
    EXPECT_EQ(mBar->palette().color(QPalette::Highlight).rgb(), red);
    EXPECT_EQ(mBar->palette().color(QPalette::Base).rgb(), Toolkits::OpaquePixel(0, 0, 1));
    EXPECT_EQ(mBar->palette().color(QPalette::Window).rgb(), Toolkits::OpaquePixel(9, 9, 9));
}

} // namespace
