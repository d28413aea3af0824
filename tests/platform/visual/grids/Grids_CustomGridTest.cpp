// SPDX-License-Identifier: MIT
#include "platform/visual/grids/Grids_CustomGrid.h"

#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_FormText.h"
#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/visual/Forms.h"
#include "platform/visual/Grids.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace
{

using Grids::TStringGrid;

class GridDesignTest : public testing::Test
{
protected:
    GridDesignTest()
    {
        if (Classes::GetClass(u"TStringGrid") == nullptr) {
            Classes::RegisterClass(System::ClassOf<TStringGrid>());
        }
    }

    static void Read(Forms::TForm& form, std::string_view properties)
    {
        const std::string text =
            "object Form1: TForm\n  object fGrid: TStringGrid\n" + std::string(properties) + "  end\nend\n";
        Classes::TMemoryStream source;
        source.WriteBuffer(text.data(), static_cast<System::Int64>(text.size()));
        source.setPosition(0);
        Classes::TMemoryStream binary;
        Classes::ObjectTextToBinary(&source, &binary);
        binary.setPosition(0);
        Classes::TReader(&binary).ReadRootComponent(&form);
    }

    /// What is written of the grid of a form, against that of another one unless it is null.
    static std::string Write(Forms::TForm& form, Forms::TForm* ancestor = nullptr)
    {
        Classes::TMemoryStream binary;
        Classes::TWriter(&binary).WriteDescendent(&form, ancestor);
        binary.setPosition(0);
        Classes::TMemoryStream text;
        Classes::ObjectBinaryToText(&binary, &text);
        const std::string all(static_cast<const char*>(text.getMemory()),
                              static_cast<std::size_t>(text.getSize()));
        const std::size_t begin = all.find(" fGrid: TStringGrid");
        return begin == std::string::npos ? std::string() : all.substr(begin);
    }

    static TStringGrid& GridOf(Forms::TForm& form)
    {
        return dynamic_cast<TStringGrid&>(*form.FindComponent(u"fGrid"));
    }

    Support::ScriptedBoxes mToolkit;
};

constexpr std::string_view Design = "    Left = 8\n"
                                    "    Top = 9\n"
                                    "    Width = 200\n"
                                    "    Height = 100\n"
                                    "    TabOrder = 0\n"
                                    "    ColCount = 3\n"
                                    "    FixedCols = 2\n"
                                    "    RowCount = 9\n"
                                    "    Options = [goVertLine, goEditing, goFixedHotTrack]\n"
                                    "    ScrollBars = ssVertical\n"
                                    "    ColWidths = (\n"
                                    "      64\n"
                                    "      100)\n"
                                    "    RowHeights = (\n"
                                    "      24\n"
                                    "      24\n"
                                    "      -1)\n";

TEST_F(GridDesignTest, ComesBackAsItWas)
{
    Forms::TForm form;
    Read(form, Design);
    const TStringGrid& grid = GridOf(form);
    EXPECT_EQ(grid.getColCount(), 3);
    EXPECT_EQ(grid.getFixedCols(), 2);
    EXPECT_EQ(grid.getCol(), 2);
    EXPECT_EQ(grid.getColWidths(1), 100);
    EXPECT_EQ(grid.getColWidths(2), 64);
    EXPECT_EQ(grid.getRowHeights(2), -1);
    EXPECT_EQ(grid.getOptions(),
              (Grids::TGridOptions{Grids::goVertLine, Grids::goEditing, Grids::goFixedHotTrack}));
    EXPECT_EQ(Write(form), " fGrid: TStringGrid\n" + std::string(Design) + "  end\nend\n");
}

TEST_F(GridDesignTest, WritesOnlyWhatIsntUsual)
{
    Forms::TForm form;
    auto* const grid = new TStringGrid(&form);
    grid->setName(u"fGrid");
    grid->setParent(&form);
    EXPECT_EQ(Write(form), " fGrid: TStringGrid\n    Left = 0\n    Top = 0\n    Width = 320\n"
                           "    Height = 120\n    TabOrder = 0\n  end\nend\n");
}

TEST_F(GridDesignTest, WritesSizesThatAreOtherThanTheAncestors)
{
    Forms::TForm ancestor;
    Read(ancestor, Design);
    Forms::TForm form;
    Read(form, Design);
    EXPECT_EQ(Write(form, &ancestor).find("ColWidths"), std::string::npos);
    GridOf(form).setDefaultColWidth(64);
    const std::string written = Write(form, &ancestor);
    EXPECT_NE(written.find("    ColWidths = (\n      64\n      64)\n"), std::string::npos) << written;
    EXPECT_EQ(written.find("RowHeights"), std::string::npos);
}

TEST_F(GridDesignTest, RefusesWhatDoesntGoTogether)
{
    for (const std::string_view properties :
         {"    ColCount = 3\n    FixedCols = 3\n", "    FixedRows = -1\n", "    ColWidths = (1 2 3 4 5 6)\n",
          "    ColWidths = ('x')\n", "    RowHeights = 5\n"}) {
        SCOPED_TRACE(properties);
        Forms::TForm form;
        EXPECT_THROW(Read(form, properties), Classes::EReadError);
    }
}

} // namespace
