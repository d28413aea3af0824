// SPDX-License-Identifier: MIT
#include "platform/host/objects/Host_Handle.h"

#include "platform/host/Host_Error.h"
#include "platform/host/objects/internal/Host_Object.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <thread>
#include <vector>

namespace
{

class CSignaled : public Host::AObject
{
public:
    unsigned long Wait(unsigned long) override { return WAIT_OBJECT_0; }
};

class CSilent : public Host::AObject
{
};

TEST(HandleTest, ClosesOnce)
{
    const auto object = std::make_shared<CSignaled>();
    const HANDLE first = Host::OpenHandle(object);
    const HANDLE second = Host::OpenHandle(object);
    EXPECT_NE(first, second);
    EXPECT_TRUE(CloseHandle(first));
    EXPECT_EQ(WaitForSingleObject(second, 0), WAIT_OBJECT_0);
    EXPECT_EQ(object.use_count(), 2);
    // The slot is used again, under another number.
    const HANDLE third = Host::OpenHandle(object);
    SetLastError(ERROR_SUCCESS);
    EXPECT_FALSE(CloseHandle(first));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_TRUE(CloseHandle(third));
    EXPECT_TRUE(CloseHandle(second));
    EXPECT_EQ(object.use_count(), 1);
}

TEST(HandleTest, RefusesWhatIsNone)
{
    const HANDLE open = Host::OpenHandle(std::make_shared<CSilent>());
    const auto value = reinterpret_cast<std::uintptr_t>(open);
    for (const std::uintptr_t bad : {std::uintptr_t{0}, value + 1, value + 4'000'000, ~std::uintptr_t{0}}) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(CloseHandle(reinterpret_cast<HANDLE>(bad))) << bad;
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
        EXPECT_EQ(WaitForSingleObject(reinterpret_cast<HANDLE>(bad), 0), WAIT_FAILED);
    }
    EXPECT_EQ(WaitForSingleObject(open, 0), WAIT_FAILED);
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(Host::ObjectOf<CSignaled>(open), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_NE(Host::ObjectOf<CSilent>(open), nullptr);
    EXPECT_TRUE(CloseHandle(open));
}

TEST(HandleTest, GivesEachThreadHandlesOfItsOwn)
{
    constexpr int count = 2000;
    std::vector<std::vector<HANDLE>> opened(4);
    {
        std::vector<std::jthread> threads;
        for (auto& handles : opened) {
            threads.emplace_back([&handles] {
                for (int i = 0; i < count; ++i) {
                    handles.push_back(Host::OpenHandle(std::make_shared<CSilent>()));
                    if (i % 2 == 0) {
                        EXPECT_TRUE(CloseHandle(handles.back()));
                        handles.pop_back();
                    }
                }
            });
        }
    }
    std::set<HANDLE> all;
    for (const auto& handles : opened) {
        all.insert(handles.begin(), handles.end());
    }
    EXPECT_EQ(all.size(), opened.size() * count / 2);
    for (const HANDLE handle : all) {
        EXPECT_TRUE(CloseHandle(handle));
    }
}

} // namespace
