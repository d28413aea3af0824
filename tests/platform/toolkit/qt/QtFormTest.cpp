// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtForm.h"

#include "platform/toolkit/Dialogs.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/menus/Menus.h"
#include "platform/visual/stdctrls/Extctrls_Timer.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "support/ChildProgram.h"
#include "support/RunUntil.h"
#include "support/ScopedVariable.h"
#include "support/TempFolder.h"
#include "support/VirtualScreen.h"

#include <QApplication>
#include <QMenuBar>
#include <QPixmap>
#include <QScreen>
#include <QWindow>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

// A form on a real screen: keys and mouse come from the X server, as those of a user do.

namespace
{

using Forms::TForm;
using Support::RunUntil;
using System::TObject;
using System::UnicodeString;

class TMeasureForm final : public TForm
{
public:
    TMeasureForm()
    {
        setName(u"Measure");
        setCaption(u"Measure");
        setBorderStyle(Forms::bsDialog);
        SetBounds(100, 80, 320, 200);
        setPosition(Forms::poDesigned);
        Place(fLabel, u"fLabel", {20, 20, 280, 40});
        Place(fEdit, u"fEdit", {20, 50, 200, 80});
        Place(fButton, u"fButton", {20, 100, 120, 130});
        fLabel.setCaption(u"<b>Voltage</b> in volts, 50 % to 100 %");
        fEdit.setText(UnicodeString());
        fButton.setCaption(u"&Start");
        fButton.OnClick = [this](TObject*) {
            fLabel.setCaption(u"Started with " + fEdit.getText());
            ++clicks;
        };
        timer.setInterval(5);
        timer.setOnTimer([this](TObject*) { ++ticks; });
    }

