// SPDX-License-Identifier: MIT
#include "platform/visual/data/Dbgrids_DBGrid.h"

#include "platform/runtime/classes/Classes.h"
#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/filer/Classes_FormText.h"
#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/visual/Forms.h"
#include "platform/visual/data/sets/Db_FieldTypes.h"
#include "platform/visual/data/sets/Db_MemoryDataSet.h"
#include "platform/visual/graphics/Graphics_Font.h"
#include "support/ScriptedBoxes.h"
#include "support/ShowPainted.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using namespace Db;
using namespace Dbgrids;
using System::UnicodeString;
using System::Variant;

class DBGridTest : public testing::Test
{
protected:
    DBGridTest()
    {
        mSet->getFieldDefs()->Add(u"Name", ftWideString, 8);
        mSet->getFieldDefs()->Add(u"Count", ftInteger);
        mSet->Open();
        for (int i = 1; i <= 5; ++i) {
            const Variant values[] = {u"row " + UnicodeString(i), i};
            mSet->AppendRecord(values);
        }
        mSet->First();
        mSource->setDataSet(mSet);
        mGrid->setName(u"Grid");
        mGrid->setParent(&mForm);
        mGrid->SetBounds(0, 0, 300, 200);
        mGrid->setDataSource(mSource);
        EXPECT_TRUE(Support::ShowPainted(mForm));
    }

