// SPDX-License-Identifier: MIT
#include "interop/Qt.h"

#include "platform/runtime/classes/Classes_Thread.h"
#include "platform/toolkit/Dialogs.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "platform/visual/menus/Menus.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Memo.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace
{

using Interop::CFormHost;
using Interop::WidgetOf;

class TPart : public Forms::TForm
{
public:
    TPart()
    {
        setName(u"Part");
        setClientWidth(200);
        setClientHeight(100);
        fEdit.setParent(this);
        fEdit.SetBounds(10, 10, 100, 24);
        fWide.setParent(this);
        fWide.setAlign(Controls::alBottom);
        fWide.OnClick = [this](System::TObject*) { ++clicks; };
    }

    Stdctrls::TEdit fEdit{this};
    Stdctrls::TButton fWide{this};
    int clicks = 0;
};

/// Lets Qt's own loop run until it is so. False if that never comes: only a fault takes so long.
template <class Test>
bool RunQtUntil(Test isTrue)
{
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (isTrue()) {
            loop.quit();
        }
    });
    look.start(1);
    QTimer::singleShot(60'000, &loop, &QEventLoop::quit);
    loop.exec();
    return isTrue();
}

/// Presses the left button on the widget and lets it go.
void Click(QWidget& widget)
{
    const QPointF place(3, 3);
    const QPointF global = widget.mapToGlobal(place);
    for (const auto& [type, buttons] : {std::pair(QEvent::MouseButtonPress, Qt::LeftButton),
                                        std::pair(QEvent::MouseButtonRelease, Qt::NoButton)}) {
        QMouseEvent mouse(type, place, global, Qt::LeftButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(&widget, &mouse);
    }
}

/// A key without a modifier that writes `a`.
void TypeA(QWidget& widget)
{
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    QApplication::sendEvent(&widget, &key);
}

TEST(QtFormHostTest, TheFormIsAsLargeAsTheWidget)
{
    TPart form;
    CFormHost host(form);
    EXPECT_EQ(host.sizeHint(), QSize(200, 100));
    host.move(40, 30);
    host.show();
    ASSERT_TRUE(RunQtUntil([&] { return WidgetOf(form) != nullptr && WidgetOf(form)->isVisible(); }));
    EXPECT_EQ(WidgetOf(form)->parentWidget(), &host);
    EXPECT_EQ(form.getClientWidth(), 200);
    host.resize(320, 150);
    EXPECT_EQ(WidgetOf(form)->geometry(), QRect(0, 0, 320, 150));
    EXPECT_EQ(form.fWide.getWidth(), 320);
    const QPoint place = WidgetOf(form.fEdit)->mapToGlobal(QPoint());
    const Types::TPoint told = form.fEdit.ClientToScreen({0, 0});
    EXPECT_EQ(place, QPoint(told.X, told.Y));
    host.move(90, 70);
    ASSERT_TRUE(RunQtUntil([&] { return form.getLeft() == host.mapToGlobal(QPoint()).x(); }));
}

TEST(QtFormHostTest, TheFormFollowsAllThatItIsIn)
{
    TPart form;
    QWidget window;
    QWidget page(&window);
    QWidget part(&page);
    CFormHost host(form, &part);
    window.resize(400, 300);
    window.show();
    ASSERT_TRUE(RunQtUntil([&] { return form.getShowing(); }));
    for (QWidget* const moved : {&window, &page, &part, static_cast<QWidget*>(&host)}) {
        moved->move(moved->pos() + QPoint(11, 7));
        ASSERT_TRUE(RunQtUntil([&] {
            const QPoint place = host.mapToGlobal(QPoint());
            return form.getLeft() == place.x() && form.getTop() == place.y();
        }));
    }
}

void PressTab(Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent key(QEvent::KeyPress, modifiers == Qt::NoModifier ? Qt::Key_Tab : Qt::Key_Backtab, modifiers,
                  QStringLiteral("\t"));
    QApplication::sendEvent(QApplication::focusWidget(), &key);
}

TEST(QtFormHostTest, TheTabKeyLeadsThroughTheForm)
{
    TPart form;
    Stdctrls::TMemo memo(&form);
    memo.setParent(&form);
    memo.SetBounds(10, 40, 100, 24);
    QWidget window;
    QVBoxLayout layout(&window);
    QLineEdit before;
    QLineEdit behind;
    CFormHost host(form);
    layout.addWidget(&before);
    layout.addWidget(&host);
    layout.addWidget(&behind);
    QWidget::setTabOrder(&before, &host);
    QWidget::setTabOrder(&host, &behind);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(RunQtUntil([&] { return window.isActiveWindow() && form.getShowing(); }));
    before.setFocus();
    PressTab();
    EXPECT_TRUE(form.fEdit.Focused());
    PressTab();
    EXPECT_TRUE(form.fWide.Focused());
    PressTab();
    EXPECT_TRUE(memo.Focused());
    PressTab();
    EXPECT_TRUE(behind.hasFocus());
    PressTab(Qt::ShiftModifier);
    EXPECT_TRUE(memo.Focused());
    memo.setWantTabs(true);
    PressTab();
    EXPECT_TRUE(memo.Focused());
    EXPECT_EQ(memo.getText(), u"\t");
    memo.setWantTabs(false);
    PressTab(Qt::ShiftModifier);
    PressTab(Qt::ShiftModifier);
    EXPECT_TRUE(form.fEdit.Focused());
    PressTab(Qt::ShiftModifier);
    EXPECT_TRUE(before.hasFocus());

    before.setEnabled(false);
    behind.setEnabled(false);
    memo.SetFocus();
    PressTab();
    EXPECT_TRUE(form.fEdit.Focused());
}

TEST(QtFormHostTest, KeysFocusAndMouseReachTheForm)
{
    TPart form;
    QWidget window;
    QVBoxLayout layout(&window);
    QLineEdit own;
    layout.addWidget(&own);
    CFormHost host(form);
    layout.addWidget(&host);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(RunQtUntil([&] { return window.isActiveWindow() && form.getActive(); }));
    WidgetOf(form.fEdit)->setFocus();
    EXPECT_TRUE(form.fEdit.Focused());
    TypeA(*WidgetOf(form.fEdit));
    EXPECT_EQ(form.fEdit.getText(), u"a");
    own.setFocus();
    EXPECT_FALSE(form.fEdit.Focused());
    form.fEdit.SetFocus();
    EXPECT_TRUE(WidgetOf(form.fEdit)->hasFocus());
    form.fWide.Click();
    EXPECT_EQ(form.clicks, 1);
}

TEST(QtFormHostTest, QtsOwnLoopServesWhatThreadsAndTimersDo)
{
    TPart form;
    CFormHost host(form);
    host.show();
    std::vector<int> order;
    Toolkits::Toolkit& toolkit = Toolkits::CurrentToolkit();
    for (int i = 0; i < 100; ++i) {
        toolkit.Post([&order, i] { order.push_back(i); });
    }
    int ticks = 0;
    const auto timer = toolkit.StartTimer(1, [&] { ++ticks; });
    ASSERT_TRUE(RunQtUntil([&] { return order.size() == 100 && ticks >= 3; }));
    EXPECT_TRUE(std::ranges::is_sorted(order));
    toolkit.StopTimer(timer);

    std::string told;
    Forms::Application->OnException = [&](System::TObject*, const std::exception& fault) {
        told = fault.what();
    };
    toolkit.Post([] { throw std::runtime_error("posted"); });
    EXPECT_TRUE(RunQtUntil([&] { return !told.empty(); }));
    EXPECT_EQ(told, "posted");
    Forms::Application->OnException = {};
}

TEST(QtFormHostTest, AModalFormKeepsTheUserFromAllOfTheWindow)
{
    TPart form;
    TPart modal;
    QWidget window;
    QVBoxLayout layout(&window);
    QLineEdit own;
    QPushButton button;
    layout.addWidget(&own);
    layout.addWidget(&button);
    CFormHost host(form);
    layout.addWidget(&host);
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, &button, [&] { ++clicks; });
    QLineEdit elsewhere;
    elsewhere.show();
    window.show();
    ASSERT_TRUE(RunQtUntil([&] { return form.getShowing(); }));
    const auto use = [&] {
        Click(button);
        TypeA(own);
        TypeA(elsewhere);
        return std::pair(clicks, own.text().size());
    };
    EXPECT_EQ(use(), std::pair(1, qsizetype{1}));

    std::optional<std::pair<int, qsizetype>> meanwhile;
    QObject::connect(&button, &QPushButton::pressed, &button, [&] {
        Toolkits::CurrentToolkit().Post([&] {
            meanwhile = use();
            TypeA(*WidgetOf(modal.fEdit));
            modal.setModalResult(mrOk);
        });
        EXPECT_EQ(modal.ShowModal(), mrOk);
    });
    button.pressed();
    EXPECT_EQ(meanwhile, std::pair(1, qsizetype{1}));
    EXPECT_EQ(modal.fEdit.getText(), u"a");
    // Windows without a form are not the library's.
    EXPECT_EQ(elsewhere.text().size(), 2);
    button.disconnect();
    QObject::connect(&button, &QPushButton::clicked, &button, [&] { ++clicks; });
    EXPECT_EQ(use(), std::pair(2, qsizetype{2}));
}

