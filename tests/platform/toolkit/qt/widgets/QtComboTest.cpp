// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtCombo.h"

#include "platform/toolkit/DrawnItems.h"
#include "platform/toolkit/PaintDevice.h"
#include "platform/toolkit/qt/WindowLog.h"
#include "support/ScriptedBoxes.h"

#include <QAbstractItemView>
#include <QComboBox>

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{

using Toolkits::OpaquePixel;
using Toolkits::TPixel;

/// Bars of different heights, each in a colour of its own that says whether it is chosen.
class Bars final : public Toolkits::DrawnItems
{
public:
    static constexpr int Heights[] = {10, 33, 20};
    static constexpr TPixel Field = OpaquePixel(1, 2, 3);
    static TPixel Color(int index, bool isChosen)
    {
        return OpaquePixel(static_cast<unsigned char>(100 + index), isChosen ? 255 : 0, 50);
    }

    bool areDrawn = true;
    /// Called before each is drawn.
    std::function<void()> drawing;

    int GetItemCount() const override { return 3; }
    System::UnicodeString GetItemText(int index) const override { return System::UnicodeString(index); }
    bool AreItemsDrawn() const override { return areDrawn; }
    int GetItemHeight(int index) const override { return Heights[index]; }
    void PaintItem(Toolkits::PaintDevice& device, int index, const Types::TRect& bounds,
                   bool isChosen) const override
    {
        Fill(device, bounds, Color(index, isChosen));
    }
    void PaintField(Toolkits::PaintDevice& device, const Types::TRect& bounds) const override
    {
        Fill(device, bounds, Field);
    }

private:
    void Fill(Toolkits::PaintDevice& device, const Types::TRect& bounds, TPixel color) const
    {
        if (drawing) {
            drawing();
        }
        device.FillRect(bounds, {.color = color});
    }
};

class QtComboTest : public testing::Test
{
protected:
    QtComboTest()
    {
        mShown.window->SetBounds({0, 0, 120, 24});
        mShown.window->SetComboTraits({.isEditable = false});
        mShown.window->ShowItems(mItems);
        mShown.window->SelectItem(1);
        mCombo = qobject_cast<QComboBox*>(Support::FindWidget("Form.Window"));
        Settle();
    }

    void Settle() { mShown.player().Settle(); }
    static TPixel PixelAt(QWidget& widget, QPoint place) { return widget.grab().toImage().pixel(place); }
    TPixel FieldPixel() { return PixelAt(*mCombo, {40, 12}); }

    Support::ScriptedBoxes mToolkit;
    Bars mItems;
    Support::TShownWindow mShown{Toolkits::EWindowKind::ComboBox};
    QComboBox* mCombo = nullptr;
};

TEST_F(QtComboTest, ShowsTheFieldThatTheControlDraws)
{
    EXPECT_EQ(FieldPixel(), Bars::Field);
    mItems.areDrawn = false;
    EXPECT_NE(FieldPixel(), Bars::Field);
}

TEST_F(QtComboTest, ShowsTheRowsThatTheControlDrawsAsHighAsItSays)
{
    mCombo->showPopup();
    Settle();
    QAbstractItemView& view = *mCombo->view();
    for (int row = 0; row < 3; ++row) {
        SCOPED_TRACE(row);
        const QRect rect = view.visualRect(mCombo->model()->index(row, 0));
        EXPECT_EQ(rect.height(), Bars::Heights[row]);
        EXPECT_EQ(PixelAt(*view.viewport(), rect.center()), Bars::Color(row, row == 1));
    }
    mCombo->hidePopup();
    EXPECT_EQ(mShown.log.Take(), "open closed ");
}

/// What is at its end, or raises, while it is drawn.
TEST_F(QtComboTest, BearsWhatDrawingDoes)
{
    mCombo->showPopup();
    Settle();
    int raised = 0;
    mItems.drawing = [&raised] {
        ++raised;
        throw std::runtime_error("drawing failed");
    };
    mCombo->view()->viewport()->grab();
    EXPECT_EQ(raised, 3);
    EXPECT_TRUE(mToolkit.TakeShown().empty()) << "it isn't over yet";
    while (Toolkits::CurrentToolkit().ProcessMessage()) {
    }
    EXPECT_EQ(mToolkit.TakeShown().size(), 3U);
    mItems.drawing = [this] { mShown.window.reset(); };
    mCombo->view()->viewport()->grab();
    EXPECT_EQ(mShown.window, nullptr);
}

} // namespace
