// SPDX-License-Identifier: MIT
#include "forms/progress/BTL_Progress64DLG.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/panels/Comctrls_ProgressBar.h"
#include "platform/visual/stdctrls/panels/Extctrls_Panel.h"
#include "progress/BTL_HourGlassCursor.h"
#include "support/ScriptedBoxes.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

namespace
{

using System::Int64;
using System::TObject;

/// Can be asked to close as by its frame.
class TAskedDialog : public TProgress64DLG
{
public:
    using TProgress64DLG::CloseAskedOnScreen;
};

class Progress64DLGTest : public testing::Test
{
protected:
    void Prepare(Int64 max, bool throwOnCancel = false)
    {
        mDialog.Prepare(max, throwOnCancel, true, u"Copy", u"", u"", u"", 0);
    }
    int BarPosition() const { return mDialog.fProgressBar->getPosition(); }

    Support::ScriptedBoxes mToolkit;
    TProgress64DLG mDialog;
    Testing::CFormDriver mDriver{mDialog};
};

TEST_F(Progress64DLGTest, ShowsThePanelsThatAreNeeded)
{
    struct TCase
    {
        Int64 max;
        const char16_t* text1;
        const char16_t* text2;
        const char16_t* lines;
        bool showCancel;
        const char* shown;
    };
    const TCase cases[] = {
        {10, u"a", u"b", u"c", true, "12345"}, {0, u"a", u"", u"", true, "25"},
        {10, u"", u"b", u"", false, "13"},     {0, u"", u"", u"c", false, "4"},
        {0, u"", u"", u"", false, ""},
    };
    for (const TCase& tested : cases) {
        mDialog.Prepare(tested.max, false, tested.showCancel, u"", tested.text1, tested.text2, tested.lines,
                        500);
        const std::string shown = tested.shown;
        SCOPED_TRACE(shown);
        int bottom = 0;
        int number = 0;
        for (const Extctrls::TPanel* panel :
             {mDialog.fPanel1, mDialog.fPanel2, mDialog.fPanel3, mDialog.fPanel4, mDialog.fPanel5}) {
            const bool isShown = shown.find(std::to_string(++number)) != std::string::npos;
            EXPECT_EQ(panel->getVisible(), isShown) << number;
            if (isShown) {
                EXPECT_EQ(panel->getTop(), bottom) << number;
                bottom += panel->getHeight();
            }
        }
        EXPECT_EQ(mDialog.getClientHeight(), bottom);
        EXPECT_EQ(mDialog.getWidth(), 500);
        EXPECT_EQ(mDialog.getCaption(), Forms::Application->getTitle());
        EXPECT_EQ(mDialog.getBorderIcons().Contains(Forms::biSystemMenu), tested.showCancel);
    }
    Prepare(0);
    mDialog.Start(100);
    EXPECT_TRUE(mDialog.fPanel1->getVisible());
    EXPECT_EQ(mDialog.getMax(), 100);
}

TEST_F(Progress64DLGTest, HasItsTextsAndLines)
{
    Classes::TStringList lines;
    mDialog.Prepare(1, false, true, u"Copy", u"one", u"two", &lines, 0);
    EXPECT_TRUE(mDialog.fPanel4->getVisible());
    EXPECT_EQ(mDialog.getText(1), u"one");
    EXPECT_EQ(mDialog.getText(2), u"two");
    EXPECT_EQ(mDialog.getText(3), u"");
    mDialog.SetText_VA(2, u"%i of %s", 3, u"9");
    EXPECT_EQ(mDialog.getText2(), u"3 of 9");
    mDialog.Prepare(1, false, true, u"Copy", u"", u"", static_cast<Classes::TStrings*>(nullptr), 0);
    EXPECT_FALSE(mDialog.fPanel4->getVisible());
}

TEST_F(Progress64DLGTest, StandsWhereSetTopSays)
{
    const int middle = (Forms::Screen->getWidth() - mDialog.getWidth()) / 2;
    TProgress64DLG::SetTop(30);
    Prepare(1);
    mDialog.Show();
    EXPECT_EQ(mDialog.getTop(), 30);
    EXPECT_EQ(mDialog.getLeft(), middle);
    TProgress64DLG::SetTop(0);
    mDialog.Hide();
    Prepare(1);
    mDialog.Show();
    EXPECT_EQ(mDialog.getTop(), (Forms::Screen->getHeight() - mDialog.getHeight()) / 2);
}

TEST_F(Progress64DLGTest, PutsItsButtonsIntoTheMiddleOfTheirParts)
{
    const auto middle = [](const Stdctrls::TButton* button) {
        return button->getLeft() + button->getWidth() / 2;
    };
    const int width = mDialog.fPanel5->getWidth();
    Prepare(1);
    EXPECT_EQ(middle(mDialog.fBtn_Cancel), width / 2);
    EXPECT_EQ(mDialog.fBtn_Cancel->getCaption(), u"Abbrechen");
    mDialog.setShowOk(true);
    EXPECT_EQ(middle(mDialog.fBtn_Cancel), width / 4);
    EXPECT_EQ(middle(mDialog.fBtn_Ok), width * 3 / 4);
    EXPECT_EQ(mDialog.fBtn_Ok->getCaption(), u"Beenden");
}

TEST_F(Progress64DLGTest, ScalesWhatTheBarCantHold)
{
    constexpr Int64 half = 2147483648;
    Prepare(2 * half);
    mDialog.setPosition(half);
    EXPECT_NEAR(BarPosition(), 1073741824, 2'000'000);
    mDialog.setPosition(3 * half);
    EXPECT_EQ(BarPosition(), 2147483647);
    Prepare(std::numeric_limits<Int64>::max());
    mDialog.setPosition(std::numeric_limits<Int64>::max());
    EXPECT_NEAR(BarPosition(), 2147483647, 10'000'000);
    Prepare(2147483647);
    mDialog.setPosition(5);
    EXPECT_EQ(BarPosition(), 5);
}

TEST_F(Progress64DLGTest, ThrowsOnCancelOnlyIfItWasToldTo)
{
    Prepare(10);
    mDialog.Start(0);
    mDriver.Click(u"fBtn_Cancel");
    EXPECT_NO_THROW(mDialog.setPosition(1));
    EXPECT_TRUE(mDialog.getUserCancel());
    mDialog.Start(0);
    EXPECT_FALSE(mDialog.getUserCancel());

    Prepare(10, true);
    mDialog.Start(0);
    int cancels = 0;
    mDialog.OnCancel = [&](TObject*) { ++cancels; };
    mDriver.ClickSoon(u"fBtn_Cancel");
    try {
        mDialog.setPosition(1);
        ADD_FAILURE() << "nothing was thrown";
    } catch (EProgressException thrown) {
        EXPECT_EQ(thrown, 0);
    }
    mDialog.UserCancelClick();
    EXPECT_EQ(cancels, 2);
    mDialog.setUserCancel(false);
    mDialog.Close();
    EXPECT_TRUE(mDialog.getUserCancel());
}

TEST_F(Progress64DLGTest, IsClosedByItsFrameOnlyWithACancelButton)
{
    TAskedDialog dialog;
    for (const bool showCancel : {false, true}) {
        SCOPED_TRACE(showCancel);
        dialog.Prepare(10, false, showCancel, u"", u"", u"", u"", 0);
        dialog.Start(0);
        dialog.CloseAskedOnScreen();
        EXPECT_EQ(dialog.getUserCancel(), showCancel);
        EXPECT_NE(dialog.getVisible(), showCancel);
    }
}

TEST_F(Progress64DLGTest, AnswersKeysByTheButtonsThatAreShown)
{
    for (const bool showCancel : {false, true}) {
        SCOPED_TRACE(showCancel);
        mDialog.Prepare(10, false, showCancel, u"", u"", u"", u"", 0);
        mDialog.Start(0);
        mDriver.Press(VK_ESCAPE);
        EXPECT_EQ(mDialog.getUserCancel(), showCancel);
    }
    int oks = 0;
    mDialog.OnOk = [&](TObject*) { ++oks; };
    mDialog.OnCancel = [](TObject*) { FAIL(); };
    mDialog.Prepare(10, false, false, u"", u"", u"", u"", 0);
    mDialog.setShowOk(true);
    mDialog.Start(0);
    mDriver.Press(VK_RETURN);
    EXPECT_EQ(oks, 1);
    EXPECT_TRUE(mDialog.getUserCancel());
}

TEST_F(Progress64DLGTest, CountsStepsOfFastLoops)
{
    Prepare(500);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(mDialog.IncPositionModulo(100));
    }
    EXPECT_EQ(BarPosition(), 3);
    Prepare(10000);
    int answers = 0;
    for (int i = 1; i <= 300; ++i) {
        const bool isMultiple = mDialog.IncPositionModulo(100);
        EXPECT_EQ(isMultiple, i % 100 == 0) << i;
        answers += isMultiple ? 1 : 0;
    }
    EXPECT_EQ(answers, 3);
    EXPECT_EQ(mDialog.getProgressPosition(), 300);
    EXPECT_TRUE(mDialog.IncPositionModulo(0));
}

