// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_Filer.h"

#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/runtime/filer/FilerSupport.h"

#include <gtest/gtest.h>

using namespace Classes;
using System::UnicodeString;

namespace
{

/// A class that leaves its values out, or writes nothing for them.
class TQuiet : public TComponent
{
protected:
    void DefineProperties(TFiler& filer) override
    {
        TComponent::DefineProperties(filer);
        filer.DefineProperty(
            u"Unwritten", [](TReader& reader) { reader.SkipValue(); }, [](TWriter&) {}, true);
        filer.DefineProperty(
            u"Absent", [](TReader& reader) { reader.SkipValue(); },
            [](TWriter& writer) { writer.WriteInteger(1); }, false);
        filer.DefineProperty(
            u"WriteOnly", nullptr, [](TWriter& writer) { writer.WriteString(u"x"); }, true);
    }
};

TEST(FilerTest, WhatHasNoDataIsntWritten)
{
    TQuiet quiet;
    EXPECT_EQ(FilerTest::TextOf(quiet), "object TComponent\n  WriteOnly = 'x'\nend\n");
    for (const auto& [text, isRead] : {std::pair("object TQuiet\n Unwritten = (1 2)\n Absent = 2\nend", true),
                                       {"object TQuiet\n WriteOnly = 'x'\nend", false}}) {
        const auto stream = FilerTest::StreamOf(FilerTest::Compiled(text));
        TReader reader(stream.get());
        if (isRead) {
            EXPECT_EQ(reader.ReadRootComponent(&quiet), &quiet);
        } else {
            EXPECT_THROW(reader.ReadRootComponent(&quiet), EReadError);
        }
    }
}

} // namespace
