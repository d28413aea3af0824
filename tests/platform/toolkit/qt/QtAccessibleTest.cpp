// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtAccessible.h"

#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "platform/visual/grids/Grids_StringGrid.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"
#include "platform/visual/stdctrls/buttons/Buttons_SpeedButton.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_CheckBox.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "platform/visual/stdctrls/panels/Extctrls_Panel.h"
#include "support/RunUntil.h"

#include <QAccessible>
#include <QApplication>
#include <QWidget>

#include <gtest/gtest.h>

#include <string>

// A form as it is found and driven by those who don't see it: by the tree of Qt alone.

namespace
{

using System::TObject;
using System::UnicodeString;

/// The identifier of a thing in the tree.
QString PathOf(QAccessibleInterface& thing)
{
    return thing.object() == nullptr ? thing.text(QAccessible::UserText) : thing.object()->objectName();
}

QAccessibleInterface* FindIn(QAccessibleInterface* root, const QString& path)
{
    if (root == nullptr || !root->isValid()) {
        return nullptr;
    }
    if (PathOf(*root) == path) {
        return root;
    }
    for (int i = 0; i < root->childCount(); ++i) {
        if (QAccessibleInterface* const found = FindIn(root->child(i), path)) {
            return found;
        }
    }
    return nullptr;
}

std::string NameOf(const QAccessibleInterface& thing)
{
    return thing.text(QAccessible::Name).toStdString();
}

class TSettings final : public Forms::TForm
{
public:
    TSettings()
    {
        setName(u"Settings");
        setCaption(u"Settings");
        SetBounds(0, 0, 400, 300);
        Place(fPanel, u"fPanel", *this, {0, 0, 390, 100});
        Place(fLabel, u"fLabel", fPanel, {5, 5, 80, 20});
        Place(fEdit, u"fEdit", fPanel, {90, 5, 200, 30});
        Place(fZoom, u"fZoom", fPanel, {5, 40, 30, 60});
        Place(fCheck, u"fCheck", fPanel, {90, 40, 200, 60});
        Place(fGrid, u"fGrid", *this, {0, 100, 390, 240});
        Place(fButton, u"fButton", *this, {0, 245, 90, 270});
        fPanel.setCaption(u"R&&D");
        fLabel.setCaption(u"&Device <b>");
        fLabel.setFocusControl(&fEdit);
        fEdit.setText(u"first");
        fEdit.OnChange = [this](TObject*) { ++changes; };
        fZoom.setHint(u"Zoom|Shows more of it");
        fZoom.OnClick = [this](TObject*) { ++zooms; };
        fCheck.setCaption(u"&Log");
        fGrid.setCells(1, 0, u"Voltage");
        fGrid.setCells(0, 2, u"2 s");
        fGrid.setCells(1, 2, u"4.5");
        fButton.setCaption(u"&Start");
        fButton.OnClick = [this](TObject*) { ++starts; };
    }

    Extctrls::TPanel fPanel{this};
    Stdctrls::TLabel fLabel{this};
    Stdctrls::TEdit fEdit{this};
    Buttons::TSpeedButton fZoom{this};
    Stdctrls::TCheckBox fCheck{this};
    Grids::TStringGrid fGrid{this};
    Stdctrls::TButton fButton{this};
    int changes = 0;
    int zooms = 0;
    int starts = 0;

private:
    static void Place(Controls::TControl& control, const char16_t* name, Controls::TWinControl& parent,
                      Types::TRect bounds)
    {
        control.setName(name);
        control.setParent(&parent);
        control.setBoundsRect(bounds);
    }
};

class QtAccessibleTest : public testing::Test
{
protected:
    QtAccessibleTest()
    {
        form.Show();
        Settle();
    }

    static void Settle() { Forms::Application->ProcessMessages(); }

    static QAccessibleInterface* Root()
    {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == QLatin1String("Settings")) {
                return QAccessible::queryAccessibleInterface(widget);
            }
        }
        return nullptr;
    }
    /// Null if it isn't in the tree.
    static QAccessibleInterface* Find(const char* path) { return FindIn(Root(), QString::fromLatin1(path)); }
    static void Press(const char* path)
    {
        QAccessibleInterface* const thing = Find(path);
        ASSERT_NE(thing, nullptr) << path;
        ASSERT_NE(thing->actionInterface(), nullptr) << path;
        thing->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        Settle();
    }

    TSettings form;
};

