// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/pictures/Comctrls_Animate.h"

#include "platform/host/Host_Path.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/toolkit/PaintDevice.h"
#include "platform/visual/Forms.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace
{

using Comctrls::TAnimate;
using System::TObject;
using System::UnicodeString;

std::string Number(unsigned value, int size)
{
    std::string bytes;
    for (int i = 0; i < size; ++i) {
        bytes += static_cast<char>(value >> (8 * i));
    }
    return bytes;
}

std::string Chunk(const std::string& code, const std::string& content)
{
    return code + Number(static_cast<unsigned>(content.size()), 4) + content +
           (content.size() % 2 == 0 ? "" : std::string(1, '\0'));
}

/// The head of a bitmap.
std::string Format(int width, int height, unsigned bits, unsigned code)
{
    return Number(40, 4) + Number(static_cast<unsigned>(width), 4) +
           Number(static_cast<unsigned>(height), 4) + Number(1, 2) + Number(bits, 2) + Number(code, 4) +
           std::string(20, '\0');
}

/// An animation with 50 milliseconds from frame to frame.
std::string Animation(const std::string& format, const std::vector<std::string>& frames)
{
    std::string movie = "movi";
    for (const std::string& frame : frames) {
        movie += Chunk("00dc", frame);
    }
    const std::string heads =
        "hdrl" + Chunk("avih", Number(50'000, 4) + std::string(52, '\0')) +
        Chunk("LIST", "strl" + Chunk("strh", "vids" + std::string(52, '\0')) + Chunk("strf", format));
    return Chunk("RIFF", "AVI " + Chunk("LIST", heads) + Chunk("LIST", movie));
}

/// Two pixels wide and high, in run lengths with red as colour 1 and blue as colour 2.
std::string RunAnimation()
{
    const std::string palette = Number(0, 4) + Number(0xFF0000, 4) + Number(0x0000FF, 4);
    using namespace std::string_literals;
    return Animation(Format(2, 2, 8, 1) + palette,
                     {"\2\1\0\0\2\1\0\1"s,              // all red
                      "\0\2\1\1\1\2\0\1"s,              // the upper right one blue
                      "\0\3\2\1\2\0\0\0\0\1"s + "\7"}); // more of the lowest row than there is room for
}

class AnimateTest : public testing::Test
{
protected:
    AnimateTest()
    {
        mToolkit.UseVirtualClock();
        mAnimate.setParent(&mForm);
        mForm.Show();
        mAnimate.OnOpen = [this](TObject*) { mLog += u"open "; };
        mAnimate.OnClose = [this](TObject*) { mLog += u"close "; };
        mAnimate.OnStart = [this](TObject*) { mLog += u"start "; };
        mAnimate.OnStop = [this](TObject*) { mLog += u"stop "; };
    }

    UnicodeString File(const std::string& bytes)
    {
        const auto path = mFolder.Path() / (std::to_string(++mFiles) + ".avi");
        std::ofstream(path, std::ios::binary) << bytes;
        return Sysutils::FromHostPath(path.string());
    }
    /// The colour at a place of what the control paints.
    Graphics::TColor Painted(int x, int y)
    {
        Graphics::TBitmap bitmap(mAnimate.getWidth(), mAnimate.getHeight());
        mAnimate.PaintTo(bitmap.getCanvas()->getHandle(), 0, 0);
        return bitmap.getCanvas()->getPixels(x, y);
    }

    Support::TempFolder mFolder;
    int mFiles = 0;
    Support::ScriptedBoxes mToolkit;
    UnicodeString mLog;
    Forms::TForm mForm;
    TAnimate mAnimate{&mForm};
};

TEST_F(AnimateTest, ShowsWhatDiffersFromFrameToFrame)
{
    mAnimate.setTransparent(false);
    mAnimate.setFileName(File(RunAnimation()));
    EXPECT_EQ(mLog, u"open ");
    EXPECT_EQ(mAnimate.getFrameCount(), 3);
    EXPECT_EQ(mAnimate.getWidth(), 2);
    EXPECT_EQ(mAnimate.getHeight(), 2);
    EXPECT_EQ(Painted(1, 0), Graphics::clRed);
    mAnimate.Seek(2);
    EXPECT_EQ(Painted(1, 0), Graphics::clBlue);
    EXPECT_EQ(Painted(0, 0), Graphics::clRed);
    mAnimate.Seek(99);
    EXPECT_EQ(mAnimate.getFrame(), 3);
    EXPECT_EQ(Painted(0, 1), Graphics::clBlue);
    EXPECT_EQ(Painted(1, 1), Graphics::clRed);
    mAnimate.Reset();
    EXPECT_EQ(Painted(0, 1), Graphics::clRed);
}

TEST_F(AnimateTest, RunsByItsClockWhileItIsSeen)
{
    mAnimate.setFileName(File(RunAnimation()));
    mAnimate.setRepetitions(2);
    mAnimate.setStartFrame(2);
    mAnimate.setActive(true);
    EXPECT_EQ(mAnimate.getFrame(), 2);
    mToolkit.AdvanceClock(50);
    EXPECT_EQ(mAnimate.getFrame(), 3);
    mAnimate.setVisible(false);
    mToolkit.AdvanceClock(500);
    EXPECT_EQ(mAnimate.getFrame(), 3);
    mAnimate.setVisible(true);
    mToolkit.AdvanceClock(50);
    EXPECT_EQ(mAnimate.getFrame(), 2);
    EXPECT_TRUE(mAnimate.getActive());
    mToolkit.AdvanceClock(150);
    EXPECT_FALSE(mAnimate.getActive());
    EXPECT_EQ(mAnimate.getFrame(), 3);
    EXPECT_EQ(mLog, u"open start stop ");
    mAnimate.Play(1, 0, 0);
    mToolkit.AdvanceClock(5000);
    EXPECT_TRUE(mAnimate.getActive());
    mAnimate.setOpen(false);
    EXPECT_EQ(mLog, u"open start stop start stop close ");
    EXPECT_EQ(mAnimate.getFrameCount(), 0);
}

TEST_F(AnimateTest, LetsTheGroundThrough)
{
    mForm.setColor(Graphics::clLime);
    mAnimate.setFileName(File(RunAnimation()));
    mAnimate.Seek(2);
    EXPECT_EQ(Painted(0, 0), Graphics::clLime);
    EXPECT_EQ(Painted(1, 0), Graphics::clBlue);
}

TEST_F(AnimateTest, ShowsFramesAsTheyAre)
{
    mAnimate.setTransparent(false);
    mAnimate.setFileName(File(Animation(Format(1, 1, 24, 0), {std::string("\0\0\xFF\0", 4)})));
    EXPECT_EQ(Painted(0, 0), Graphics::clRed);
}

TEST_F(AnimateTest, RefusesWhatIsNoAnimation)
{
    const std::string good = RunAnimation();
    const std::pair<const char*, std::string> cases[] = {
        {"nothing", ""},
        {"another file", "BM" + good},
        {"no frames", Animation(Format(2, 2, 8, 1), {})},
        {"another code", Animation(Format(2, 2, 24, 0x44495658), {"x"})},
        {"no size", Animation(Format(0, 2, 8, 1), {"x"})},
        {"a huge one", Animation(Format(2147483647, -2147483647 - 1, 24, 0), {"x"})},
        {"half a format", Animation("1234", {"x"})},
    };
    for (const auto& [name, bytes] : cases) {
        SCOPED_TRACE(name);
        mAnimate.setFileName(File(bytes));
        EXPECT_FALSE(mAnimate.getOpen());
        EXPECT_THROW(mAnimate.setOpen(true), Graphics::EInvalidGraphic);
        EXPECT_THROW(mAnimate.setActive(true), Graphics::EInvalidGraphic);
        EXPECT_FALSE(mAnimate.getActive());
    }
    mAnimate.setFileName(u"\\no\\such.avi");
    EXPECT_THROW(mAnimate.setActive(true), Classes::EFOpenError);
    // Cut off anywhere it is refused or shown as far as it goes.
    for (std::size_t size = 0; size < good.size(); ++size) {
        mAnimate.setFileName(File(good.substr(0, size)));
        for (int frame = 1; frame <= mAnimate.getFrameCount(); ++frame) {
            mAnimate.Seek(frame);
            EXPECT_NO_THROW(Painted(0, 0)) << size;
        }
    }
}

TEST_F(AnimateTest, IsPaintedNoMoreOnceItIsDamaged)
{
    mAnimate.setFileName(File(Animation(Format(100, 100, 24, 0), {"short"})));
    mAnimate.setActive(true);
    EXPECT_THROW(Painted(0, 0), Graphics::EInvalidGraphic);
    EXPECT_FALSE(mAnimate.getActive());
    EXPECT_NO_THROW(Painted(0, 0));
}

TEST_F(AnimateTest, MayBeDestroyedByItsEvents)
{
    auto* const animate = new TAnimate(&mForm);
    animate->setParent(&mForm);
    animate->setFileName(File(RunAnimation()));
    animate->setRepetitions(1);
    animate->OnStop = [](TObject* sender) { delete sender; };
    animate->setActive(true);
    mToolkit.AdvanceClock(500);
    EXPECT_EQ(mForm.GetComponentCount(), 1);
}

} // namespace
