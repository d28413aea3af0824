// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_StreamLists.h"
#include "streams/BTL_STRM_OutStream.h"

#include <gtest/gtest.h>

using BTL::COutStream;

namespace
{

class Witness : public COutStream
{
public:
    explicit Witness(int& alive) : mAlive(alive) { ++mAlive; }
    ~Witness() override { --mAlive; }

private:
    int& mAlive;
};

TEST(StreamListsTest, StreamsLiveAsLongAsAListHoldsThem)
{
    int alive = 0;
    Classes::TMemoryStream memory;
    BTL::COutStreams first;
    {
        BTL::COutStreams second;
        auto* const stream = new Witness(alive);
        first.Add(stream);
        second.Add(stream);
        second.Add(nullptr);
        second.Add(&memory, BTL::ssKeep);
        *second[2] << "kept";
        const BTL::COutStreams copy(second);
        second.Clear();
        EXPECT_EQ(second.size(), 0U);
        first.Clear();
        EXPECT_EQ(alive, 1);
        first = copy;
    }
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(first.size(), 3U);
    first.Clear();
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(memory.AsView(), "kept");
}

} // namespace