    Stdctrls::TLabel fLabel{this};
    Stdctrls::TEdit fEdit{this};
    Stdctrls::TButton fButton{this};
    Extctrls::TTimer timer{this};
    int clicks = 0;
    int ticks = 0;

private:
    void Place(Controls::TControl& control, const char16_t* name, Types::TRect bounds)
    {
        control.setName(name);
        control.setParent(this);
        control.setBoundsRect(bounds);
    }
};

/// Has the X server do something with its keyboard and mouse.
void Use(const std::string& command)
{
    ASSERT_EQ(std::system(("xdotool " + command).c_str()), 0) << command;
}

void ClickOn(Controls::TControl& control)
{
    const Types::TPoint place = control.ClientToScreen({control.getWidth() / 2, control.getHeight() / 2});
    Use("mousemove " + std::to_string(place.X) + " " + std::to_string(place.Y) + " click 1");
}

/// Keeps what is seen: in the folder that a variable names, for somebody to look at, or else in one of the
/// test.
QImage TakePicture(const std::string& name)
{
    Forms::Application->ProcessMessages();
    const Support::TempFolder folder;
    const char* const kept = std::getenv("TRS8_BTL_SCREENSHOTS");
    const std::filesystem::path file = (kept == nullptr ? folder.Path() : std::filesystem::path(kept)) / name;
    const QPixmap screen = QGuiApplication::primaryScreen()->grabWindow(0);
    EXPECT_TRUE(screen.save(QString::fromStdString(file.string()), "PNG"));
    QImage image;
    EXPECT_TRUE(image.load(QString::fromStdString(file.string())));
    return image;
}

/// How many pixels of a control are dark, as those of its text are.
int CountDark(const QImage& image, const Controls::TControl& control)
{
    const Types::TPoint corner = control.ClientToScreen({0, 0});
    int count = 0;
    for (int y = 0; y < control.getHeight(); ++y) {
        for (int x = 0; x < control.getWidth(); ++x) {
            count += qGray(image.pixel(corner.X + x, corner.Y + y)) < 96;
        }
    }
    return count;
}

TEST(QtScreenTest, DISABLED_FormIsUsedByKeysAndMouse)
{
    TMeasureForm form;
    form.Show();
    ASSERT_TRUE(RunUntil([&] { return form.ticks > 3 && QApplication::activeWindow() != nullptr; }));
    ClickOn(form.fEdit);
    ASSERT_TRUE(RunUntil([&] { return form.fEdit.Focused(); }));
    Use("type 12,5");
    ASSERT_TRUE(RunUntil([&] { return form.fEdit.getText() == u"12,5"; }));
    Use("key BackSpace key 7");
    ASSERT_TRUE(RunUntil([&] { return form.fEdit.getText() == u"12,7"; }));
    const QImage before = TakePicture("before.png");
    EXPECT_GT(CountDark(before, form.fLabel), 100);
    EXPECT_GT(CountDark(before, form.fEdit), 20);
    ClickOn(form.fButton);
    ASSERT_TRUE(RunUntil([&] { return form.clicks == 1; }));
    EXPECT_EQ(form.fLabel.getCaption(), u"Started with 12,7");
    EXPECT_TRUE(form.fButton.Focused());
    Use("key Tab");
    ASSERT_TRUE(RunUntil([&] { return form.fEdit.Focused(); }));
    Use("key alt+s");
    ASSERT_TRUE(RunUntil([&] { return form.clicks == 2; }));
    EXPECT_NE(TakePicture("after.png"), before);
    Support::PrintResult("used");
}

TEST(QtScreenTest, DISABLED_ModalFormAndBoxAreAnswered)
{
    TMeasureForm behind;
    behind.Show();
    TForm form;
    form.setBorderStyle(Forms::bsDialog);
    form.setPosition(Forms::poDesigned);
    form.SetBounds(450, 300, 200, 120);
    Stdctrls::TButton ok(&form);
    ok.setParent(&form);
    ok.SetBounds(20, 20, 100, 30);
    ok.setModalResult(mrOk);
    int box = 0;
    ok.OnClick = [&](TObject*) {
        const auto timer =
            Toolkits::CurrentToolkit().StartTimer(200, [] { std::system("xdotool key Return"); });
        box = MessageBoxW(nullptr, u"Sure?", u"Measure", MB_OKCANCEL | MB_ICONQUESTION);
        Toolkits::CurrentToolkit().StopTimer(timer);
    };
    const auto timer = Toolkits::CurrentToolkit().StartTimer(200, [&] {
        // What is behind can't be used; the button in front can.
        if (box == 0 && QApplication::activeModalWidget() == nullptr) {
            ClickOn(behind.fButton);
            ClickOn(ok);
        }
    });
    EXPECT_EQ(form.ShowModal(), mrOk);
    Toolkits::CurrentToolkit().StopTimer(timer);
    EXPECT_EQ(box, IDOK);
    EXPECT_EQ(behind.clicks, 0);
    Support::PrintResult("answered");
}

TEST(QtScreenTest, DISABLED_MenuIsUsedByKeys)
{
    TMeasureForm form;
    Menus::TMainMenu menu(&form);
    Menus::TMenuItem file(&form);
    Menus::TMenuItem save(&form);
    file.setCaption(u"&File");
    save.setCaption(u"&Save");
    save.setShortCut(Menus::TextToShortCut(u"Ctrl+S"));
    int saved = 0;
    save.OnClick = [&](TObject*) { ++saved; };
    menu.getItems()->Add(&file);
    file.Add(&save);
    form.setMenu(&menu);
    form.Show();
    ASSERT_TRUE(RunUntil([&] { return form.ticks > 3 && QApplication::activeWindow() != nullptr; }));
    ClickOn(form.fEdit);
    ASSERT_TRUE(RunUntil([&] { return form.fEdit.Focused(); }));
    const auto open = [] { return QApplication::activePopupWidget(); };
    const auto* const bar = QApplication::activeWindow()->findChild<QMenuBar*>();
    Use("key Alt_L");
    ASSERT_TRUE(RunUntil([&] { return bar->activeAction() != nullptr; }));
    EXPECT_TRUE(form.fEdit.Focused());
    Use("key Down");
    ASSERT_TRUE(RunUntil([&] { return open() != nullptr; }));
    Use("key Escape");
    ASSERT_TRUE(RunUntil([&] { return open() == nullptr; }));
    Use("key ctrl+s type 1");
    ASSERT_TRUE(RunUntil([&] { return form.fEdit.getText() == u"1"; }));
    EXPECT_EQ(saved, 1);
    Use("key alt+f");
    ASSERT_TRUE(RunUntil([&] { return open() != nullptr; }));
    Use("key Escape");
    ASSERT_TRUE(RunUntil([&] { return open() == nullptr; }));
    Use("key ctrl+s type 2");
    ASSERT_TRUE(RunUntil([&] { return form.fEdit.getText() == u"12"; }));
    EXPECT_EQ(saved, 2);
    Use("key Alt_L");
    ASSERT_TRUE(RunUntil([&] { return bar->activeAction() != nullptr; }));
    Use("key Return");
    ASSERT_TRUE(RunUntil([&] { return open() != nullptr; }));
    Use("key s");
    ASSERT_TRUE(RunUntil([&] { return saved == 3; }));
    Use("type 3");
    ASSERT_TRUE(RunUntil([&] { return form.fEdit.getText() == u"123"; }));
    Support::PrintResult("chosen");
}

TEST(QtFormTest, IsUsedOnAScreen)
{
    const Support::VirtualScreen screen;
    if (!screen.IsThere() || std::system("command -v xdotool >/dev/null") != 0) {
        GTEST_SKIP() << "Xvfb or xdotool isn't installed.";
    }
    const Support::ScopedVariable display("DISPLAY", screen.Display());
    const Support::ScopedVariable platform("QT_QPA_PLATFORM", "xcb");
    EXPECT_EQ(Support::RunChildTest("QtScreenTest.DISABLED_FormIsUsedByKeysAndMouse"), "used");
    EXPECT_EQ(Support::RunChildTest("QtScreenTest.DISABLED_MenuIsUsedByKeys"), "chosen");
    EXPECT_EQ(Support::RunChildTest("QtScreenTest.DISABLED_ModalFormAndBoxAreAnswered"), "answered");
}

/// The widget of the only form that is shown.
QWidget& FormWidget()
{
    const auto all = QApplication::topLevelWidgets();
    return **std::ranges::find_if(all, [](const QWidget* widget) { return widget->isVisible(); });
}

TEST(QtFormTest, HearsWhatTheScreenMakesOfItsBounds)
{
    TForm form;
    form.setPosition(Forms::poDesigned);
    form.SetBounds(100, 80, 320, 200);
    form.Show();
    Forms::Application->ProcessMessages();
    QWidget& widget = FormWidget();
    const QRect before = widget.geometry();
    widget.windowHandle()->setGeometry(before.adjusted(10, 20, 40, 60));
    Forms::Application->ProcessMessages();
    EXPECT_EQ(form.getBoundsRect(), (Types::TRect{110, 100, 460, 340}));
}

TEST(QtFormTest, DoesntFightAScreenThatInsists)
{
    TForm form;
    form.setPosition(Forms::poDesigned);
    form.SetBounds(100, 80, 320, 200);
    form.getConstraints()->setMaxWidth(400);
    form.Show();
    Forms::Application->ProcessMessages();
    QWidget& widget = FormWidget();
    // As a desktop that lays its windows out in tiles, each time that it is asked for another size.
    int asked = 0;
    for (; asked < 20; ++asked) {
        const QRect former = widget.geometry();
        widget.windowHandle()->setGeometry(QRect(former.topLeft(), QSize(800, 300)));
        Forms::Application->ProcessMessages();
        if (widget.width() == 800) {
            break;
        }
    }
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(form.getWidth(), 400);
}

TEST(QtScreensTest, DISABLED_FormGoesToAScreenOfAnotherScale)
{
    EXPECT_EQ(Forms::Screen->getDesktopRect(), (Types::TRect{0, 0, 2624, 1200}));
    EXPECT_EQ(Forms::Screen->getWidth(), 1024);
    EXPECT_EQ(Forms::Screen->getHeight(), 768);
    TForm form;
    form.SetBounds(0, 0, 300, 200);
    form.setPosition(Forms::poScreenCenter);
    int painted = 0;
    form.OnPaint = [&](TObject*) {
        form.getCanvas()->MoveTo(10, 10);
        form.getCanvas()->LineTo(30, 10);
        ++painted;
    };
    form.Show();
    Forms::Application->ProcessMessages();
    EXPECT_EQ(form.getLeft(), (1024 - 300) / 2);
    const auto lineHeight = [] {
        const QImage image = FormWidget().grab().toImage();
        const int x = qRound(20 * image.devicePixelRatio());
        int height = 0;
        for (int y = 0; y < image.height(); ++y) {
            height += image.pixel(x, y) == qRgb(0, 0, 0);
        }
        return height;
    };
    EXPECT_EQ(lineHeight(), 1);
    const int before = painted;
    form.SetBounds(1100, 100, 300, 200);
    Forms::Application->ProcessMessages();
    EXPECT_GT(painted, before);
    EXPECT_EQ(lineHeight(), 2);
    Support::PrintResult("moved");
}

TEST(QtFormTest, IsSharpOnEachScreen)
{
    const Support::TempFolder folder;
    const auto file = folder.Path() / "screens.json";
    std::ofstream(file) << R"({"screens": [
        {"name": "one", "x": 0, "y": 0, "width": 1024, "height": 768, "dpr": 1,
         "logicalDpi": 96, "logicalBaseDpi": 96},
        {"name": "two", "x": 1024, "y": 0, "width": 1600, "height": 1200, "dpr": 2,
         "logicalDpi": 96, "logicalBaseDpi": 96}]})";
    const Support::ScopedVariable platform("QT_QPA_PLATFORM", "offscreen:configfile=" + file.string());
    EXPECT_EQ(Support::RunChildTest("QtScreensTest.DISABLED_FormGoesToAScreenOfAnotherScale"), "moved");
}

} // namespace
