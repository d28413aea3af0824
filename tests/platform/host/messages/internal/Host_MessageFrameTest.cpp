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
    for (const std::size_t size : {0U, 1U, 3U, 8U, 4000U, 4056U, 4096U, 100'001U, 700'000U}) {
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
            const COPYDATASTRUCT got = frame.GetData();
            const auto* const begin = static_cast<const char*>(got.lpData);
            EXPECT_EQ(std::string(begin, got.cbData), data);
            EXPECT_EQ(begin[size] | begin[size + 1], 0) << "no zero behind the bytes";
            EXPECT_EQ(got.dwData, 0xFFFFFFFF);
            EXPECT_EQ(frame.GetWParam(), 5U);
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
        BytesOf(HeadOf(2)) + "abc",
        std::string(sizeof(TFrameHead), '\0'),
    };
    for (const std::string& bytes : cases) {
        SCOPED_TRACE(&bytes - cases);
        MessageFrame frame;
        // All at once, as from a sender that goes on behind its end.
        std::ranges::copy(bytes, frame.Room().begin());
        EXPECT_FALSE(frame.Add(bytes.size()));
    }
}

TEST(MessageFrameTest, TakesNoMemoryForWhatWasOnlyAnnounced)
{
    MessageFrame frame;
    ASSERT_TRUE(Feed(frame, BytesOf(HeadOf(Host::MaxDataBytes)), 1000));
    std::size_t got = sizeof(TFrameHead);
    for (int i = 0; i < 20; ++i) {
        const std::size_t room = frame.Room().size();
        ASSERT_LE(room, std::max<std::size_t>(got, 1U << 18U));
        std::memset(frame.Room().data(), 1, room);
        ASSERT_TRUE(frame.Add(std::min<std::size_t>(room, 1000)));
        got += std::min<std::size_t>(room, 1000);
    }
    EXPECT_FALSE(frame.IsWhole());
}

} // namespace
