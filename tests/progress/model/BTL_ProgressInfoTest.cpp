// SPDX-License-Identifier: MIT
#include "progress/model/BTL_ProgressInfo.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace
{

using System::Int64;
using System::UnicodeString;

static_assert(std::is_abstract_v<BTL::AProgressInfo>);
static_assert(sizeof(BTL::AProgressInfo) == sizeof(void*));

/// Overrides nothing.
class Forgetful : public BTL::AProgressInfo
{
};

/// Writes down what is set, and keeps the numbers and the two texts.
class Recorder : public BTL::AProgressInfo
{
public:
    Int64 getMax() const override { return mMax; }
    void setMax(Int64 max) override { Note("max " + std::to_string(mMax = max)); }
    Int64 getPosition() const override { return mPosition; }
    void setPosition(Int64 position) override { Note("position " + std::to_string(mPosition = position)); }
    void setCaption(UnicodeString caption) override { Note("caption " + System::ToUtf8(caption)); }
    UnicodeString getText1() const override { return mText1; }
    void setText1(UnicodeString text) override { Note("text1 " + System::ToUtf8(mText1 = text)); }
    UnicodeString getText2() const override { return mText2; }
    void setText2(UnicodeString text) override { Note("text2 " + System::ToUtf8(mText2 = text)); }
    void setTextLines(UnicodeString lines) override { Note("lines " + System::ToUtf8(lines)); }
    void setMessage(UnicodeString message) override { Note("message " + System::ToUtf8(message)); }
    void Stop() override { Note("stop"); }

    std::vector<std::string> Take() { return std::exchange(mNotes, {}); }

private:
    void Note(const std::string& text) { mNotes.push_back(text); }

    Int64 mMax = 0;
    Int64 mPosition = 0;
    UnicodeString mText1;
    UnicodeString mText2;
    std::vector<std::string> mNotes;
};

enum class EOperation
{
    Start,
    Stop
};

/// As a recorder, but one operation raises behind what it does.
class Raiser : public Recorder
{
public:
    explicit Raiser(EOperation raising) : mRaising(raising) {}

    void Start(Int64 max) override
    {
        Recorder::Start(max);
        Raise(EOperation::Start);
    }
    void Stop() override
    {
        Recorder::Stop();
        Raise(EOperation::Stop);
    }

private:
    void Raise(EOperation operation) const
    {
        if (operation == mRaising) {
            throw std::runtime_error("no");
        }
    }

    EOperation mRaising;
};

using Notes = std::vector<std::string>;

TEST(ProgressInfoTest, KeepsNothingByItself)
{
    Forgetful info;
    info.Prepare(10, true, true, u"c", u"1", u"2", u"l", 100);
    info.Start(5);
    info.IncPosition();
    info.SetProgressEndPosition();
    info.Stop();
    EXPECT_EQ(info.getMax(), 0);
    EXPECT_EQ(info.getPosition(), 0);
    for (const UnicodeString& text :
         {info.getCaption(), info.getText1(), info.getText2(), info.getTextLines(), info.getMessage(),
          info.getText(1), info.getText(2)}) {
        EXPECT_EQ(text, u"");
    }
    EXPECT_FALSE(info.getUserCancel());
}

TEST(ProgressInfoTest, SetsAllInItsOrderWhenPrepared)
{
    Recorder info;
    info.Prepare(10, false, false, u"c", u"1", u"2", u"l", 0);
    const Notes all = {"max 10", "position 0", "caption c", "text1 1", "text2 2", "lines l", "message "};
    EXPECT_EQ(info.Take(), all);

    Classes::TStringList lines;
    lines.Add(u"a");
    lines.Add(u"b");
    info.Prepare(3, false, false, u"", u"", u"", &lines, 0);
    EXPECT_EQ(info.Take()[5], "lines " + System::ToUtf8(lines.getText()));
    info.Prepare(3, false, false, u"", u"", u"", nullptr, 0);
    EXPECT_EQ(info.Take()[5], "lines ");
}

TEST(ProgressInfoTest, CountsThroughItsPosition)
{
    Recorder info;
    info.Start(7);
    info.IncPosition();
    info.SetProgressEndPosition();
    info.IncPosition();
    EXPECT_EQ(info.Take(), (Notes{"position 0", "max 7", "position 1", "position 7", "position 8"}));
    info.Start(0);
    EXPECT_EQ(info.Take(), Notes{"position 0"}) << "the maximum stays";
    EXPECT_EQ(info.getMax(), 7);
}

TEST(ProgressInfoTest, HasTwoTextsByNumber)
{
    Recorder info;
    for (const int index : {0, 1, 2, 3, -1}) {
        info.setText(index, UnicodeString(index));
    }
    EXPECT_EQ(info.Take(), (Notes{"text1 1", "text2 2"}));
    EXPECT_EQ(info.getText(1), u"1");
    EXPECT_EQ(info.getText(2), u"2");
    for (const int index : {0, 3, -1}) {
        EXPECT_EQ(info.getText(index), u"");
    }
}

TEST(ProgressInfoTest, FormatsTexts)
{
    Recorder info;
    info.SetText_VA(1, u"%d → %s", 5, u"ж");
    EXPECT_EQ(info.getText1(), u"5 → ж");
    info.SetText_VA(2, "%d %s", 6, "b");
    EXPECT_EQ(info.getText2(), u"6 b");
    info.SetText_VA(1, "%s", u"ж");
    EXPECT_EQ(info.getText1(), u"?") << "a narrow format makes a narrow text";
    info.SetText_V(2, u"%s|%03d", {u"c", 7});
    EXPECT_EQ(info.getText2(), u"c|007");
    info.SetText_V(1, "%x", {255});
    EXPECT_EQ(info.getText1(), u"ff");
    info.SetText_VA(3, u"%d", 1);
    EXPECT_EQ(info.getText1() + info.getText2(), u"ffc|007");
}

TEST(ProgressInfoTest, IsInvisibleAsSet)
{
    EXPECT_EQ(BTL::AProgressInfo::Get(false), nullptr);
    Forgetful info;
    BTL::AProgressInfo::SetInvisibleProgressInfo(&info);
    EXPECT_EQ(BTL::AProgressInfo::Get(false), &info);
    EXPECT_EQ(BTL::AProgressInfo::InvisibleProgressInfo, &info);
    BTL::AProgressInfo::SetInvisibleProgressInfo(nullptr);
    EXPECT_EQ(BTL::AProgressInfo::Get(false), nullptr);
}

TEST(ProgressInfoTest, TakesItsDialogFromWhoHasOne)
{
    static Forgetful dialog;
    const auto former =
        std::exchange(BTL::GetVisibleProgressInfo, []() -> BTL::AProgressInfo* { return &dialog; });
    EXPECT_EQ(BTL::AProgressInfo::Get(true), &dialog);
    BTL::GetVisibleProgressInfo = former;
}

TEST(ProgressInfoStarterTest, StartsAndStops)
{
    Recorder info;
    try {
        const BTL::CProgressInfoStarter started(&info, 4);
        info.IncPosition();
        throw std::runtime_error("cancelled");
    } catch (const std::runtime_error&) {
        EXPECT_EQ(info.Take(), (Notes{"position 0", "max 4", "position 1", "stop"}));
    }
    const BTL::CProgressInfoStarter nobody(nullptr, 10);
}

TEST(ProgressInfoStarterTest, StopsWhatRaisedAsItStarted)
{
    Raiser info(EOperation::Start);
    EXPECT_THROW(const BTL::CProgressInfoStarter started(&info, 4), std::runtime_error);
    EXPECT_EQ(info.Take(), (Notes{"position 0", "max 4", "stop"}));
}

TEST(ProgressInfoStarterTest, WhatItsEndRaisesGoesToTheApplication)
{
    Support::ScriptedBoxes boxes{IDOK};
    Raiser info(EOperation::Stop);
    {
        const BTL::CProgressInfoStarter started(&info, 4);
    }
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].box.text, u"no");
}

TEST(ProgressInfoTest, StaysWithinItsNumbers)
{
    Recorder info;
    info.setPosition(std::numeric_limits<Int64>::max());
    info.IncPosition();
    EXPECT_EQ(info.getPosition(), std::numeric_limits<Int64>::max());
}

} // namespace