TEST(QtFormHostTest, AModalFormThatIsHostedItselfIsUsed)
{
    TPart form;
    TPart other;
    CFormHost host(form);
    CFormHost behind(other);
    host.show();
    behind.show();
    ASSERT_TRUE(RunQtUntil([&] { return form.getShowing() && other.getShowing(); }));
    form.Hide();
    QTimer::singleShot(0, &host, [&] {
        EXPECT_TRUE(form.getFormState().Contains(Forms::fsModal));
        Click(*WidgetOf(other.fWide));
        Click(*WidgetOf(form.fWide));
        form.setModalResult(mrOk);
    });
    EXPECT_EQ(form.ShowModal(), mrOk);
    EXPECT_EQ(other.clicks, 0);
    EXPECT_EQ(form.clicks, 1);
}

class TPartWithMenu : public TPart
{
public:
    TPartWithMenu()
    {
        fFile.setCaption(u"&File");
        fOpen.setCaption(u"&Open");
        fOpen.OnClick = [this](System::TObject*) { ++chosen; };
        fFile.Add(&fOpen);
        fMenu.getItems()->Add(&fFile);
        setMenu(&fMenu);
    }
    ~TPartWithMenu() override { setMenu(nullptr); }

    Menus::TMainMenu fMenu{this};
    Menus::TMenuItem fFile{this};
    Menus::TMenuItem fOpen{this};
    int chosen = 0;
};

