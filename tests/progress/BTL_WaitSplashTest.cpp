// SPDX-License-Identifier: MIT
#include "progress/BTL_WaitSplash.h"

#include "languages/BTL_I18N_Texts.h"
#include "platform/visual/Forms.h"
#include "platform/visual/graphics/Graphics_Font.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"
#include "progress/BTL_HourGlassCursor.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <optional>

namespace
{

using BTL::CWaitForDataSplash;
using BTL::CWaitForDataSplashEx;
using BTL::CWaitSplash;
using BTL::EIDS;
using System::UnicodeString;

UnicodeString TextOf(EIDS text)
{
    return BTL::Gi18n::GetString(text);
}

class WaitSplashTest : public testing::Test
{
protected:
    /// The text of the form that is on the screen; empty without one.
    static UnicodeString Shown()
    {
        const auto* const form = CWaitSplash::GetSplash();
        return form != nullptr && form->getVisible() ? form->fLabel->getCaption() : UnicodeString();
    }

    Support::ScriptedBoxes mBoxes;
};

TEST_F(WaitSplashTest, IsMadeByItsDesign)
{
    const TWaitForDataSplashDLG form;
    EXPECT_EQ(form.getBorderStyle(), Forms::bsNone);
    EXPECT_EQ(form.getPosition(), Forms::poScreenCenter);
    EXPECT_EQ(form.getClientWidth(), 400);
    EXPECT_EQ(form.getClientHeight(), 69);
    EXPECT_EQ(form.GetComponentCount(), 1);
    const Stdctrls::TLabel& label = *form.fLabel;
    EXPECT_EQ(label.getBoundsRect(), form.GetClientRect());
    EXPECT_EQ(label.getAlignment(), Classes::taCenter);
    EXPECT_EQ(label.getLayout(), Stdctrls::tlCenter);
    EXPECT_EQ(label.getColor(), Graphics::clWhite);
    EXPECT_EQ(label.getFont()->getName(), u"Arial");
    EXPECT_EQ(label.getFont()->getHeight(), -19);
    EXPECT_EQ(label.getCursor(), Controls::crHourGlass);
    EXPECT_EQ(label.getCaption(), TextOf(EIDS::WaitForReading));
    EXPECT_EQ(TWaitForDataSplashDLG(nullptr, false).fLabel->getCaption(), TextOf(EIDS::WaitForWriting));
    EXPECT_EQ(TWaitForDataSplashDLG(nullptr, u"own").fLabel->getCaption(), u"own");
}

TEST_F(WaitSplashTest, IsShownForAScope)
{
    const auto expectShown = [](const CWaitSplash&, const UnicodeString& text) { EXPECT_EQ(Shown(), text); };
    expectShown(CWaitSplash(true, true), TextOf(EIDS::WaitForReading));
    expectShown(CWaitSplash(false, true), TextOf(EIDS::WaitForWriting));
    expectShown(CWaitSplash(u"own", true), u"own");
    expectShown(CWaitForDataSplash(true), TextOf(EIDS::WaitForReading));
    EXPECT_EQ(Shown(), u"");
    expectShown(CWaitSplash(u"own", false), u"");
    expectShown(CWaitSplash(true, false), u"");
    expectShown(CWaitForDataSplash(false), u"");
}

TEST_F(WaitSplashTest, ThereIsOneAtMost)
{
    std::optional<CWaitSplash> outer(std::in_place, u"outer", true);
    {
        const CWaitSplash inner(u"inner", true);
        EXPECT_EQ(Shown(), u"outer");
    }
    EXPECT_EQ(Shown(), u"outer");
    const CWaitSplash second(u"second", true);
    outer.reset();
    EXPECT_EQ(Shown(), u"") << "the inner one has none";
    const CWaitSplash later(u"later", true);
    EXPECT_EQ(Shown(), u"later");
}

TEST_F(WaitSplashTest, NoCursorActsMeanwhile)
{
    const auto cursorInScope = [] {
        const BTL::CHourGlassCursor busy(true);
        return Forms::Screen->getCursor();
    };
    {
        const CWaitSplash splash(true, true);
        EXPECT_EQ(cursorInScope(), Controls::crDefault);
    }
    EXPECT_EQ(cursorInScope(), Controls::crHourGlass);
    {
        TWaitForDataSplashDLG form;
        form.Show();
        EXPECT_EQ(cursorInScope(), Controls::crDefault);
    }
    EXPECT_EQ(cursorInScope(), Controls::crHourGlass) << "the form was destroyed while it was shown";
}

TEST_F(WaitSplashTest, TheExtendedOneShowsTheHourglass)
{
    const auto cursor = [] { return Forms::Screen->getCursor(); };
    {
        const CWaitForDataSplashEx splash(true);
        EXPECT_EQ(cursor(), Controls::crHourGlass);
        {
            const CWaitForDataSplashEx inner(true);
            EXPECT_EQ(cursor(), Controls::crHourGlass);
        }
        EXPECT_EQ(cursor(), Controls::crHourGlass);
    }
    EXPECT_EQ(cursor(), Controls::crDefault);
    const CWaitForDataSplashEx none(false);
    EXPECT_EQ(cursor(), Controls::crDefault);
}

TEST_F(WaitSplashTest, TheFormMayGoFirst)
{
    const CWaitSplash splash(true, true);
    delete CWaitSplash::GetSplash();
    EXPECT_EQ(CWaitSplash::GetSplash(), nullptr);
}

} // namespace
