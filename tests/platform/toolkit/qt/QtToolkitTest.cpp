// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtToolkit.h"

#include "platform/host/internal/Host_Wakeup.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/toolkit/PaintDevice.h"
#include "platform/toolkit/Watch.h"
#include "platform/toolkit/qt/WindowLog.h"
#include "support/DrawnPixels.h"

#include <QApplication>
#include <QClipboard>
#include <QCursor>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

namespace
{

using Support::TShownWindow;
using System::UnicodeString;
using Toolkits::CurrentToolkit;
using Toolkits::Pixels;

void Press(QWidget* widget, int key)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
    }
}

QMessageBox* ShownBox()
{
    return dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
}

TEST(QtToolkitTest, ShowsBoxesWithTheirButtons)
{
    struct TCase
    {
        unsigned flags;
        QMessageBox::StandardButton pressed;
        int expected;
    };
    for (const TCase& row :
         {TCase{MB_OK | MB_ICONSTOP, QMessageBox::Ok, IDOK},
          TCase{MB_OKCANCEL, QMessageBox::Cancel, IDCANCEL},
          TCase{MB_YESNO | MB_ICONQUESTION, QMessageBox::No, IDNO},
          TCase{MB_YESNOCANCEL, QMessageBox::Yes, IDYES}, TCase{MB_RETRYCANCEL, QMessageBox::Retry, IDRETRY},
          TCase{MB_ABORTRETRYIGNORE, QMessageBox::Ignore, IDIGNORE}}) {
        CurrentToolkit().Post([&row] {
            QMessageBox* const box = ShownBox();
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text(), QStringLiteral("<b>a</b>"));
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            EXPECT_EQ(box->icon() == QMessageBox::NoIcon, (row.flags & MB_ICONMASK) == 0);
            box->button(row.pressed)->click();
        });
        EXPECT_EQ(CurrentToolkit().ShowBox({.text = u"<b>a</b>", .caption = u"c", .flags = row.flags}),
                  row.expected);
    }
}

TEST(QtToolkitTest, LeavesABoxByEscapeOnlyWhereItHasAButtonForIt)
{
    using TCase = std::pair<unsigned, int>;
    for (const auto& [flags, expected] : {TCase(MB_OK, IDOK), {MB_OKCANCEL, IDCANCEL}, {MB_YESNO, IDYES}}) {
        CurrentToolkit().Post([] {
            Press(ShownBox(), Qt::Key_Escape);
            if (QMessageBox* const box = ShownBox(); box != nullptr && box->isVisible()) {
                box->close();
                EXPECT_TRUE(box->isVisible());
                box->button(QMessageBox::Yes)->click();
            }
        });
        EXPECT_EQ(CurrentToolkit().ShowBox({.text = u"t", .caption = u"c", .flags = flags}), expected);
    }
}

TEST(QtToolkitTest, HasTheDefaultButtonThatTheFlagsName)
{
    CurrentToolkit().Post([] {
        EXPECT_EQ(ShownBox()->defaultButton(), ShownBox()->button(QMessageBox::No));
        Press(ShownBox(), Qt::Key_Return);
    });
    constexpr unsigned second = 0x100;
    EXPECT_EQ(CurrentToolkit().ShowBox({.text = u"t", .caption = u"c", .flags = MB_YESNO | second}), IDNO);
}

TEST(QtToolkitTest, HandsOnWhatIsRaisedWhileABoxIsShown)
{
    CurrentToolkit().Post([] { throw std::runtime_error("meanwhile"); });
    CurrentToolkit().Post([] { ShownBox()->button(QMessageBox::Ok)->click(); });
    EXPECT_EQ(CurrentToolkit().ShowBox({.text = u"t", .caption = u"c"}), IDOK);
    EXPECT_THROW(while (CurrentToolkit().ProcessMessage()){}, std::runtime_error);
}

