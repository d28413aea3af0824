// SPDX-License-Identifier: MIT
#include "properties/BTL_Element.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gmock/gmock.h>

namespace
{

class Element : public BTL::AElement
{
public:
    Element(int number, std::vector<int>& destroyed) : mNumber(number), mDestroyed(&destroyed) {}
    ~Element() override { mDestroyed->push_back(mNumber); }

private:
    int mNumber;
    std::vector<int>* mDestroyed;
};

TEST(ElementVectorTest, DestroysItsElementsInOrder)
{
    std::vector<int> destroyed;
    {
        BTL::CElementVector elements;
        for (int i = 0; i < 3; ++i) {
            auto* const element = new Element(i, destroyed);
            elements.AddElement(element);
            EXPECT_EQ(elements[i], element);
        }
        EXPECT_EQ(elements.GetCount(), 3);
        for (const int index : {-1, 3}) {
            const Support::ScriptedBoxes boxes({IDYES, IDNO});
            EXPECT_THROW(elements[index], UTL::XAssert);
            EXPECT_EQ(elements[index], nullptr) << "the fault was let pass";
        }
    }
    EXPECT_THAT(destroyed, testing::ElementsAre(0, 1, 2));
}

TEST(ElementMapTest, AsksItsParentsForWhatItLacks)
{
    std::vector<int> destroyed;
    BTL::CElementMap root(nullptr);
    auto* const common = new Element(1, destroyed);
    auto* const hidden = new Element(2, destroyed);
    root.AddElement(u"common", common);
    root.AddElement(u"own", hidden);
    {
        BTL::CElementMap middle(&root);
        BTL::CElementMap child(&middle);
        auto* const own = new Element(3, destroyed);
        child.AddElement(u"own", own);
        EXPECT_EQ(child[u"own"], own);
        EXPECT_EQ(child[u"common"], common);
        EXPECT_EQ(child[u"Own"], nullptr);
        EXPECT_EQ(root[u"own"], hidden);
    }
    EXPECT_THAT(destroyed, testing::ElementsAre(3));
}

TEST(ElementMapTest, RefusesWhatItCantEnter)
{
    std::vector<int> destroyed;
    BTL::CElementMap map(nullptr);
    auto* const first = new Element(1, destroyed);
    map.AddElement(u"a", first);
    Element refused(2, destroyed);
    const auto add = [&](const System::UnicodeString& name, BTL::AElement* element) {
        const Support::ScriptedBoxes boxes({IDYES, IDNO});
        EXPECT_THROW(map.AddElement(name, element), UTL::XAssert);
        map.AddElement(name, element);
    };
    add(u"", &refused);
    add(u"a", &refused);
    add(u"b", nullptr);
    EXPECT_EQ(map[u"a"], first);
    EXPECT_EQ(map[u""], nullptr);
    EXPECT_EQ(map[u"b"], nullptr);
    EXPECT_TRUE(destroyed.empty());
}

} // namespace