TEST(QtFormHostTest, TheMenuBarStandsAboveTheForm)
{
    TPartWithMenu form;
    CFormHost host(form);
    host.show();
    ASSERT_TRUE(RunQtUntil([&] { return form.getShowing() && host.findChild<QMenuBar*>() != nullptr; }));
    QMenuBar& bar = *host.findChild<QMenuBar*>();
    ASSERT_TRUE(RunQtUntil([&] { return bar.isVisible() && bar.height() > 0; }));
    ASSERT_TRUE(RunQtUntil([&] { return host.height() == 100 + bar.height(); }));
    EXPECT_EQ(host.sizeHint(), QSize(200, 100 + bar.height()));
    EXPECT_EQ(form.getClientHeight(), 100);
    EXPECT_EQ(WidgetOf(form)->mapTo(&host, QPoint()), QPoint(0, bar.height()));
    EXPECT_EQ(form.fEdit.ClientToScreen({0, 0}).Y, host.mapToGlobal(QPoint()).y() + bar.height() + 10);

    host.resize(300, 200);
    EXPECT_EQ(form.getClientHeight(), 200 - bar.height());
    EXPECT_EQ(bar.width(), 300);
    ASSERT_EQ(bar.actions().size(), 1);
    ASSERT_NE(bar.actions()[0]->menu(), nullptr);
    bar.actions()[0]->menu()->actions()[0]->trigger();
    EXPECT_TRUE(RunQtUntil([&] { return form.chosen == 1; }));

    form.setMenu(nullptr);
    EXPECT_TRUE(RunQtUntil([&] { return form.getClientHeight() == 200; }));
    EXPECT_EQ(WidgetOf(form)->mapTo(&host, QPoint()), QPoint());
    form.setMenu(&form.fMenu);
    EXPECT_TRUE(RunQtUntil([&] { return form.getClientHeight() == 200 - bar.height(); }));
}