TEST(QtToolkitTest, AsksForALine)
{
    for (const bool isAgreed : {true, false}) {
        CurrentToolkit().Post([isAgreed] {
            QWidget* const dialog = QApplication::activeModalWidget();
            auto* const line = dialog->findChild<QLineEdit*>();
            EXPECT_EQ(line->text(), QStringLiteral("old"));
            line->setText(QStringLiteral("new"));
            Press(line, isAgreed ? Qt::Key_Return : Qt::Key_Escape);
        });
        UnicodeString value = u"old";
        EXPECT_EQ(CurrentToolkit().AskInput({.caption = u"c", .prompt = u"p", .value = value}, value),
                  isAgreed);
        EXPECT_EQ(value, isAgreed ? u"new" : u"old");
    }
}

TEST(QtToolkitTest, GivesWhatIsChosenInAMenu)
{
    const std::vector<Toolkits::TMenuEntry> entries = {
        {.id = 1, .caption = u"&Open", .shortCut = u"Ctrl+O"},
        {.caption = u"-"},
        {.id = 2, .caption = u"More", .entries = {{.id = 3, .caption = u"Last", .isChecked = true}}},
        {.id = 4, .caption = u"Never", .isEnabled = false}};
    using TCase = std::pair<const char*, int>;
    for (const auto& [path, expected] : {TCase("d!", 1), {"dd!!", 3}, {"e", 0}}) {
        CurrentToolkit().Post([keys = std::string(path)] {
            for (const char key : keys) {
                QWidget* const menu = QApplication::activePopupWidget();
                ASSERT_NE(dynamic_cast<QMenu*>(menu), nullptr);
                Press(menu, key == 'd' ? Qt::Key_Down : key == '!' ? Qt::Key_Return : Qt::Key_Escape);
            }
        });
        EXPECT_EQ(CurrentToolkit().ShowMenu(entries, {10, 10}), expected);
    }
}

TEST(QtToolkitTest, TicksUntilItIsStopped)
{
    int ticks = 0;
    Toolkits::TTimerId timer = 0;
    timer = CurrentToolkit().StartTimer(1, [&] {
        if (++ticks == 3) {
            CurrentToolkit().StopTimer(timer);
        }
    });
    const auto failing = CurrentToolkit().StartTimer(1, [] { throw std::runtime_error("tick"); });
    bool isRaised = false;
    while (ticks < 3 || !isRaised) {
        try {
            if (!CurrentToolkit().ProcessMessage()) {
                CurrentToolkit().WaitMessage();
            }
        } catch (const std::runtime_error&) {
            isRaised = true;
            CurrentToolkit().StopTimer(failing);
        }
    }
    EXPECT_NE(timer, failing);
    EXPECT_EQ(ticks, 3);
}

TEST(QtToolkitTest, RunsWhatThreadsPostInOrderAndNestsLoops)
{
    std::vector<int> done;
    std::thread poster([&done] {
        for (int i = 0; i < 1000; ++i) {
            CurrentToolkit().Post([&done, i] { done.push_back(i); });
        }
    });
    while (done.size() < 1000) {
        if (!CurrentToolkit().ProcessMessage()) {
            CurrentToolkit().WaitMessage();
        }
    }
    poster.join();
    EXPECT_TRUE(std::ranges::is_sorted(done));

    int depth = 0;
    std::function<void()> nest = [&] {
        if (++depth < 100) {
            CurrentToolkit().Post(nest);
            while (CurrentToolkit().ProcessMessage()) {
            }
        }
    };
    nest();
    EXPECT_EQ(depth, 100);
}

TEST(QtToolkitTest, LooksAfterDescriptors)
{
    const Host::Wakeup source;
    int runs = 0;
    const Toolkits::Watch watch(source.Get(), [&] {
        if (++runs == 3) {
            static_cast<void>(source.Take());
        }
    });
    source.Wake();
    while (runs < 3) {
        if (!CurrentToolkit().ProcessMessage()) {
            CurrentToolkit().WaitMessage();
        }
    }
    while (CurrentToolkit().ProcessMessage()) {
    }
    EXPECT_EQ(runs, 3);
}

