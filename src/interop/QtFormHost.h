// SPDX-License-Identifier: MIT
#pragma once

#include "interop/QtValues.h"

#include "platform/runtime/classes/Classes_ComponentLink.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/forms/Forms_Screen.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <exception>
#include <utility>

namespace Interop
{

/// The widget that stands for a control on the screen, for what only Qt can do; the library still owns and
/// fills it. Null while the control has no window, or none of Qt's.
inline QWidget* WidgetOf(const Controls::TWinControl& control)
{
    const Toolkits::Window* const window = control.GetWindow();
    return window == nullptr ? nullptr : static_cast<QWidget*>(window->NativeObject());
}

/// A form of the library within a window of Qt's. The form has no frame there and is as large as the widget,
/// below its menu bar if it has a `Menu`; the first size of the widget is that of the form. It is shown with
/// the widget for the first time; from then on `Hide` and `Show` of the form are up to the program. The
/// program's loop may be Qt's: what is posted, timers and threads are served there too. The Tab key leads
/// through the form and on to what is behind it. While a form of the library is shown modally, the user is
/// kept from all of the window that the widget is in. What the form's handlers raise goes to
/// `Forms::Application->OnException`, or is shown in a box.
///
/// The form stays the caller's. Either of the two may be destroyed first: the widget is empty then, or the
/// form hidden and one of the screen's again. A second host takes the form from the first one, which is empty
/// from then on. Where the toolkit in use isn't "qt" the widget stays empty.
///
///     QApplication application(argc, argv);
///     TMeasureForm form;
///     QMainWindow window;
///     window.setCentralWidget(new Interop::CFormHost(form));
///     window.show();
///     return application.exec();
class CFormHost : public QWidget
{
public:
    explicit CFormHost(Forms::TCustomForm& form, QWidget* parent = nullptr)
        : QWidget(parent), mForm(&form), mFirstSize(form.getClientWidth(), form.getClientHeight())
    {
        Guard([&] {
            if (form.getHost() != nullptr) {
                form.Hide();
            }
            form.setHost(this);
        });
        resize(mFirstSize);
        setFocusPolicy(Qt::TabFocus);
        // Of what it is in, whatever that comes to be.
        QCoreApplication::instance()->installEventFilter(this);
    }
    CFormHost(const CFormHost&) = delete;
    CFormHost& operator=(const CFormHost&) = delete;
    ~CFormHost() override
    {
        WithForm([](Forms::TCustomForm& form) { form.Hide(); });
        WithForm([](Forms::TCustomForm& form) { form.setHost(nullptr); });
    }

    /// Null once the form is gone, or in another host.
    Forms::TCustomForm* getForm() const noexcept
    {
        auto* const form = static_cast<Forms::TCustomForm*>(mForm.getComponent());
        return form != nullptr && form->getHost() == this ? form : nullptr;
    }

    /// That of the form as it was, with its menu bar.
    QSize sizeHint() const override { return mFirstSize + QSize(0, mBarHeight); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // Where the form lies on the screen changes with all that it is in.
        if (event->type() == QEvent::Move && watched->isWidgetType() && watched != this &&
            static_cast<const QWidget*>(watched)->isAncestorOf(this)) {
            FollowWidget();
        }
        if (IsInput(*event) && IsInWindow(watched) && IsKeptFromUser()) {
            event->ignore();
            return true;
        }
        if (event->type() == QEvent::KeyPress && IsAtItsEnd(watched, static_cast<QKeyEvent&>(*event))) {
            LeaveForm(static_cast<QKeyEvent&>(*event));
            return true;
        }
        return QWidget::eventFilter(watched, event);
    }

protected:
    /// The form has what the Tab key leads to.
    void focusInEvent(QFocusEvent* event) override
    {
        if (!mIsLeaving) {
            EnterForm(event->reason());
        }
    }
    bool event(QEvent* event) override
    {
        const bool isHandled = QWidget::event(event);
        switch (event->type()) {
        case QEvent::Show:
            Begin();
            break;
        case QEvent::Resize:
        case QEvent::Move:
        // The menu bar of the form has another height.
        case QEvent::LayoutRequest:
            FollowWidget();
            break;
        default:
            break;
        }
        return isHandled;
    }

private:
    /// No exception goes through Qt.
    template <class Action>
    static void Guard(Action action)
    {
        try {
            action();
        } catch (...) {
            Toolkits::CurrentToolkit().Post(
                [fault = std::current_exception()] { std::rethrow_exception(fault); });
        }
    }
    /// Nothing happens without the form.
    template <class Action>
    void WithForm(Action action)
    {
        if (Forms::TCustomForm* const form = getForm()) {
            Guard([&] { action(*form); });
        }
    }

    void Begin()
    {
        FollowWidget();
        if (std::exchange(mWasShown, true)) {
            return;
        }
        const QPointer<CFormHost> self = this;
        WithForm([](Forms::TCustomForm& form) { form.Show(); });
        if (self != nullptr) {
            FollowWidget();
        }
    }

