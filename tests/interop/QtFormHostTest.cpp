// SPDX-License-Identifier: MIT
#include "interop/Qt.h"

#include "platform/runtime/classes/Classes_Thread.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTimer>
#include <QVBoxLayout>

#include <memory>
#include <stdexcept>

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
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    QApplication::sendEvent(WidgetOf(form.fEdit), &key);
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
    const QPointF place(3, 3);
    QWidget* const button = WidgetOf(form.fWide);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent mouse(type, place, button->mapToGlobal(place), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(button, &mouse);
    }
    EXPECT_TRUE(isGone);
    EXPECT_FALSE(form.getVisible());
    RunQtUntil([] { return true; });
}

} // namespace