TEST(QtToolkitTest, LetsTheUserWorkWithOneWindowAlone)
{
    TShownWindow one(Toolkits::EWindowKind::Canvas);
    TShownWindow other(Toolkits::EWindowKind::Canvas);
    std::string order;
    CurrentToolkit().PostInput(*one.window, [&] { order += "one "; });
    CurrentToolkit().PostInput(*other.window, [&] { order += "other "; });
    CurrentToolkit().Post([&] { order += "posted "; });
    while (CurrentToolkit().ProcessInput(*other.form)) {
    }
    EXPECT_EQ(order, "other ");
    while (CurrentToolkit().ProcessMessage()) {
    }
    EXPECT_EQ(order, "other posted one ");
}

TEST(QtToolkitTest, DrawsTextsAsLargeAsItMeasuresThem)
{
    const Toolkits::TFontData font{.name = u"Sans", .height = -16};
    const UnicodeString text = u"Hill";
    const Types::TSize extent = CurrentToolkit().TextExtent(font, text);
    const Toolkits::TTextMetrics metrics = CurrentToolkit().FontMetrics(font);
    EXPECT_EQ(extent.cy, metrics.height);
    EXPECT_EQ(metrics.height, metrics.ascent + metrics.descent);
    EXPECT_GT(CurrentToolkit().TextExtent(font, text + text).cx, extent.cx);
    Pixels pixels(extent.cx + 40, extent.cy + 40, Support::White);
    const Types::TRect clip{0, 0, pixels.getWidth(), 20 + metrics.ascent};
    CurrentToolkit().NewPixelDevice(pixels)->Text({20, 20}, text, font, {.clip = &clip});
    int inside = 0;
    int outside = 0;
    for (int y = 0; y < pixels.getHeight(); ++y) {
        for (int x = 0; x < pixels.getWidth(); ++x) {
            const bool isWithin = x >= 19 && x <= 20 + extent.cx && y >= 20 && y < 20 + metrics.ascent;
            (isWithin ? inside : outside) += pixels.At(x, y) != Support::White;
        }
    }
    EXPECT_GT(inside, 20);
    EXPECT_EQ(outside, 0);
}

TEST(QtToolkitTest, SharesTheClipboard)
{
    EXPECT_TRUE(CurrentToolkit().SetClipboardText(u"12,5 kΩ"));
    EXPECT_EQ(CurrentToolkit().GetClipboardText(), u"12,5 kΩ");
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("12,5 kΩ"));
    const Pixels picture(3, 2, Support::Red);
    EXPECT_TRUE(CurrentToolkit().SetClipboardPixels(picture));
    EXPECT_EQ(CurrentToolkit().GetClipboardPixels(), picture);
}

TEST(QtToolkitTest, RefusesMoreOnTheClipboardThanATextShouldHave)
{
    constexpr int most = Toolkits::Toolkit::MaxClipboardText;
    EXPECT_TRUE(CurrentToolkit().SetClipboardText(u"before"));
    const System::UnicodeString longer = System::UnicodeString::StringOfChar(u'a', most + 1);
    EXPECT_FALSE(CurrentToolkit().SetClipboardText(longer));
    EXPECT_EQ(CurrentToolkit().GetClipboardText(), u"before");
    // As another program may put it there.
    QApplication::clipboard()->setText(QString(most + 1, u'a'));
    EXPECT_EQ(CurrentToolkit().GetClipboardText(), u"");
    QApplication::clipboard()->setText(QString(most, u'a'));
    EXPECT_EQ(CurrentToolkit().GetClipboardText().Length(), most);
    QApplication::clipboard()->clear();
}

TEST(QtToolkitTest, SetsTheCursorAndGivesItBack)
{
    CurrentToolkit().SetCursor(-11);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    CurrentToolkit().SetCursor(0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

} // namespace
