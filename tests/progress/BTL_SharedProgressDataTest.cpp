// SPDX-License-Identifier: MIT
#include "progress/BTL_SharedProgressData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <functional>

namespace
{

using BTL::CSharedProgressInfoData;
using System::UnicodeString;
using System::WideChar;

constexpr std::size_t Size = 3920;
using Bytes = std::array<unsigned char, Size>;

Bytes BytesOf(const CSharedProgressInfoData& data)
{
    Bytes bytes;
    std::memcpy(bytes.data(), &data, Size);
    return bytes;
}

template <class T>
T At(const Bytes& bytes, std::size_t offset)
{
    T value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

UnicodeString Repeated(WideChar character, int count)
{
    return UnicodeString::StringOfChar(character, count);
}

struct Field
{
    const char* name;
    std::size_t offset;
    int room;
    UnicodeString (CSharedProgressInfoData::*get)() const;
    void (CSharedProgressInfoData::*set)(UnicodeString);
};

const Field Fields[] = {
    {"caption", 32, 100, &CSharedProgressInfoData::getCaption, &CSharedProgressInfoData::setCaption},
    {"text 1", 234, 100, &CSharedProgressInfoData::getText1, &CSharedProgressInfoData::setText1},
    {"text 2", 436, 100, &CSharedProgressInfoData::getText2, &CSharedProgressInfoData::setText2},
    {"lines", 638, 100, &CSharedProgressInfoData::getTextLines, &CSharedProgressInfoData::setTextLines},
    {"message", 840, 512, &CSharedProgressInfoData::getMessage, &CSharedProgressInfoData::setMessage},
    {"command line", 1866, 1024, &CSharedProgressInfoData::getCommandLine,
     &CSharedProgressInfoData::setCommandLine},
};

TEST(SharedProgressDataTest, HasItsNumbersWhereAllProgramsLook)
{
    CSharedProgressInfoData data;
    EXPECT_EQ(BytesOf(data), Bytes{});
    data.setProcessId(0x89ABCDEF);
    data.setStartTime(45000.25);
    data.setMax(-5'000'000'000);
    data.setPosition(7'000'000'000);
    data.IncPosition();
    const Bytes bytes = BytesOf(data);
    EXPECT_EQ(At<std::uint32_t>(bytes, 0), 0x89ABCDEF);
    EXPECT_EQ(At<std::uint32_t>(bytes, 4), 0U);
    EXPECT_EQ(At<double>(bytes, 8), 45000.25);
    EXPECT_EQ(At<std::int64_t>(bytes, 16), -5'000'000'000);
    EXPECT_EQ(At<std::int64_t>(bytes, 24), 7'000'000'001);
    EXPECT_TRUE(std::all_of(bytes.begin() + 32, bytes.end(), [](unsigned char byte) { return byte == 0; }));
    EXPECT_EQ(data.getProcessId(), 0x89ABCDEF);
    EXPECT_EQ(data.getStartTime(), 45000.25);

    const CSharedProgressInfoData copy(data);
    EXPECT_EQ(BytesOf(copy), bytes);
    data.Clear();
    EXPECT_EQ(BytesOf(data), Bytes{});
    data = copy;
    EXPECT_EQ(BytesOf(data), bytes);
}

TEST(SharedProgressDataTest, CutsTextsToTheirRoom)
{
    for (const Field& field : Fields) {
        SCOPED_TRACE(field.name);
        const int room = field.room;
        const std::pair<UnicodeString, UnicodeString> rows[] = {
            {Repeated(u'x', 10'000), Repeated(u'x', room)},
            {Repeated(u'ж', room + 1), Repeated(u'ж', room)},
            {Repeated(u'y', room), Repeated(u'y', room)},
            // Surrogates without their other half, and a pair that is cut.
            {Repeated(u'\xD83D', 3) + u"a\xDE00", Repeated(u'\xD83D', 3) + u"a\xDE00"},
            {Repeated(u'z', room - 1) + u"\U0001F600", Repeated(u'z', room - 1) + u'\xD83D'},
            {UnicodeString(u"before\0behind", 13), u"before"},
            {u"", u""},
        };
        for (const auto& [text, kept] : rows) {
            CSharedProgressInfoData data;
            // What stood there must be gone.
            (data.*field.set)(Repeated(u'#', room));
            (data.*field.set)(text);
            EXPECT_EQ((data.*field.get)(), kept);
            Bytes expected{};
            std::memcpy(expected.data() + field.offset, kept.c_str(),
                        static_cast<std::size_t>(kept.Length()) * sizeof(WideChar));
            EXPECT_EQ(BytesOf(data), expected);
        }
    }
}

TEST(SharedProgressDataTest, ReadsNothingBehindATextWithoutAnEnd)
{
    CSharedProgressInfoData data;
    std::memset(static_cast<void*>(&data), 'A', sizeof data);
    for (const Field& field : Fields) {
        SCOPED_TRACE(field.name);
        EXPECT_EQ((data.*field.get)(), Repeated(u'\x4141', field.room));
    }
}

} // namespace
