// SPDX-License-Identifier: MIT
#include "config/internal/BTL_INI_PackedTexts.h"

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

using BTL::Detail::CPackedTexts;

namespace
{

/// Texts with their slices, as a section has them, beside what they must be.
class COwner
{
public:
    void Add(const std::u16string& text)
    {
        mSlices.push_back(mTexts.Add(text));
        mExpected.push_back(text);
    }
    void Replace(std::size_t number, const std::u16string& text)
    {
        mTexts.Replace(mSlices[number], text);
        mExpected[number] = text;
        Pack();
    }
    void Remove(std::size_t number)
    {
        mTexts.Remove(mSlices[number]);
        const auto offset = static_cast<std::ptrdiff_t>(number);
        mSlices.erase(mSlices.begin() + offset);
        mExpected.erase(mExpected.begin() + offset);
        Pack();
    }
    std::size_t getCount() const { return mSlices.size(); }
    std::size_t getSize() const { return mTexts.size(); }
    void Check() const
    {
        std::size_t inUse = 0;
        for (std::size_t i = 0; i < mSlices.size(); ++i) {
            ASSERT_EQ(mTexts.Of(mSlices[i]), mExpected[i]) << i;
            inUse += mExpected[i].size();
        }
        ASSERT_LE(mTexts.size(), 2 * inUse + 1024);
    }

private:
    void Pack()
    {
        if (mTexts.MustPack()) {
            mTexts.Pack([this](auto move) {
                for (CPackedTexts::TSlice& slice : mSlices) {
                    move(slice);
                }
            });
        }
    }

    CPackedTexts mTexts;
    std::vector<CPackedTexts::TSlice> mSlices;
    std::vector<std::u16string> mExpected;
};

TEST(PackedTextsTest, HoldsWhatWasAddedAndReplaced)
{
    std::mt19937 random(1);
    const auto below = [&](std::size_t end) { return random() % end; };
    const auto anyText = [&] { return std::u16string(below(40), static_cast<char16_t>(u'a' + below(26))); };
    COwner owner;
    for (int i = 0; i < 20'000; ++i) {
        const std::size_t count = owner.getCount();
        const std::size_t kind = count == 0 ? 0 : below(count > 200 ? 8 : 4);
        if (kind == 0) {
            owner.Add(anyText());
        } else if (kind < 4) {
            owner.Replace(below(count), anyText());
        } else {
            owner.Remove(below(count));
        }
        if (i % 100 == 0) {
            owner.Check();
        }
    }
    owner.Check();
}

TEST(PackedTextsTest, TakesNoMoreRoomThanTheTextsInUseNeed)
{
    const std::u16string longText(1000, u'x');
    COwner owner;
    owner.Add(u"kept");
    owner.Add(u"");
    for (int i = 0; i < 1000; ++i) {
        owner.Replace(1, i % 2 == 0 ? longText : u"short");
        owner.Check();
        owner.Add(longText);
        owner.Remove(2);
        owner.Check();
    }
    owner.Remove(1);
    owner.Remove(0);
    EXPECT_LE(owner.getSize(), 1024U);
}

} // namespace
