// SPDX-License-Identifier: MIT
#include "platform/visual/grids/Grids_StringGrid.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/grids/GridForm.h"

#include <limits>

namespace
{

using Grids::EInvalidGridOperation;
using Grids::TStringGrid;
using System::UnicodeString;

using StringGridTest = Support::GridTest<TStringGrid>;

/// What a toolkit without a screen records at once.
class PaintedStringGridTest : public StringGridTest
{
};

constexpr int Most = std::numeric_limits<int>::max();

TEST_F(StringGridTest, KeepsTextAndObjectOfACell)
{
    mGrid->setCells(3, 4, u"abc");
    mGrid->setObjects(3, 4, mGrid);
    mGrid->setObjects(5, 4, &mForm);
    EXPECT_EQ(mGrid->getCells(3, 4), u"abc");
    EXPECT_EQ(mGrid->getObjects(3, 4), mGrid);
    EXPECT_EQ(mGrid->getObjects(5, 4), &mForm);
    EXPECT_EQ(mGrid->getCells(4, 3), u"");
    EXPECT_EQ(mGrid->getObjects(4, 3), nullptr);
    mGrid->setCells(3, 4, UnicodeString());
    EXPECT_EQ(mGrid->getCells(3, 4), u"");
    EXPECT_EQ(mGrid->getObjects(3, 4), mGrid);
}

TEST_F(StringGridTest, KeepsWhatIsBeyondTheCounts)
{
    mGrid->setCells(1, 19, u"last");
    mGrid->setCells(Most - 1, Most - 1, u"far");
    mGrid->setRowCount(3);
    mGrid->setRowCount(20);
    EXPECT_EQ(mGrid->getCells(1, 19), u"last");
    EXPECT_EQ(mGrid->getCells(Most - 1, Most - 1), u"far");
    for (const auto& [col, row] : {std::pair(-1, 0), {0, -1}, {Most, 0}, {0, Most}}) {
        EXPECT_THROW(mGrid->setCells(col, row, u"x"), EInvalidGridOperation);
        EXPECT_THROW(mGrid->getCells(col, row), EInvalidGridOperation);
        EXPECT_THROW(mGrid->getObjects(col, row), EInvalidGridOperation);
    }
}

TEST_F(StringGridTest, MovesCellsWithTheirColumnsAndRows)
{
    for (int i = 0; i < 10; ++i) {
        mGrid->setCells(i, 2, UnicodeString(i));
    }
    for (int i = 0; i < 20; ++i) {
        mGrid->setCells(1, i, UnicodeString(i));
    }
    UnicodeString log;
    const auto note = [&](System::TObject*, int from, int to) {
        log += UnicodeString(from) + u">" + UnicodeString(to) + u" ";
    };
    mGrid->OnRowMoved = note;
    mGrid->OnColumnMoved = note;
    mGrid->setCells(1, 2, u"two");
    mGrid->MoveRow(2, 4);
    EXPECT_EQ(mGrid->getCols(1)->getCommaText(), u"0,1,3,4,two,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19");
    EXPECT_EQ(mGrid->getRows(4)->getCommaText(), u"0,two,2,3,4,5,6,7,8,9");
    mGrid->MoveRow(4, 0);
    EXPECT_EQ(mGrid->getRows(0)->getCommaText(), u"0,two,2,3,4,5,6,7,8,9");
    mGrid->MoveColumn(0, 9);
    EXPECT_EQ(mGrid->getRows(0)->getCommaText(), u"two,2,3,4,5,6,7,8,9,0");
    mGrid->MoveColumn(3, 1);
    EXPECT_EQ(mGrid->getRows(0)->getCommaText(), u"two,4,2,3,5,6,7,8,9,0");
    EXPECT_EQ(log, u"2>4 4>0 0>9 3>1 ");
    EXPECT_THROW(mGrid->MoveRow(0, 20), EInvalidGridOperation);
    EXPECT_THROW(mGrid->MoveColumn(-1, 0), EInvalidGridOperation);
}

TEST_F(StringGridTest, MovesAcrossGapsWithoutWalkingThroughThem)
{
    mGrid->setRowCount(Most - 1);
    mGrid->setColCount(Most - 1);
    mGrid->setCells(0, 0, u"first");
    mGrid->setCells(Most - 2, Most - 2, u"last");
    mGrid->setCells(70'000, 70'000, u"middle");
    mGrid->MoveRow(0, Most - 2);
    EXPECT_EQ(mGrid->getCells(0, Most - 2), u"first");
    EXPECT_EQ(mGrid->getCells(Most - 2, Most - 3), u"last");
    EXPECT_EQ(mGrid->getCells(70'000, 69'999), u"middle");
    mGrid->MoveColumn(Most - 2, 5);
    EXPECT_EQ(mGrid->getCells(5, Most - 3), u"last");
    EXPECT_EQ(mGrid->getCells(70'001, 69'999), u"middle");
}

TEST_F(StringGridTest, DeletesCellsWithTheirColumnOrRow)
{
    mGrid->setCells(1, 1, u"a");
    mGrid->setCells(2, 2, u"b");
    mGrid->setCells(9, 19, u"corner");
    mGrid->DeleteRow(1);
    EXPECT_EQ(mGrid->getRowCount(), 19);
    EXPECT_EQ(mGrid->getCells(1, 1), u"");
    EXPECT_EQ(mGrid->getCells(2, 1), u"b");
    EXPECT_EQ(mGrid->getCells(9, 18), u"corner");
    mGrid->DeleteColumn(9);
    EXPECT_EQ(mGrid->getColCount(), 9);
    mGrid->setColCount(10);
    mGrid->setRowCount(20);
    EXPECT_EQ(mGrid->getCells(9, 18), u"");
    EXPECT_EQ(mGrid->getRows(19)->getCommaText(), u",,,,,,,,,");
    EXPECT_THROW(mGrid->DeleteRow(20), EInvalidGridOperation);
    mGrid->setRowCount(1);
    EXPECT_THROW(mGrid->DeleteRow(0), EInvalidGridOperation);
}

TEST_F(StringGridTest, GivesRowsAndColumnsAsListsOfTheirCells)
{
    Classes::TStrings* const row = mGrid->getRows(2);
    Classes::TStrings* const col = mGrid->getCols(1);
    EXPECT_EQ(row, mGrid->getRows(2));
    EXPECT_EQ(row->getCount(), 10);
    EXPECT_EQ(col->getCount(), 20);
    row->setCommaText(u"a,,c");
    EXPECT_EQ(mGrid->getCells(2, 2), u"c");
    EXPECT_EQ(row->Add(u"b"), 1);
    EXPECT_EQ(col->getStrings(2), u"b");
    col->setStrings(2, u"B");
    EXPECT_EQ(row->getCommaText(), u"a,B,c,,,,,,,");
    EXPECT_EQ(row->IndexOf(u"c"), 2);
    row->setObjects(1, mGrid);
    EXPECT_EQ(col->getObjects(2), mGrid);
    row->Exchange(1, 2);
    EXPECT_EQ(mGrid->getObjects(2, 2), mGrid);
    EXPECT_THROW(row->Insert(0, u"x"), EInvalidGridOperation);
    EXPECT_THROW(row->Delete(0), EInvalidGridOperation);
    EXPECT_THROW(row->getStrings(10), Classes::EStringListError);
    EXPECT_THROW(row->setStrings(-1, u"x"), Classes::EStringListError);
    EXPECT_THROW(mGrid->getRows(20), EInvalidGridOperation);
    EXPECT_THROW(mGrid->getCols(-1), EInvalidGridOperation);
    mGrid->setColCount(2);
    EXPECT_EQ(row->getCommaText(), u"a,c");
    EXPECT_EQ(row->Add(u"full"), -1);
}

TEST_F(StringGridTest, AssignsAsManyLinesAsThereAreCells)
{
    Classes::TStringList lines;
    for (int i = 0; i < 12; ++i) {
        lines.AddObject(UnicodeString(i), i == 1 ? mGrid : nullptr);
    }
    mGrid->setRows(3, &lines);
    EXPECT_EQ(mGrid->getRows(3)->getCommaText(), u"0,1,2,3,4,5,6,7,8,9");
    EXPECT_EQ(mGrid->getObjects(1, 3), mGrid);
    const Classes::TStringList few{u"x"};
    mGrid->getRows(3)->Assign(const_cast<Classes::TStringList*>(&few));
    EXPECT_EQ(mGrid->getRows(3)->getCommaText(), u"x,1,2,3,4,5,6,7,8,9");
    mGrid->getRows(3)->Clear();
    EXPECT_EQ(mGrid->getRows(3)->getCommaText(), u",,,,,,,,,");
    EXPECT_EQ(mGrid->getObjects(1, 3), nullptr);
    EXPECT_THROW(mGrid->getRows(3)->Assign(nullptr), Sysutils::EConvertError);
}

TEST_F(StringGridTest, IsPrintedWithItsCellsAndDrivenByThem)
{
    mGrid->setColCount(3);
    mGrid->setRowCount(3);
    mGrid->getRows(0)->setCommaText(u",x,y");
    mGrid->getRows(2)->setCommaText(u"2,a,b");
    mDriver.ClickCell(u"fGrid", 2, 2);
    EXPECT_NE(mDriver.Print().find("TStringGrid fGrid 10,10 342x192 \"\" focused cells 3x3 first 1,1 at 2,2\n"
                                   "    row 0 \"\" \"x\" \"y\"\n"
                                   "    row 1 \"\" \"\" \"\"\n"
                                   "    row 2 \"2\" \"a\" \"b\"\n"),
              std::string::npos)
        << mDriver.Print();
    Press(VK_LEFT, {Classes::ssShift});
    EXPECT_NE(mDriver.Print().find("at 1,2 selected 1,2-2,2"), std::string::npos);
    EXPECT_THROW(mDriver.ClickCell(u"fGrid", 3, 0), std::logic_error);
}

TEST_F(PaintedStringGridTest, DrawsItsTextsUnlessItIsToldNotTo)
{
    mGrid->setCells(1, 1, u"shown");
    const auto isDrawn = [this] {
        mGrid->Repaint();
        Graphics::TBitmap picture;
        picture.SetSize(mGrid->getWidth(), mGrid->getHeight());
        mGrid->PaintTo(picture.getCanvas()->getHandle(), 0, 0);
        for (int x = 67; x < 128; ++x) {
            if (picture.getCanvas()->getPixels(x, 33) == Graphics::clBlack) {
                return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(isDrawn());
    mGrid->setDefaultDrawing(false);
    EXPECT_FALSE(isDrawn());
}

} // namespace
