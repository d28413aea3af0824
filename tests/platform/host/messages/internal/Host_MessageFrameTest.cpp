// SPDX-License-Identifier: MIT
#include "platform/host/messages/internal/Host_MessageFrame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace
{

using Host::MessageFrame;
using Host::TFrameHead;

TFrameHead HeadOf(std::uint32_t data, std::uint32_t folder = 0, std::uint32_t token = 0)
{
    return {Host::FrameMark, WM_COPYDATA, data, 5, 0xFFFFFFFF, folder, token};
}

std::string BytesOf(const TFrameHead& head)
{
    return {reinterpret_cast<const char*>(&head), sizeof head};
}

/// Gives the bytes to the frame in pieces; false as soon as it refuses them.
bool Feed(MessageFrame& frame, std::string_view bytes, std::size_t piece)
{
    while (!bytes.empty()) {
        const std::span<char> room = frame.Room();
        const std::size_t count = std::min({piece, bytes.size(), room.size()});
        bytes.copy(room.data(), count);
        bytes.remove_prefix(count);
        if (!frame.Add(count)) {
            return false;
        }
    }
    return true;
}

TEST(MessageFrameTest, IsWholeAfterItsLastByteHoweverItComes)
{
    // An odd count, and more than the first room has.
    for (const std::size_t size : {0U, 1U, 3U, 8U, 4000U, 4056U, 4096U, 100'001U, 17'000'001U}) {
        for (const std::size_t piece : {std::size_t{1}, std::size_t{41}, std::size_t{1} << 20U}) {
            if (size / piece > 5000) {
                continue;
            }
            SCOPED_TRACE(testing::Message() << size << " bytes in pieces of " << piece);
            std::string data(size, '\0');
            std::ranges::generate(data, [n = 0]() mutable { return static_cast<char>(++n); });
            const auto head = HeadOf(static_cast<std::uint32_t>(size), 4, 3);
            const std::string bytes = BytesOf(head) + data + "/tmptok";
            MessageFrame frame;
            ASSERT_TRUE(Feed(frame, std::string_view(bytes).substr(0, bytes.size() - 1), piece));
            EXPECT_FALSE(frame.IsWhole());
            ASSERT_TRUE(Feed(frame, bytes.substr(bytes.size() - 1), piece));
            ASSERT_TRUE(frame.IsWhole());
            EXPECT_TRUE(frame.Room().empty());
            EXPECT_EQ(frame.getHead().dwData, 0xFFFFFFFF);
            EXPECT_EQ(frame.getHead().wParam, 5U);
            const System::UnicodeString units = frame.TakeUnits();
            ASSERT_EQ(units.AsView().size(), (size + 1) / 2);
            const auto* const begin = reinterpret_cast<const char*>(units.c_str());
            EXPECT_EQ(std::string(begin, size), data);
            EXPECT_EQ(begin[size] | begin[size + 1], 0) << "no zero behind the bytes";
            EXPECT_EQ(frame.GetFolder(), "/tmp");
            EXPECT_EQ(frame.GetToken(), "tok");
        }
    }
}

TEST(MessageFrameTest, RefusesWhatIsNoMessage)
{
    TFrameHead otherMark = HeadOf(2);
    otherMark.mark[0] = 'X';
    TFrameHead otherMessage = HeadOf(2);
    otherMessage.message = 75;
    const std::string cases[] = {
        BytesOf(otherMark),
        BytesOf(otherMessage),
        BytesOf(HeadOf(Host::MaxDataBytes + 1)),
        BytesOf(HeadOf(0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF)),
        BytesOf(HeadOf(2, Host::MaxFolderBytes + 1)),
        BytesOf(HeadOf(2, 0, Host::MaxFolderBytes + 1)),
        std::string(sizeof(TFrameHead), '\0'),
    };
    for (const std::string& bytes : cases) {
        SCOPED_TRACE(&bytes - cases);
        MessageFrame frame;
        EXPECT_FALSE(Feed(frame, bytes, 1000));
    }
}

TEST(MessageFrameTest, TakesNoMemoryForWhatWasOnlyAnnounced)
{
    MessageFrame frame;
    ASSERT_TRUE(Feed(frame, BytesOf(HeadOf(Host::MaxDataBytes)), 1000));
    for (int i = 0; i < 20; ++i) {
        ASSERT_LE(frame.Room().size(), 1U << 24U);
        ASSERT_TRUE(Feed(frame, std::string(1000, 'x'), 1000));
    }
    EXPECT_FALSE(frame.IsWhole());
}

} // namespace