    void FollowWidget()
    {
        const QPointer<CFormHost> self = this;
        WithForm([this](Forms::TCustomForm& form) {
            const QWidget* const client = WidgetOf(form);
            const int bar = client != nullptr && isAncestorOf(client) ? client->mapTo(this, QPoint()).y() : 0;
            FollowBar(bar);
            const QPoint place = mapToGlobal(QPoint(0, bar));
            form.SetBounds(place.x(), place.y(), width(), std::max(height() - bar, 0));
        });
    }

    void FollowBar(int height)
    {
        const QSize former = sizeHint();
        if (std::exchange(mBarHeight, height) == height) {
            return;
        }
        updateGeometry();
        if (isWindow() && size() == former) {
            // Nobody else gave it a size.
            resize(sizeHint());
        }
    }

    // The Tab key, which leads through the form and on to what is behind it.

    /// What only those derived from a control may ask it.
    class CTabAsker : public Controls::TWinControl
    {
    public:
        static bool WantsTab(const TWinControl& control, const Classes::TShiftState& shift)
        {
            constexpr auto ask = &CTabAsker::WantsKey;
            return (control.*ask)(VK_TAB, shift);
        }
    };

    static bool IsForward(const QKeyEvent& key)
    {
        return key.key() == Qt::Key_Tab && !key.modifiers().testFlag(Qt::ShiftModifier);
    }
    static Controls::TWinControl* EndOf(const Forms::TCustomForm& form, bool isFirst)
    {
        return form.FindNextControl(nullptr, isFirst, true, false);
    }

    /// Whether the key leads out of the form, in which the focus is.
    bool IsAtItsEnd(const QObject* watched, const QKeyEvent& key) const
    {
        const bool isTab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
        const Forms::TCustomForm* const form = getForm();
        if (!isTab || key.modifiers() & ~Qt::KeyboardModifiers(Qt::ShiftModifier) || form == nullptr ||
            !watched->isWidgetType() || !isAncestorOf(static_cast<const QWidget*>(watched))) {
            return false;
        }
        const bool isForward = IsForward(key);
        Controls::TWinControl* const active = form->getActiveControl();
        Classes::TShiftState shift;
        if (!isForward) {
            shift << Classes::ssShift;
        }
        if (active == nullptr || CTabAsker::WantsTab(*active, shift)) {
            return false;
        }
        const Controls::TWinControl* const next = form->FindNextControl(active, isForward, true, false);
        return next == nullptr || next == EndOf(*form, isForward);
    }

    void LeaveForm(const QKeyEvent& key)
    {
        // What is in the form stands somewhere else in Qt's order.
        mIsLeaving = true;
        setFocus(Qt::OtherFocusReason);
        const bool isDone = QWidget::focusNextPrevChild(IsForward(key));
        mIsLeaving = false;
        if (!isDone) {
            // Nothing else in the window stops the key.
            EnterForm(IsForward(key) ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        }
    }

    void EnterForm(Qt::FocusReason reason)
    {
        WithForm([reason](Forms::TCustomForm& form) {
            const bool isByTab = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
            Controls::TWinControl* const control =
                isByTab ? EndOf(form, reason == Qt::TabFocusReason) : form.getActiveControl();
            if (form.getShowing()) {
                control == nullptr ? form.SetFocus() : control->SetFocus();
            }
        });
    }

    static bool IsInput(const QEvent& event)
    {
        switch (event.type()) {
        case QEvent::Close:
            // The program itself may still close it.
            return event.spontaneous();
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::InputMethod:
        case QEvent::TouchBegin:
        case QEvent::TabletPress:
        case QEvent::DragEnter:
        case QEvent::Drop:
            return true;
        default:
            return false;
        }
    }

    /// Whether it is a widget of the window that this one is in, or belongs to one, as a shortcut does.
    bool IsInWindow(const QObject* object) const
    {
        while (object != nullptr && !object->isWidgetType()) {
            object = object->parent();
        }
        return object != nullptr && static_cast<const QWidget*>(object)->window() == window();
    }

    /// Whether a form is shown modally that isn't in this window itself.
    bool IsKeptFromUser() const
    {
        for (int i = 0; i < Forms::Screen->getCustomFormCount(); ++i) {
            const Forms::TCustomForm& form = *Forms::Screen->getCustomForms(i);
            if (form.getFormState().Contains(Forms::fsModal) && form.getShowing() &&
                !IsInWindow(static_cast<const QWidget*>(form.getHost()))) {
                return getForm() != nullptr;
            }
        }
        return false;
    }

    Classes::TComponentLink mForm;
    QSize mFirstSize;
    int mBarHeight = 0;
    bool mWasShown = false;
    bool mIsLeaving = false;
};

} // namespace Interop
