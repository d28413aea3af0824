// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtDesktop.h"

#include "interop/QtFormHost.h"
#include "platform/toolkit/Dialogs.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <functional>
#include <utility>

namespace
{

using Interop::WidgetOf;

void Send(const Controls::TWinControl& control, QEvent::Type type, int key)
{
    QWidget* const widget = WidgetOf(control);
    if (type == QEvent::KeyPress) {
        QKeyEvent event(type, key, Qt::NoModifier, QStringLiteral("a"));
        QApplication::sendEvent(widget, &event);
    } else {
        const QPointF place(2, 2);
        QMouseEvent event(type, place, widget->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }
}

TEST(QtDesktopTest, AFormMayEndWithinEachEventOfItsWindow)
{
    struct TParts
    {
        Forms::TForm* form;
        Stdctrls::TEdit* edit;
        Stdctrls::TButton* button;
    };
    const std::function<void()> none;
    const struct
    {
        const char* name;
        /// Has an event call `end`.
        void (*set)(const TParts& parts, std::function<void()> end);
        void (*use)(const TParts& parts);
    } rows[] = {
        {"click",
         [](const TParts& parts, auto end) { parts.button->OnClick = [end](System::TObject*) { end(); }; },
         [](const TParts& parts) {
             Send(*parts.button, QEvent::MouseButtonPress, 0);
             Send(*parts.button, QEvent::MouseButtonRelease, 0);
         }},
        {"key",
         [](const TParts& parts, auto end) {
             parts.edit->OnKeyDown = [end](System::TObject*, System::Word&, Classes::TShiftState) { end(); };
         },
         [](const TParts& parts) { Send(*parts.edit, QEvent::KeyPress, Qt::Key_A); }},
        {"text",
         [](const TParts& parts, auto end) { parts.edit->OnChange = [end](System::TObject*) { end(); }; },
         [](const TParts& parts) { Send(*parts.edit, QEvent::KeyPress, Qt::Key_A); }},
        {"mouse",
         [](const TParts& parts, auto end) {
             parts.form->OnMouseDown = [end](System::TObject*, Controls::TMouseButton, Classes::TShiftState,
                                             int, int) { end(); };
         },
         [](const TParts& parts) { Send(*parts.form, QEvent::MouseButtonPress, 0); }},
        {"close",
         [](const TParts& parts, auto end) {
             parts.form->OnCloseQuery = [end](System::TObject*, bool&) { end(); };
         },
         [](const TParts& parts) { WidgetOf(*parts.form)->close(); }},
        {"paint",
         [](const TParts& parts, auto end) { parts.form->OnPaint = [end](System::TObject*) { end(); }; },
         [](const TParts& parts) { WidgetOf(*parts.form)->repaint(); }},
        {"size",
         [](const TParts& parts, auto end) { parts.form->OnResize = [end](System::TObject*) { end(); }; },
         [](const TParts& parts) { parts.form->setWidth(parts.form->getWidth() + 10); }},
        {"focus",
         [](const TParts& parts, auto end) { parts.button->OnEnter = [end](System::TObject*) { end(); }; },
         [](const TParts& parts) { WidgetOf(*parts.button)->setFocus(); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        auto* form = new Forms::TForm;
        auto* const edit = new Stdctrls::TEdit(form);
        edit->setParent(form);
        auto* const button = new Stdctrls::TButton(form);
        button->setParent(form);
        button->SetBounds(0, 60, 80, 25);
        form->Show();
        Forms::Application->ProcessMessages();
        const TParts parts{form, edit, button};
        row.set(parts, [&form] { delete std::exchange(form, nullptr); });
        Toolkits::CurrentToolkit().Post([&] { row.use(parts); });
        Forms::Application->ProcessMessages();
        EXPECT_EQ(form, nullptr);
        delete form;
    }
}

TEST(QtDesktopTest, AHundredModalFormsStandAboveEachOther)
{
    constexpr int most = 100;
    int depth = 0;
    int deepest = 0;
    std::function<void()> show = [&] {
        Forms::TForm form;
        deepest = std::max(deepest, ++depth);
        Toolkits::CurrentToolkit().Post([&] {
            if (depth < most) {
                show();
            }
            form.setModalResult(mrOk);
        });
        EXPECT_EQ(form.ShowModal(), mrOk);
        --depth;
    };
    Forms::TForm behind;
    behind.Show();
    show();
    EXPECT_EQ(deepest, most);
    EXPECT_EQ(depth, 0);
    EXPECT_TRUE(WidgetOf(behind)->isVisible());
}

} // namespace