TEST_F(QtAccessibleTest, FindsEachControlByItsPath)
{
    const struct
    {
        const char* path;
        QAccessible::Role role;
        const char* name;
    } expected[] = {{"Settings", QAccessible::Window, "Settings"},
                    {"Settings.fPanel", QAccessible::Grouping, "R&D"},
                    {"Settings.fLabel", QAccessible::StaticText, "Device <b>"},
                    {"Settings.fEdit", QAccessible::EditableText, "Device <b>"},
                    {"Settings.fZoom", QAccessible::Button, "Zoom"},
                    {"Settings.fCheck", QAccessible::CheckBox, "Log"},
                    {"Settings.fGrid", QAccessible::Table, ""},
                    {"Settings.fButton", QAccessible::Button, "Start"}};
    for (const auto& [path, role, name] : expected) {
        SCOPED_TRACE(path);
        const QAccessibleInterface* const thing = Find(path);
        ASSERT_NE(thing, nullptr);
        EXPECT_EQ(thing->role(), role);
        EXPECT_EQ(NameOf(*thing), name);
        EXPECT_FALSE(thing->rect().isEmpty());
    }
}

TEST_F(QtAccessibleTest, DrivesControls)
{
    Press("Settings.fButton");
    EXPECT_TRUE(Support::RunUntil([this] { return form.starts > 0; }))
        << "Qt shows the button pressed for a while";
    EXPECT_EQ(form.starts, 1);
    Press("Settings.fZoom");
    EXPECT_EQ(form.zooms, 1);
    form.fZoom.setEnabled(false);
    EXPECT_TRUE(Find("Settings.fZoom")->state().disabled);
    Press("Settings.fZoom");
    EXPECT_EQ(form.zooms, 1);
    Find("Settings.fCheck")->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(form.fCheck.getChecked());
    EXPECT_TRUE(Find("Settings.fCheck")->state().checked);
    Find("Settings.fEdit")->setText(QAccessible::Value, QStringLiteral("second"));
    Settle();
    EXPECT_EQ(form.fEdit.getText(), u"second");
    EXPECT_EQ(form.changes, 1);
}

TEST_F(QtAccessibleTest, TellsWhatALabelSaysAsLongAsItLeadsThere)
{
    form.fLabel.setCaption(u"&Port");
    EXPECT_EQ(NameOf(*Find("Settings.fEdit")), "Port");
    form.fLabel.setFocusControl(&form.fGrid);
    EXPECT_EQ(NameOf(*Find("Settings.fEdit")), "");
    EXPECT_EQ(NameOf(*Find("Settings.fGrid")), "Port");
    {
        Stdctrls::TLabel other;
        other.setCaption(u"Baud rate");
        other.setFocusControl(&form.fEdit);
        EXPECT_EQ(NameOf(*Find("Settings.fEdit")), "Baud rate");
    }
    EXPECT_EQ(NameOf(*Find("Settings.fEdit")), "");
}

TEST_F(QtAccessibleTest, ExposesTheCellsOfAGrid)
{
    QAccessibleInterface* const grid = Find("Settings.fGrid");
    QAccessibleTableInterface* const table = grid->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->columnCount(), 5);
    EXPECT_EQ(table->rowCount(), 5);
    EXPECT_EQ(table->columnDescription(1).toStdString(), "Voltage");
    EXPECT_EQ(table->rowDescription(2).toStdString(), "2 s");
    QAccessibleInterface* const cell = table->cellAt(2, 1);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(NameOf(*cell), "4.5");
    EXPECT_EQ(PathOf(*cell).toStdString(), "Settings.fGrid[1,2]");
    EXPECT_EQ(grid->child(grid->indexOfChild(cell)), cell);
    EXPECT_EQ(cell->tableCellInterface()->columnHeaderCells(), (QList{table->cellAt(0, 1)}));
    EXPECT_FALSE(cell->state().selected);
    cell->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(form.fGrid.getRow(), 2);
    EXPECT_TRUE(cell->state().selected);
    EXPECT_EQ(table->selectedCells(), QList{cell});
    EXPECT_EQ(table->cellAt(5, 0), nullptr);
    form.fGrid.setRowCount(2);
    EXPECT_FALSE(cell->isValid());
    EXPECT_EQ(NameOf(*cell), "");
    form.fGrid.setColCount(100'000);
    form.fGrid.setRowCount(100'000);
    EXPECT_GT(grid->childCount(), 1'000'000'000);
    EXPECT_TRUE(table->cellAt(99'999, 99'999)->state().offscreen);
}

TEST_F(QtAccessibleTest, LosesWhatIsDestroyed)
{
    QAccessibleInterface* const cell = Find("Settings.fGrid")->tableInterface()->cellAt(1, 1);
    const QAccessible::Id id = QAccessible::uniqueId(cell);
    form.fGrid.setParent(nullptr);
    Settle();
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
    EXPECT_EQ(Find("Settings.fGrid"), nullptr);
    form.fZoom.OnClick = [this](TObject*) { form.fPanel.setParent(nullptr); };
    Press("Settings.fZoom");
    EXPECT_EQ(Find("Settings.fPanel"), nullptr);
    EXPECT_NE(Find("Settings.fButton"), nullptr);
}

} // namespace