    /// What is drawn in the cells, row by row.
    UnicodeString Drawn()
    {
        UnicodeString text;
        mGrid->OnDrawColumnCell = [&](System::TObject*, Types::TRect, int, TColumn* column,
                                      Grids::TGridDrawState) {
            text += column->getField()->getDisplayText() + u"|";
        };
        mGrid->Repaint();
        mGrid->OnDrawColumnCell = nullptr;
        return text;
    }
    /// The middle of a cell.
    Types::TPoint PlaceOf(int col, int row) const
    {
        const Types::TRect rect = mGrid->CellRect(col, row);
        return {(rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2};
    }

    Support::ScriptedBoxes mToolkit{IDCANCEL, IDOK};
    Forms::TForm mForm;
    Testing::CFormDriver mDriver{mForm};
    TMemoryDataSet* mSet = new TMemoryDataSet(&mForm);
    TDataSource* mSource = new TDataSource(&mForm);
    TDBGrid* mGrid = new TDBGrid(&mForm);
};

/// What a toolkit without a screen records at once.
class PaintedDBGridTest : public DBGridTest
{
};

TEST_F(PaintedDBGridTest, ShowsFieldsAsColumnsAndRecordsAsRows)
{
    EXPECT_EQ(mGrid->getColumns()->GetCount(), 2);
    EXPECT_EQ(mGrid->getColumns()->getState(), csDefault);
    EXPECT_EQ(mGrid->getRowCount(), 6);
    EXPECT_EQ(mGrid->getColCount(), 3);
    EXPECT_EQ(mGrid->getColumns()->getItems(0)->getTitle()->getCaption(), u"Name");
    EXPECT_EQ(mGrid->getColumns()->getItems(1)->getAlignment(), Classes::taRightJustify);
    EXPECT_EQ(Drawn(), u"row 1|1|row 2|2|row 3|3|row 4|4|row 5|5|");
    mSet->FieldByName(u"Name")->setVisible(false);
    EXPECT_EQ(mGrid->getColumns()->GetCount(), 1);
    mSet->Close();
    EXPECT_EQ(mGrid->getColumns()->GetCount(), 0);
    EXPECT_EQ(mGrid->getRowCount(), 2);
    EXPECT_EQ(Drawn(), u"");
}

TEST_F(PaintedDBGridTest, KeepsTheColumnsOfADesign)
{
    TColumn* const column = mGrid->getColumns()->Add();
    EXPECT_EQ(mGrid->getColumns()->getState(), csCustomized);
    EXPECT_EQ(mGrid->getColumns()->GetCount(), 1);
    column->setFieldName(u"Count");
    column->getTitle()->setCaption(u"n");
    column->setWidth(77);
    EXPECT_EQ(mGrid->getColWidths(1), 77);
    EXPECT_EQ(mGrid->getSelectedField(), mSet->FieldByName(u"Count"));
    mSet->Close();
    EXPECT_EQ(column->getField(), nullptr);
    mSet->Open();
    EXPECT_EQ(Drawn(), u"1|2|3|4|5|");
    mGrid->setColWidths(1, 50);
    EXPECT_EQ(column->getWidth(), 50);
    column->RestoreDefaults();
    EXPECT_EQ(column->getTitle()->getCaption(), u"Count");
    mGrid->getColumns()->setState(csDefault);
    EXPECT_EQ(mGrid->getColumns()->GetCount(), 2);
    EXPECT_THROW(mGrid->getColumns()->getItems(2), Classes::EListError);
}

TEST_F(DBGridTest, LetsFontsFollowTheGridUntilTheyAreChanged)
{
    TColumn* const column = mGrid->getColumns()->getItems(0);
    const int height = mGrid->getDefaultRowHeight();
    mGrid->getFont()->setSize(20);
    EXPECT_GT(mGrid->getDefaultRowHeight(), height);
    EXPECT_EQ(column->getFont()->getSize(), 20);
    EXPECT_EQ(mGrid->getTitleFont()->getSize(), 20);
    mGrid->getTitleFont()->setSize(11);
    EXPECT_EQ(column->getTitle()->getFont()->getSize(), 11);
    column->getTitle()->getFont()->setSize(9);
    mGrid->getTitleFont()->setSize(12);
    EXPECT_EQ(column->getTitle()->getFont()->getSize(), 9);
    EXPECT_EQ(mGrid->getFont()->getSize(), 20);
}

TEST_F(DBGridTest, GoesToTheRecordOfTheRow)
{
    mDriver.Focus(u"Grid");
    mDriver.Press(VK_DOWN);
    mDriver.Press(VK_DOWN);
    EXPECT_EQ(mSet->getRecNo(), 3);
    mSet->Last();
    EXPECT_EQ(mGrid->getRow(), 5);
    mDriver.ClickCell(u"Grid", 2, 2);
    EXPECT_EQ(mSet->getRecNo(), 2);
    EXPECT_EQ(mGrid->getSelectedField(), mSet->FieldByName(u"Count"));
    mSet->BeforeScroll = [](TDataSet*) { throw Sysutils::EAbort(u"stay"); };
    mDriver.ClickCell(u"Grid", 1, 4);
    EXPECT_EQ(mSet->getRecNo(), 2);
    EXPECT_EQ(mGrid->getRow(), 2);
}

TEST_F(DBGridTest, MakesAndDeletesRecordsByKeys)
{
    mSet->Last();
    mDriver.Focus(u"Grid");
    mDriver.Press(VK_DOWN);
    EXPECT_EQ(mSet->getState(), dsInsert);
    EXPECT_EQ(mGrid->getRowCount(), 7);
    EXPECT_EQ(mGrid->getRow(), 6);
    mDriver.Press(VK_DOWN);
    EXPECT_EQ(mSet->GetShownCount(), 6);
    mDriver.Press(VK_UP);
    EXPECT_EQ(mSet->getState(), dsBrowse);
    EXPECT_EQ(mSet->getRecNo(), 5);
    mDriver.Press(VK_INSERT);
    EXPECT_EQ(mSet->getState(), dsInsert);
    EXPECT_EQ(mGrid->getRow(), 5);
    mDriver.Press(VK_ESCAPE);
    EXPECT_EQ(mSet->getState(), dsBrowse);
    mDriver.Press(VK_DELETE, {Classes::ssCtrl});
    EXPECT_EQ(mSet->getRecordCount(), 5);
    mDriver.Press(VK_DELETE, {Classes::ssCtrl});
    EXPECT_EQ(mSet->getRecordCount(), 4);
    EXPECT_EQ(mGrid->getRowCount(), 5);
    mGrid->setReadOnly(true);
    mDriver.Press(VK_INSERT);
    EXPECT_EQ(mSet->getState(), dsBrowse);
}

TEST_F(DBGridTest, EditsCells)
{
    mDriver.Focus(u"Grid");
    mDriver.Type(u"new");
    EXPECT_EQ(mSet->getState(), dsEdit);
    EXPECT_EQ(mSet->FieldByName(u"Name")->getAsString(), u"row 1");
    mGrid->setRow(2);
    EXPECT_EQ(mSet->getState(), dsBrowse);
    EXPECT_EQ(mSet->getRecNo(), 2);
    EXPECT_TRUE(mSet->Locate(u"Name", u"new"));
    EXPECT_EQ(mSet->getRecNo(), 1);
    mGrid->setSelectedIndex(1);
    mGrid->getColumns()->getItems(1)->setReadOnly(true);
    mGrid->SetFocus();
    mDriver.Type(u"7");
    EXPECT_EQ(mSet->getState(), dsBrowse);
}

TEST_F(DBGridTest, TellsOfClicksAndColumns)
{
    UnicodeString log;
    mGrid->OnTitleClick = [&](TColumn* column) { log += u"t" + column->getFieldName() + u" "; };
    mGrid->OnCellClick = [&](TColumn* column) { log += u"c" + column->getFieldName() + u" "; };
    mGrid->OnColExit = [&](System::TObject*) { log += u"exit "; };
    mGrid->OnColEnter = [&](System::TObject*) { log += u"enter "; };
    mDriver.Click(u"Grid", PlaceOf(2, 0));
    mDriver.Click(u"Grid", PlaceOf(2, 1));
    EXPECT_EQ(log, u"tCount exit enter cCount ");
    EXPECT_EQ(mGrid->getSelectedIndex(), 1);
    mGrid->setSelectedField(mSet->FieldByName(u"Name"));
    EXPECT_EQ(mGrid->getSelectedIndex(), 0);
    mGrid->MoveColumn(1, 2);
    EXPECT_EQ(mGrid->getColumns()->getState(), csCustomized);
    EXPECT_EQ(mGrid->getColumns()->getItems(0)->getFieldName(), u"Count");
    EXPECT_EQ(Drawn().SubString(1, 8), u"1|row 1|");
}

TEST_F(PaintedDBGridTest, SelectsSeveralRecords)
{
    TDBGridOptions options = mGrid->getOptions();
    mGrid->setOptions(options << dgMultiSelect);
    TBookmarkList* const rows = mGrid->getSelectedRows();
    mSet->Next();
    rows->setCurrentRowSelected(true);
    mSet->Last();
    rows->setCurrentRowSelected(true);
    EXPECT_EQ(rows->getCount(), 2);
    EXPECT_THROW(rows->getItems(2), Classes::EListError);
    rows->Delete();
    EXPECT_EQ(rows->getCount(), 0);
    EXPECT_EQ(Drawn(), u"row 1|1|row 3|3|row 4|4|");
    mDriver.Click(u"Grid", PlaceOf(1, 1));
    EXPECT_TRUE(rows->getCurrentRowSelected());
    mSet->Delete();
    EXPECT_TRUE(rows->Refresh());
}

TEST_F(PaintedDBGridTest, LaysOutByItsOptions)
{
    mGrid->setOptions({});
    EXPECT_EQ(mGrid->getFixedCols(), 0);
    EXPECT_EQ(mGrid->getFixedRows(), 0);
    EXPECT_EQ(mGrid->getRowCount(), 5);
    EXPECT_EQ(Drawn(), u"row 1|1|row 2|2|row 3|3|row 4|4|row 5|5|");
    mGrid->setOptions({dgRowSelect, dgTitles});
    EXPECT_EQ(mGrid->getRowCount(), 6);
    mSet->setRecNo(4);
    EXPECT_EQ(mGrid->getRow(), 4);
}

TEST_F(DBGridTest, OutlivesWhatItShows)
{
    mGrid->OnDrawColumnCell = [&](System::TObject*, Types::TRect, int, TColumn*, Grids::TGridDrawState) {
        mGrid->getColumns()->Clear();
        mSet->Close();
    };
    mGrid->Repaint();
    mGrid->OnDrawColumnCell = nullptr;
    mSet->Open();
    delete mSet;
    EXPECT_EQ(mGrid->getRowCount(), 2);
    delete mSource;
    EXPECT_EQ(mGrid->getDataSource(), nullptr);
    mDriver.Focus(u"Grid");
    mDriver.Press(VK_DOWN);
    mDriver.Press(VK_DELETE, {Classes::ssCtrl});
    EXPECT_EQ(Drawn(), u"");
}

TEST_F(DBGridTest, IsReadFromADesignAndWrittenAsIt)
{
    for (System::TMetaClass* const type :
         {System::ClassOf<TDBGrid>(), System::ClassOf<TDataSource>(), System::ClassOf<TMemoryDataSet>(),
          System::ClassOf<TIntegerField>()}) {
        if (Classes::GetClass(type->ClassName()) == nullptr) {
            Classes::RegisterClass(type);
        }
    }
    const std::string design = "object Form1: TForm\n"
                               "  object fGrid: TDBGrid\n"
                               "    Left = 8\n"
                               "    Top = 9\n"
                               "    Columns = <\n"
                               "      item\n"
                               "        FieldName = 'Count'\n"
                               "        Title.Caption = 'n'\n"
                               "        Width = 70\n"
                               "      end>\n"
                               "    DataSource = fSource\n"
                               "  end\n"
                               "  object fSource: TDataSource\n"
                               "    DataSet = fSet\n"
                               "  end\n"
                               "  object fSet: TMemoryDataSet\n"
                               "    FieldDefs = <\n"
                               "      item\n"
                               "        Name = 'Count'\n"
                               "        DataType = ftInteger\n"
                               "      end>\n"
                               "    Active = True\n"
                               "    object fCount: TIntegerField\n"
                               "      DisplayLabel = 'Number'\n"
                               "      FieldName = 'Count'\n"
                               "    end\n"
                               "  end\n"
                               "end\n";
    Classes::TMemoryStream source;
    source.WriteBuffer(design.data(), static_cast<System::Int64>(design.size()));
    source.setPosition(0);
    Classes::TMemoryStream binary;
    Classes::ObjectTextToBinary(&source, &binary);
    binary.setPosition(0);
    Forms::TForm form;
    Classes::TReader(&binary).ReadRootComponent(&form);
    auto& grid = dynamic_cast<TDBGrid&>(*form.FindComponent(u"fGrid"));
    auto& set = dynamic_cast<TMemoryDataSet&>(*form.FindComponent(u"fSet"));
    EXPECT_TRUE(set.getActive());
    ASSERT_EQ(grid.getFieldCount(), 1);
    EXPECT_EQ(grid.getFields(0), form.FindComponent(u"fCount"));
    EXPECT_EQ(grid.getColWidths(1), 70);
    Classes::TMemoryStream written;
    Classes::TWriter(&written).WriteDescendent(&form, nullptr);
    written.setPosition(0);
    Classes::TMemoryStream text;
    Classes::ObjectBinaryToText(&written, &text);
    const std::string all(text.AsView());
    for (const char* part : {"Title.Caption = 'n'", "Width = 70", "DataType = ftInteger", "Active = True",
                             "object fCount: TIntegerField", "DisplayLabel = 'Number'"}) {
        EXPECT_NE(all.find(part), std::string::npos) << part << all;
    }
    EXPECT_EQ(all.find("Options"), std::string::npos);
}

TEST_F(DBGridTest, EndsWithinItsOwnEvents)
{
    mGrid->OnCellClick = [&](TColumn*) { delete std::exchange(mGrid, nullptr); };
    mDriver.Click(u"Grid", PlaceOf(1, 2));
    EXPECT_EQ(mGrid, nullptr);
    EXPECT_EQ(mSet->getRecNo(), 2);
}

} // namespace
