// SPDX-License-Identifier: MIT
#include "foundation/UTL_List.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <ranges>

using testing::ElementsAre;
using testing::IsEmpty;
using UTL::AList;
using UTL::AListNode;

namespace
{

class Item : public AListNode
{
public:
    explicit Item(int number) : mNumber(number) { ++Alive; }
    Item(const Item& other) : AListNode(other), mNumber(other.mNumber) { ++Alive; }
    Item& operator=(const Item&) = default;
    ~Item() override { --Alive; }

    AListNode* Clone() const override { return new Item(*this); }
    int Number() const { return mNumber; }

    static inline int Alive = 0;

private:
    int mNumber;
};

/// The numbers of the items, checked from both ends.
std::vector<int> NumbersOf(const AList& list)
{
    std::vector<int> numbers;
    for (const AListNode& node : list) {
        numbers.push_back(dynamic_cast<const Item&>(node).Number());
    }
    std::vector<int> backward;
    for (const AListNode* node = list.getPrevious(); node != &list; node = node->getPrevious()) {
        backward.insert(backward.begin(), dynamic_cast<const Item&>(*node).Number());
    }
    EXPECT_EQ(numbers, backward);
    EXPECT_EQ(static_cast<std::size_t>(list.getCount()), numbers.size());
    return numbers;
}

Item* Push(AList& list, int number)
{
    auto* const item = new Item(number);
    list.PushBack(item);
    return item;
}

TEST(ListTest, KeepsItsNodesInOrderAndOwnsThem)
{
    {
        AList list;
        EXPECT_TRUE(list.begin() == list.end());
        Item* const a = Push(list, 1);
        Item* const c = Push(list, 3);
        EXPECT_EQ(list.Insert(c, new Item(2))->getNext(), c);
        list.Insert(list.end().getNode(), new Item(4));
        EXPECT_THAT(NumbersOf(list), ElementsAre(1, 2, 3, 4));
        EXPECT_EQ(a->getList(), &list);

        AList copy(list);
        EXPECT_THAT(NumbersOf(copy), ElementsAre(1, 2, 3, 4));
        EXPECT_EQ(Item::Alive, 8);
        const AList& same = copy;
        copy = same;
        EXPECT_THAT(NumbersOf(copy), ElementsAre(1, 2, 3, 4)) << "assigned to itself";

        EXPECT_EQ(list.Delete(a->getNext()), c);
        list.DoDelete(c);
        EXPECT_THAT(NumbersOf(list), ElementsAre(1, 4));
        copy = list;
        EXPECT_THAT(NumbersOf(copy), ElementsAre(1, 4));

        Push(list, 5);
        AListNode* const last = Push(list, 6);
        EXPECT_EQ(list.Delete(a->getNext(), last), last);
        EXPECT_THAT(NumbersOf(list), ElementsAre(1, 6));
        EXPECT_EQ(list.Delete(list.begin().getNode(), &list), &list);
        EXPECT_THAT(NumbersOf(list), IsEmpty());
        copy.clear();
        Push(copy, 7);
        EXPECT_THAT(NumbersOf(copy), ElementsAre(7));
    }
    EXPECT_EQ(Item::Alive, 0);
}

TEST(ListTest, ANodeMayLeaveOrDieFirst)
{
    AList list;
    Push(list, 1);
    std::unique_ptr<Item> taken(Push(list, 2));
    const Item* const doomed = Push(list, 3);
    taken->Remove();
    taken->Remove();
    EXPECT_EQ(taken->getList(), nullptr);
    EXPECT_EQ(taken->getNext(), nullptr);
    delete doomed;
    EXPECT_THAT(NumbersOf(list), ElementsAre(1));

    const Item copy(*dynamic_cast<Item*>(list.getNext()));
    EXPECT_EQ(copy.getList(), nullptr);
    *taken = copy;
    list.PushBack(taken.release());
    EXPECT_THAT(NumbersOf(list), ElementsAre(1, 1)) << "only the value was assigned";
}

TEST(ListTest, IsARangeInBothDirections)
{
    static_assert(std::ranges::bidirectional_range<AList> && std::ranges::sized_range<const AList>);
    AList list;
    EXPECT_TRUE(list.empty());
    for (const int number : {1, 2, 3}) {
        Push(list, number);
    }
    EXPECT_EQ(list.size(), 3U);
    const auto numberOf = [](const AListNode& node) { return dynamic_cast<const Item&>(node).Number(); };
    std::vector<int> backward;
    const AList& constant = list;
    std::transform(std::make_reverse_iterator(constant.end()), std::make_reverse_iterator(constant.begin()),
                   std::back_inserter(backward), numberOf);
    EXPECT_THAT(backward, ElementsAre(3, 2, 1));
    // A node may go while the list is walked over.
    for (AList::iterator at = list.begin(); at != list.end();) {
        AListNode& node = *at++;
        if (numberOf(node) == 2) {
            list.DoDelete(&node);
        }
    }
    const AList::const_iterator first = list.begin();
    EXPECT_TRUE(first == constant.begin());
    EXPECT_THAT(NumbersOf(list), ElementsAre(1, 3));
}

TEST(ListTest, MisuseIsAFaultAndChangesNothing)
{
    AList list;
    AList other;
    AList empty;
    Item* const item = Push(list, 1);
    Item* const foreign = Push(other, 2);
    Item loose(3);
    AListNode halfLinked(&list, item, nullptr);
    AListNode claimed(&list, nullptr, nullptr);
    UTL::CListEndNode stray(&list);
    const struct
    {
        const char* what;
        int line;
        std::function<void()> call;
    } cases[] = {
        {"remove from an empty list", 205, [&] { empty.Remove(foreign); }},
        {"remove the end", 206, [&] { list.Remove(&list); }},
        {"remove half a node", 208, [&] { list.Remove(&halfLinked); }},
        {"remove null", 208, [&] { list.Remove(nullptr); }},
        {"remove a foreign node", 209, [&] { list.Remove(foreign); }},
        {"insert before null", 230, [&] { list.Insert(nullptr, &loose); }},
        {"insert before a loose node", 230, [&] { list.Insert(&loose, &loose); }},
        {"insert before a foreign node", 230, [&] { list.Insert(foreign, &loose); }},
        {"insert null", 231, [&] { list.PushBack(nullptr); }},
        {"insert twice", 231, [&] { list.PushBack(item); }},
        {"insert a claimed node", 232, [&] { list.PushBack(&claimed); }},
        {"delete null", 246, [&] { list.Delete(nullptr); }},
        {"delete from null on", 246, [&] { list.Delete(nullptr, item); }},
        {"delete a loose node", 246, [&] { list.Delete(&loose); }},
        {"delete the end", 206, [&] { list.DoDelete(&list); }},
        {"delete a foreign node", 209, [&] { list.Delete(foreign); }},
    };
    for (const auto& test : cases) {
        const Support::ScriptedBoxes boxes({IDYES, IDNO});
        try {
            test.call();
            ADD_FAILURE() << test.what;
        } catch (const UTL::XAssert& fault) {
            EXPECT_EQ(fault.getLine(), test.line) << test.what;
            EXPECT_EQ(fault.getFile(), "UTL_List") << test.what;
        }
        EXPECT_NO_THROW(test.call()) << test.what;
        EXPECT_THAT(NumbersOf(list), ElementsAre(1)) << test.what;
        EXPECT_THAT(NumbersOf(other), ElementsAre(2)) << test.what;
        EXPECT_EQ(loose.getList(), nullptr) << test.what;
    }
    list.Remove(&stray);
    EXPECT_THAT(NumbersOf(list), ElementsAre(1)) << "an end that is in no list";
}

TEST(ListTest, ARangeThatIsNoneStopsAtTheEnd)
{
    AList list;
    Item* const first = Push(list, 1);
    Item* const second = Push(list, 2);
    Push(list, 3);
    const Support::ScriptedBoxes boxes({IDNO});
    list.Delete(second, first);
    EXPECT_THAT(NumbersOf(list), ElementsAre(1));
}

TEST(ListTest, NodesWithoutCloneCantBeCopied)
{
    AList list;
    Push(list, 1);
    list.PushBack(new AListNode);
    const Support::ScriptedBoxes boxes({IDYES, IDNO});
    const int before = Item::Alive;
    try {
        FAIL() << AList(list).getCount();
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.getLine(), 231);
    }
    EXPECT_EQ(Item::Alive, before) << "the clones made until then are gone";
    const AList copy(list);
    EXPECT_THAT(NumbersOf(copy), ElementsAre(1));
}

} // namespace