TEST_F(Progress64DLGTest, StaysWithinItsNumbers)
{
    using TLimits = std::numeric_limits<Int64>;
    Prepare(TLimits::max());
    mDialog.setPosition(TLimits::max());
    mDialog.IncPosition(3);
    mDialog.IncPositionModulo(10);
    EXPECT_EQ(mDialog.getProgressPosition(), TLimits::max());
    mDialog.setPosition(TLimits::min());
    mDialog.IncPosition(-3);
    EXPECT_EQ(mDialog.getProgressPosition(), TLimits::min());
    mDialog.setMax(TLimits::min());
    EXPECT_EQ(BarPosition(), 0);
}

/// Also where it is drawn, block by block.
TEST_F(Progress64DLGTest, BearsAnySize)
{
    for (const int size : {-5, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        mDialog.Prepare(10, false, true, u"", u"one", u"two", u"lines", size);
        mDialog.setLinesHeight(size);
        mDialog.setShowOk(true);
        mDialog.Start(0);
        mDialog.setPosition(10);
        mDialog.Stop();
        EXPECT_GE(mDialog.getWidth(), 0);
    }
}

TEST_F(Progress64DLGTest, FitsItsPartsToAWidthThatIsSetLater)
{
    Prepare(10);
    mDialog.Start(0);
    mDialog.setWidth(700);
    EXPECT_EQ(mDialog.fPanel1->getWidth(), mDialog.getClientWidth());
    const Stdctrls::TButton& button = *mDialog.fBtn_Cancel;
    EXPECT_EQ(button.getLeft() + button.getWidth() / 2, mDialog.getClientWidth() / 2);
}

TEST_F(Progress64DLGTest, PassesOverACancelOfTheWorkBefore)
{
    Prepare(10);
    mDialog.Start(0);
    mDriver.ClickSoon(u"fBtn_Cancel");
    EXPECT_NO_THROW(Prepare(10, true));
    EXPECT_FALSE(mDialog.getUserCancel());
    mDriver.Click(u"fBtn_Cancel");
    EXPECT_THROW(mDialog.setPosition(1), EProgressException);
}

TEST_F(Progress64DLGTest, IsHiddenByStopAlsoIfAHandlerRaises)
{
    Prepare(10);
    mDialog.Start(0);
    Toolkits::CurrentToolkit().Post([] { throw Sysutils::Exception(u"no"); });
    EXPECT_THROW(mDialog.Stop(), Sysutils::Exception);
    EXPECT_FALSE(mDialog.getVisible());
}

TEST_F(Progress64DLGTest, CancelMayTakeItselfAway)
{
    Prepare(10);
    mDialog.Start(0);
    mDialog.OnCancel = [&](TObject*) { mDialog.setShowCancel(false); };
    mDriver.Click(u"fBtn_Cancel");
    EXPECT_FALSE(mDialog.fPanel5->getVisible());
    EXPECT_TRUE(mDialog.getVisible());
    mDialog.Stop();
    const BTL::CHourGlassCursor busy(true);
    EXPECT_EQ(Forms::Screen->getCursor(), Controls::crHourGlass);
}

TEST_F(Progress64DLGTest, TellsTheEndAtEachChange)
{
    int ends = 0;
    Prepare(3);
    mDialog.OnEndPosition = [&](TObject*) { ++ends; };
    mDialog.setPosition(2);
    EXPECT_EQ(ends, 0);
    mDialog.setPosition(3);
    mDialog.setPosition(7);
    EXPECT_EQ(ends, 2);
    mDialog.IncPosition(1);
    EXPECT_EQ(ends, 4);
    EXPECT_EQ(BarPosition(), 3);
}

TEST_F(Progress64DLGTest, SwitchesTheHourglassOffWhileItIsShown)
{
    Prepare(3);
    mDialog.Start(0);
    {
        const BTL::CHourGlassCursor busy(true);
        EXPECT_EQ(Forms::Screen->getCursor(), Controls::crDefault);
    }
    mDialog.Stop();
    EXPECT_FALSE(mDialog.getVisible());
    const BTL::CHourGlassCursor busy(true);
    EXPECT_EQ(Forms::Screen->getCursor(), Controls::crHourGlass);
}

TEST_F(Progress64DLGTest, BearsManyEventsThatReportProgressAndStillAnswersCancel)
{
    constexpr int count = 10'000;
    Prepare(count);
    mDialog.Start(0);
    int depth = 0;
    int deepest = 0;
    int handled = 0;
    for (int i = 0; i < count; ++i) {
        Toolkits::CurrentToolkit().Post([&] {
            ++handled;
            deepest = std::max(deepest, ++depth);
            if (deepest == depth && depth >= 64 && !mDialog.getUserCancel()) {
                mDriver.ClickSoon(u"fBtn_Cancel");
            }
            mDialog.IncPosition(1);
            if (depth >= 64) {
                EXPECT_TRUE(mDialog.getUserCancel());
            }
            --depth;
        });
    }
    mDialog.setPosition(0);
    Forms::Application->ProcessMessages();
    EXPECT_EQ(handled, count);
    EXPECT_LE(deepest, 66);
    EXPECT_TRUE(mDialog.getUserCancel());
}

TEST_F(Progress64DLGTest, MayBeDestroyedByItsOwnHandlers)
{
    const auto destroyed = [](void (*work)(TProgress64DLG&)) {
        auto* const dialog = new TProgress64DLG(nullptr);
        const Classes::TComponentWatch watch(dialog);
        dialog->Prepare(100, true, true, u"", u"", u"", u"", 0);
        dialog->Start(0);
        Toolkits::CurrentToolkit().Post([dialog] { delete dialog; });
        work(*dialog);
        EXPECT_FALSE(watch.IsAlive());
    };
    destroyed([](TProgress64DLG& dialog) { dialog.setPosition(1); });
    destroyed([](TProgress64DLG& dialog) { dialog.IncPositionExt(1, 1, u"x"); });
    destroyed([](TProgress64DLG& dialog) { dialog.setText1(u"x"); });
    destroyed([](TProgress64DLG& dialog) { dialog.Stop(); });
    destroyed([](TProgress64DLG& dialog) { dialog.Start(7); });
    destroyed([](TProgress64DLG& dialog) { dialog.Prepare(1, true, true, u"", u"", u"", u"", 0); });
}

} // namespace
