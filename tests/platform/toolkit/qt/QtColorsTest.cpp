// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtColors.h"

#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
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

} // namespace
