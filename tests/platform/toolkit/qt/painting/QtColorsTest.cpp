// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/painting/QtColors.h"

#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_CheckBox.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "platform/visual/stdctrls/panels/Extctrls_Panel.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

using Toolkits::CurrentToolkit;

QWidget& WidgetOf(const QString& name)
{
    const auto all = QApplication::allWidgets();
    return **std::ranges::find(all, name, &QWidget::objectName);
}

/// Another palette of the desktop, as long as it lives.
class CPalette
{
public:
    explicit CPalette(const QPalette& palette) : mFormer(QApplication::palette())
    {
        QApplication::setPalette(palette);
    }
    CPalette(const CPalette&) = delete;
    CPalette& operator=(const CPalette&) = delete;
    ~CPalette() { QApplication::setPalette(mFormer); }

private:
    QPalette mFormer;
};

TEST(QtColorsTest, FollowTheDesktopFromLightToDark)
{
    Forms::TForm form;
    form.setName(u"Themed");
    form.SetBounds(10, 10, 300, 200);
    Extctrls::TPanel panel(&form);
    panel.setName(u"Area");
    panel.setParent(&form);
    panel.SetBounds(10, 10, 200, 60);
    panel.setCaption({});
    panel.setBevelOuter(Controls::bvNone);
    Stdctrls::TEdit edit(&form);
    edit.setName(u"Field");
    edit.setParent(&form);
    edit.SetBounds(10, 100, 200, 21);
    form.Show();
    Forms::Application->ProcessMessages();
    const auto window = QColor(40, 42, 44).rgb();
    const auto base = QColor(20, 20, 24).rgb();
    const auto text = QColor(230, 230, 230).rgb();
    QPalette dark(QColor::fromRgb(window));
    dark.setColor(QPalette::Base, QColor::fromRgb(base));
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        dark.setColor(role, QColor::fromRgb(text));
    }
    const auto formerBase = WidgetOf(QStringLiteral("Themed.Field")).palette().color(QPalette::Base).rgb();
    {
        const CPalette changed(dark);
        EXPECT_EQ(CurrentToolkit().SystemColor(15), window);
        EXPECT_EQ(CurrentToolkit().SystemColor(5), base);
        EXPECT_EQ(CurrentToolkit().SystemColor(8), text);
        Forms::Application->ProcessMessages();
        const QWidget& field = WidgetOf(QStringLiteral("Themed.Field"));
        EXPECT_EQ(field.palette().color(QPalette::Base).rgb(), base);
        EXPECT_EQ(field.palette().color(QPalette::Text).rgb(), text);
        const QImage area = WidgetOf(QStringLiteral("Themed.Area")).grab().toImage();
        EXPECT_EQ(area.pixel(100, 30), window);
        EXPECT_EQ(WidgetOf(QStringLiteral("Themed")).grab().toImage().pixel(5, 5), window);
    }
    Forms::Application->ProcessMessages();
    EXPECT_EQ(WidgetOf(QStringLiteral("Themed.Field")).palette().color(QPalette::Base).rgb(), formerBase);
}

class QtOwnColorsTest : public testing::Test
{
protected:
    QtOwnColorsTest()
    {
        mForm.setName(u"Own");
        Place(mPanel, u"Area", mForm);
        mPanel.setBevelOuter(Controls::bvNone);
        Place(mInner, u"Inner", mPanel);
        mPanel.setParentColor(true);
        mInner.setParentColor(true);
        Place(mField, u"Field", mInner);
        Place(mBox, u"Box", mInner);
        Place(mFirst, u"First", mInner);
        Place(mSecond, u"Second", mInner);
        mForm.Show();
        Forms::Application->ProcessMessages();
    }

    static void Place(Controls::TWinControl& control, const char16_t* name, Controls::TWinControl& parent)
    {
        control.setName(name);
        control.setParent(&parent);
    }
    static QPalette PaletteOf(const char* name)
    {
        return WidgetOf(QStringLiteral("Own.") + QLatin1String(name)).palette();
    }
    static QRgb Shown(const char* name, QPalette::ColorRole role)
    {
        return PaletteOf(name).color(role).rgb();
    }
    static QRgb Desktop(QPalette::ColorRole role) { return QApplication::palette().color(role).rgb(); }

    Forms::TForm mForm;
    Extctrls::TPanel mPanel{&mForm};
    Extctrls::TPanel mInner{&mForm};
    Stdctrls::TEdit mField{&mForm};
    Stdctrls::TCheckBox mBox{&mForm};
    Stdctrls::TButton mFirst{&mForm};
    Stdctrls::TButton mSecond{&mForm};
};

TEST_F(QtOwnColorsTest, ShareThePaletteOfTheDesktop)
{
    // What a style has painted for one button serves the others.
    EXPECT_EQ(PaletteOf("First").cacheKey(), PaletteOf("Second").cacheKey());
    EXPECT_EQ(PaletteOf("First").cacheKey(), QApplication::palette("QPushButton").cacheKey());
    EXPECT_EQ(Shown("Field", QPalette::Base), Desktop(QPalette::Base));
}

TEST_F(QtOwnColorsTest, GoAlongOnlyWhereTheyTakeTheColorOfTheirParent)
{
    const QRgb base = Desktop(QPalette::Base);
    const QRgb face = Desktop(QPalette::Window);
    const QRgb green = QColor(0, 128, 0).rgb();
    for (Controls::TWinControl* const around :
         {static_cast<Controls::TWinControl*>(&mPanel), static_cast<Controls::TWinControl*>(&mForm)}) {
        around->setColor(Graphics::clGreen);
        for (const char* const name : {"Area", "Inner", "Box"}) {
            EXPECT_EQ(Shown(name, QPalette::Window), green) << name;
        }
        EXPECT_EQ(Shown("Field", QPalette::Base), base);
        around->setColor(Graphics::clBtnFace);
        for (const char* const name : {"Area", "Inner", "Box"}) {
            EXPECT_EQ(Shown(name, QPalette::Window), face) << name;
        }
        EXPECT_EQ(Shown("Field", QPalette::Base), base);
        mPanel.setParentColor(true);
    }
}

TEST_F(QtOwnColorsTest, StayWhenTheDesktopLeavesThem)
{
    const QRgb base = Desktop(QPalette::Base);
    const QRgb face = Desktop(QPalette::Window);
    mField.setColor(Graphics::PixelToColor(base));
    mPanel.setColor(Graphics::PixelToColor(face));
    const CPalette changed(QPalette(QColor(40, 42, 44)));
    Forms::Application->ProcessMessages();
    EXPECT_EQ(Shown("Field", QPalette::Base), base);
    EXPECT_EQ(Shown("Area", QPalette::Window), face);
    EXPECT_EQ(Shown("Box", QPalette::Window), face);
    EXPECT_EQ(WidgetOf(QStringLiteral("Own")).palette().color(QPalette::Window), QColor(40, 42, 44));
}

} // namespace
