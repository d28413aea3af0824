// SPDX-License-Identifier: MIT
#include "properties/BTL_ObjectLinks.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <functional>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <random>
#include <set>
#include <vector>

using BTL::AObjectLink;
using BTL::CObjectLinks;

namespace
{

class Message : public BTL::ANotifyMessage
{
};

TEST(ObjectLinksTest, TellsWhoIsSubscribed)
{
    CObjectLinks links;
    AObjectLink a;
    const AObjectLink idle;
    Message message;
    int data = 0;
    int notified = 0;
    int changed = 0;
    a.setOnNotify([&](BTL::ANotifyMessage* received) {
        EXPECT_EQ(received, &message);
        ++notified;
    });
    a.setOnChanged([&](void* received) {
        EXPECT_EQ(received, &data);
        ++changed;
    });
    AObjectLink silent;
    silent.Subscribe(&links);
    const auto tell = [&] {
        notified = changed = 0;
        links.Notify(&message);
        links.Changed(&data);
        EXPECT_EQ(notified, changed);
        return notified;
    };
    EXPECT_EQ(tell(), 0);
    a.Subscribe(&links);
    EXPECT_EQ(tell(), 1);
    a.Subscribe(&links);
    links.Add(&a);
    EXPECT_EQ(tell(), 1) << "subscribed again";
    EXPECT_EQ(a.getLinks(), &links);
    {
        CObjectLinks others;
        others.Add(&a);
        EXPECT_EQ(tell(), 0) << "subscribed elsewhere";
        links.Remove(&a);
        EXPECT_EQ(a.getLinks(), &others);
    }
    EXPECT_EQ(a.getLinks(), nullptr) << "the list went first";
    a.Subscribe(&links);
    a.Subscribe(nullptr);
    EXPECT_EQ(tell(), 0);
    {
        AObjectLink brief;
        brief.setOnNotify([&](BTL::ANotifyMessage*) { ++notified; });
        brief.Subscribe(&links);
    }
    EXPECT_EQ(tell(), 0) << "the link went first";
}

TEST(ObjectLinksTest, CanBeSilenced)
{
    class Switched : public CObjectLinks
    {
    public:
        using CObjectLinks::setEnabled;
    };
    Switched links;
    AObjectLink link;
    int told = 0;
    link.setOnChanged([&](void*) { ++told; });
    link.setOnNotify([&](BTL::ANotifyMessage*) { ++told; });
    link.Subscribe(&links);
    Message message;
    const auto tell = [&] {
        links.Changed(nullptr);
        links.Notify(&message);
        return told;
    };
    links.setEnabled(false);
    EXPECT_EQ(tell(), 0);
    links.setEnabled(true);
    EXPECT_EQ(tell(), 2);
}

/// Each of the links does the same to the others while it is told something.
TEST(ObjectLinksTest, LinksMayComeAndGoWhileTheyAreTold)
{
    std::optional<CObjectLinks> links(std::in_place);
    std::array<std::optional<AObjectLink>, 4> subscribers;
    std::array<AObjectLink, 4> late;
    int told = 0;
    const auto subscribe = [&](const std::function<void(std::size_t)>& action) {
        for (std::size_t i = 0; i < subscribers.size(); ++i) {
            subscribers[i].emplace();
            subscribers[i]->setOnChanged([&told, action, i](void*) {
                ++told;
                action(i);
            });
            subscribers[i]->Subscribe(&*links);
        }
        told = 0;
        links->Changed(nullptr);
    };

    subscribe([&](std::size_t i) { subscribers[i]->Subscribe(nullptr); });
    EXPECT_EQ(told, 4) << "each unsubscribed itself";
    subscribe([&](std::size_t i) { subscribers[i].reset(); });
    EXPECT_EQ(told, 4) << "each destroyed itself";
    subscribe([&](std::size_t i) {
        for (std::size_t other = 0; other < subscribers.size(); ++other) {
            if (other != i) {
                subscribers[other].reset();
            }
        }
    });
    EXPECT_EQ(told, 1) << "the first destroyed the others";
    for (AObjectLink& link : late) {
        link.setOnChanged([&](void*) { ++told; });
    }
    subscribe([&](std::size_t i) { late[i].Subscribe(&*links); });
    EXPECT_EQ(told, 4) << "newcomers wait";
    links->Changed(nullptr);
    EXPECT_EQ(told, 12);
    for (AObjectLink& link : late) {
        link.Subscribe(nullptr);
    }
    subscribe([&](std::size_t) { links.reset(); });
    EXPECT_EQ(told, 1) << "the first destroyed the list";
    EXPECT_EQ(subscribers[1]->getLinks(), nullptr);
}

TEST(ObjectLinksTest, NullIsAFault)
{
    CObjectLinks links;
    const Support::ScriptedBoxes boxes({IDYES, IDYES, IDNO, IDNO});
    EXPECT_THROW(links.Add(nullptr), UTL::XAssert);
    EXPECT_THROW(links.Remove(nullptr), UTL::XAssert);
    links.Add(nullptr);
    links.Remove(nullptr);
    links.Notify(nullptr);
}

TEST(ObjectLinksTest, TellsInTheOrderOfAddresses)
{
    constexpr int count = 50;
    CObjectLinks links;
    std::vector<AObjectLink> all(count);
    std::vector<int> told;
    const auto tell = [&] {
        told.clear();
        links.Changed(nullptr);
        return told;
    };
    std::set<int> expected;
    for (int i = 0; i < count; ++i) {
        all[static_cast<std::size_t>(i)].setOnChanged([&told, i](void*) { told.push_back(i); });
    }
    std::mt19937 random(1);
    for (int step = 0; step < 500; ++step) {
        const int i = static_cast<int>(random() % count);
        if (expected.erase(i) != 0) {
            links.Remove(&all[static_cast<std::size_t>(i)]);
        } else {
            links.Add(&all[static_cast<std::size_t>(i)]);
            expected.insert(i);
        }
        const auto order = tell();
        ASSERT_TRUE(std::ranges::equal(order, expected)) << step;
        ASSERT_EQ(tell(), order);
    }
}

} // namespace
