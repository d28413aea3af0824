// SPDX-License-Identifier: MIT
#include "foundation/UTL_AutoPtr.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_List.h"
#include "platform/runtime/typinfo/System_Object.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

class Shared : public UTL::AAutoObj
{
public:
    explicit Shared(int& alive) : mAlive(&alive) { ++*mAlive; }
    Shared(const Shared& other) : AAutoObj(other), next(other.next), mAlive(other.mAlive) { ++*mAlive; }
    Shared& operator=(const Shared&) = default;
    ~Shared() noexcept(false) override { --*mAlive; }

    UTL::GAutoPtr<Shared> next;

private:
    int* mAlive;
};

using Pointer = UTL::GAutoPtr<Shared>;

/// The line of the fault that `call` raises; 0 if it raises none.
template <class Call>
int FaultLine(Call call)
{
    const Support::ScriptedBoxes boxes({IDYES});
    try {
        call();
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.getFile(), "UTL_AutoPtr");
        return fault.getLine();
    }
    return 0;
}

TEST(AutoPtrTest, TheLastHolderDestroysTheObject)
{
    int alive = 0;
    {
        auto* const object = new Shared(alive);
        Pointer a(object);
        {
            Pointer b(a);
            EXPECT_EQ(object->getRefCount(), 2);
            b = nullptr;
            EXPECT_EQ(object->getRefCount(), 1);
        }
        a = object;
        const Pointer& same = a;
        a = same;
        EXPECT_EQ(object->getRefCount(), 1);
        EXPECT_EQ(a.get(), object);
        EXPECT_EQ(a->getRefCount(), 1);

        Pointer other(new Shared(*a.get()));
        EXPECT_EQ(other->getRefCount(), 1) << "a copy counts anew";
        *other.get() = *a.get();
        EXPECT_EQ(other->getRefCount(), 1);
        EXPECT_EQ(alive, 2);
        other = a;
        EXPECT_EQ(alive, 1);
        other = nullptr;
        EXPECT_EQ(object->getRefCount(), 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST(AutoPtrTest, AChainMayBeFollowedThroughItsOnlyHolder)
{
    int alive = 0;
    Pointer head(new Shared(alive));
    head->next = new Shared(alive);
    head = head->next;
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(head->getRefCount(), 1);
}

TEST(AutoPtrTest, MisuseIsAFault)
{
    int alive = 0;
    const Pointer null;
    EXPECT_EQ(null.get(), nullptr);
    EXPECT_EQ(FaultLine([&] { null->Retain(); }), 89);
    EXPECT_EQ(FaultLine([&] {
                  Shared held(alive);
                  held.Retain();
              }),
              30);
    Shared loose(alive);
    loose.Release();
    EXPECT_EQ(FaultLine([&] { loose.Release(); }), 35);
    EXPECT_EQ(loose.getRefCount(), -1);
    loose.Retain();

    Support::ScriptedBoxes boxes({IDNO, IDOK});
    EXPECT_THROW(null->Retain(), Sysutils::Exception) << "there is nothing to go on with";
    EXPECT_THROW(
        {
            Shared held(alive);
            held.Retain();
            throw Sysutils::EAbort("first");
        },
        Sysutils::EAbort);
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[1].box.caption, u"Warning");
}

TEST(AutoPtrTest, AnyClassMayHoldOne)
{
    struct Holder : System::TObject
    {
        Pointer held;
    };
    struct Node : UTL::AListNode
    {
        Pointer held;
    };
    int alive = 0;
    const auto holder = std::make_unique<Holder>();
    holder->held = new Shared(alive);
    {
        UTL::AList list;
        list.PushBack(new Node);
        dynamic_cast<Node&>(*list.getNext()).held = holder->held;
        EXPECT_EQ(holder->held->getRefCount(), 2);
    }
    EXPECT_EQ(holder->held->getRefCount(), 1);
}

} // namespace
