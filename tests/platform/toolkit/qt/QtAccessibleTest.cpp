// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtAccessible.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "platform/visual/grids/Grids_StringGrid.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"
#include "platform/visual/stdctrls/buttons/Buttons_SpeedButton.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_CheckBox.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "platform/visual/stdctrls/lists/Stdctrls_ComboBox.h"
#include "platform/visual/stdctrls/panels/Extctrls_Panel.h"
#include "support/RunUntil.h"
#include "testing/FormDriver.h"

#include <QAccessible>
#include <QApplication>
#include <QWidget>
#if __has_include(<qpa/qplatformaccessibility.h>)
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>
#endif

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <utility>

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
        Place(fCombo, u"fCombo", fPanel, {210, 5, 300, 30});
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
        fCombo.setText({});
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
    Stdctrls::TComboBox fCombo{this};
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

TEST_F(QtAccessibleTest, EditsTheTextOfAComboBox)
{
    int changes = 0;
    form.fCombo.getItems()->AddStrings({u"9600", u"19200"});
    form.fCombo.setItemIndex(0);
    form.fCombo.OnChange = [&](TObject*) { ++changes; };
    QAccessibleInterface* const line = Find("Settings.fCombo")->child(1);
    ASSERT_EQ(line->role(), QAccessible::EditableText);
    line->setText(QAccessible::Value, QStringLiteral("4800"));
    EXPECT_EQ(form.fCombo.getText(), u"4800");
    EXPECT_EQ(form.fCombo.getItemIndex(), -1);
    EXPECT_EQ(changes, 1);
    line->setText(QAccessible::Value, QStringLiteral("9600"));
    EXPECT_EQ(form.fCombo.getText(), u"9600");
    EXPECT_EQ(form.fCombo.getItemIndex(), 0);
    line->editableTextInterface()->insertText(0, QStringLiteral("1"));
    EXPECT_EQ(form.fCombo.getText(), u"19600");
    EXPECT_EQ(changes, 3);
    form.fCombo.setText(u"1200");
    EXPECT_EQ(line->text(QAccessible::Value), QStringLiteral("1200"));
    EXPECT_EQ(changes, 3);
}

TEST_F(QtAccessibleTest, LeavesWhatTheUserMustLeave)
{
    form.setEnabled(false);
    Press("Settings.fZoom");
    Press("Settings.fButton");
    Find("Settings.fCheck")->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    Find("Settings.fEdit")->setText(QAccessible::Value, QStringLiteral("second"));
    Find("Settings.fCombo")->child(1)->setText(QAccessible::Value, QStringLiteral("other"));
    Find("Settings.fGrid")
        ->tableInterface()
        ->cellAt(3, 3)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::setFocusAction());
    // Qt shows a button pressed for a while.
    const auto pressed = std::chrono::steady_clock::now();
    EXPECT_TRUE(Support::RunUntil(
        [&] { return std::chrono::steady_clock::now() - pressed > std::chrono::milliseconds(300); }));
    EXPECT_EQ(form.zooms + form.starts + form.changes, 0);
    EXPECT_FALSE(form.fCheck.getChecked());
    EXPECT_FALSE(Find("Settings.fCheck")->state().checked);
    EXPECT_EQ(form.fEdit.getText(), u"first");
    EXPECT_EQ(Find("Settings.fEdit")->text(QAccessible::Value).toStdString(), "first");
    EXPECT_EQ(form.fCombo.getText(), u"");
    EXPECT_EQ(form.fGrid.getRow(), 1);
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
    QAccessibleInterface* const far = table->cellAt(99'999, 99'999);
    EXPECT_TRUE(far->state().offscreen);
    EXPECT_EQ(grid->indexOfChild(far), -1);
}

#if __has_include(<qpa/qplatformaccessibility.h>)

/// The paths of what readers are told has the focus, each with a blank behind.
class FocusNews
{
public:
    FocusNews() : mFormer(QAccessible::installUpdateHandler(&Hear))
    {
        SetActive(true);
        Text().clear();
    }
    FocusNews(const FocusNews&) = delete;
    FocusNews& operator=(const FocusNews&) = delete;
    ~FocusNews()
    {
        SetActive(false);
        QAccessible::installUpdateHandler(mFormer);
    }

    static std::string Take()
    {
        Forms::Application->ProcessMessages();
        return std::exchange(Text(), {});
    }

private:
    static std::string& Text()
    {
        static std::string text;
        return text;
    }
    /// As the session does when a reader is started.
    static void SetActive(bool isActive)
    {
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(isActive);
    }
    static void Hear(QAccessibleEvent* event)
    {
        if (event->type() == QAccessible::Focus) {
            Text() += PathOf(*event->accessibleInterface()).toStdString() + " ";
        }
    }

    QAccessible::UpdateHandler mFormer;
};

TEST_F(QtAccessibleTest, TellsOfTheCellThatHasTheFocus)
{
    const FocusNews news;
    form.fEdit.SetFocus();
    FocusNews::Take();
    form.fGrid.setRow(2);
    EXPECT_EQ(FocusNews::Take(), "");
    form.fGrid.SetFocus();
    EXPECT_EQ(FocusNews::Take(), "Settings.fGrid Settings.fGrid[1,2] ");
    QAccessibleInterface* const grid = Find("Settings.fGrid");
    EXPECT_EQ(grid->focusChild(), grid->tableInterface()->cellAt(2, 1));
    EXPECT_TRUE(grid->focusChild()->state().focused);
    Testing::CFormDriver driver(form);
    driver.Press(VK_DOWN);
    EXPECT_EQ(FocusNews::Take(), "Settings.fGrid[1,3] ");
    form.fGrid.setCol(2);
    EXPECT_EQ(FocusNews::Take(), "Settings.fGrid[2,3] ");
    form.fGrid.setSelection({.Left = 1, .Top = 1, .Right = 3, .Bottom = 2});
    EXPECT_EQ(FocusNews::Take(), "Settings.fGrid[3,2] ");
    form.fGrid.Invalidate();
    form.fGrid.setDefaultRowHeight(30);
    EXPECT_EQ(FocusNews::Take(), "");
    form.fGrid.setRowCount(2);
    EXPECT_EQ(FocusNews::Take(), "Settings.fGrid[3,1] ");
    form.fEdit.SetFocus();
    EXPECT_EQ(FocusNews::Take(), "Settings.fEdit ");
    EXPECT_NE(grid->focusChild(), grid->tableInterface()->cellAt(1, 3));
}

#endif

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
