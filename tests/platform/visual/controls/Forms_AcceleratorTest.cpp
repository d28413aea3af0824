// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Forms_Accelerator.h"

#include <gtest/gtest.h>

namespace
{

TEST(AcceleratorTest, IsTheCharacterBehindTheFirstSingleMark)
{
    struct TRow
    {
        System::Word key;
        const char16_t* caption;
        bool isIt;
    };
    for (const auto& [key, caption, isIt] : {TRow{'S', u"&Save", true},
                                             {'s', u"&Save", true},
                                             {'V', u"Sa&ve", true},
                                             {'A', u"&Save", false},
                                             {'B', u"A && &B", true},
                                             {'&', u"A && B", false},
                                             {0xC4, u"&\u00E4ndern", true},
                                             {'S', u"Save", false},
                                             {'S', u"Save&", false},
                                             {0, u"Save&", false},
                                             {0, u"", false}}) {
        SCOPED_TRACE(System::ToUtf8(caption));
        EXPECT_EQ(Forms::IsAccel(key, caption), isIt);
    }
}

} // namespace