TEST(QtFormHostTest, ASecondHostTakesTheForm)
{
    TPart form;
    auto first = std::make_unique<CFormHost>(form);
    first->show();
    ASSERT_TRUE(RunQtUntil([&] { return form.getShowing(); }));
    CFormHost second(form);
    EXPECT_EQ(first->getForm(), nullptr);
    EXPECT_EQ(second.getForm(), &form);
    second.show();
    ASSERT_TRUE(RunQtUntil([&] { return form.getShowing(); }));
    first->resize(50, 50);
    first.reset();
    EXPECT_TRUE(form.getVisible());
    EXPECT_EQ(form.getWidth(), second.width());
    EXPECT_EQ(WidgetOf(form)->parentWidget(), &second);
}

TEST(QtFormHostTest, WhatHandlersRaiseDoesNotGoThroughQt)
{
    std::vector<std::string> told;
    Forms::Application->OnException = [&](System::TObject*, const std::exception& fault) {
        told.emplace_back(fault.what());
    };
    {
        TPart form;
        form.OnShow = [](System::TObject*) { throw std::runtime_error("show"); };
        form.OnResize = [](System::TObject*) { throw std::runtime_error("resize"); };
        form.OnHide = [](System::TObject*) { throw std::runtime_error("hide"); };
        auto host = std::make_unique<CFormHost>(form);
        host->show();
        host->resize(300, 90);
        host.reset();
        EXPECT_TRUE(RunQtUntil([&] { return std::ranges::count(told, "hide") == 1; }));
        form.OnResize = {};
    }
    EXPECT_EQ(std::ranges::count(told, "show"), 1);
    EXPECT_GE(std::ranges::count(told, "resize"), 1);
    Forms::Application->OnException = {};
}

TEST(QtFormHostTest, QtQuitsThoughFormsAreShown)
{
    TPart form;
    TPart refusing;
    bool mayClose = false;
    refusing.OnCloseQuery = [&](System::TObject*, bool& canClose) { canClose = mayClose; };
    form.Show();
    refusing.Show();
    QTimer::singleShot(0, qApp, [] { QApplication::quit(); });
    QTimer again;
    QObject::connect(&again, &QTimer::timeout, qApp, [&] {
        EXPECT_TRUE(refusing.getVisible());
        mayClose = true;
        QApplication::quit();
    });
    again.start(200);
    QTimer::singleShot(60'000, &again, [] { QApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(mayClose);
    EXPECT_FALSE(form.getVisible());
    EXPECT_FALSE(refusing.getVisible());
}

TEST(QtFormHostTest, EitherMayEndFirst)
{
    auto form = std::make_unique<TPart>();
    auto host = std::make_unique<CFormHost>(*form);
    host->show();
    ASSERT_TRUE(RunQtUntil([&] { return form->getShowing(); }));
    form.reset();
    EXPECT_EQ(host->getForm(), nullptr);
    EXPECT_TRUE(host->findChildren<QWidget*>().isEmpty());
    host->resize(50, 50);
    host.reset();

    TPart other;
    {
        QWidget window;
        auto* const inner = new CFormHost(other, &window);
        window.show();
        inner->show();
        ASSERT_TRUE(RunQtUntil([&] { return other.getShowing(); }));
    }
    EXPECT_FALSE(other.getVisible());
    EXPECT_EQ(other.getHost(), nullptr);
    other.Show();
    EXPECT_TRUE(WidgetOf(other)->isWindow());
}

TEST(QtFormHostTest, AHandlerOfTheFormMayEndItsHost)
{
    TPart form;
    auto* const host = new CFormHost(form);
    host->show();
    ASSERT_TRUE(RunQtUntil([&] { return form.getShowing(); }));
    bool isGone = false;
    QObject::connect(host, &QObject::destroyed, host, [&] { isGone = true; });
    form.fWide.OnClick = [&](System::TObject*) { delete host; };
    Click(*WidgetOf(form.fWide));
    EXPECT_TRUE(isGone);
    EXPECT_FALSE(form.getVisible());
    RunQtUntil([] { return true; });
}

} // namespace
