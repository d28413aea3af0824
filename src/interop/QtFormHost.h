// SPDX-License-Identifier: MIT
#pragma once

#include "interop/QtValues.h"

#include "platform/runtime/classes/Classes_ComponentLink.h"
#include "platform/visual/forms/Forms_Form.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>

namespace Interop
{

/// A form of the library within a window of Qt's. The form has no frame there and is as large as the widget,
/// whose first size is that of the form. It is shown with the widget for the first time; from then on `Hide`
/// and `Show` of the form are up to the program. The program's loop may be Qt's: what is posted, timers and
/// threads are served there too.
///
/// The form stays the caller's. Either of the two may be destroyed first: the widget is empty then, or the
/// form hidden and one of the screen's again. Where the toolkit in use isn't "qt" the widget stays empty.
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
        form.setHost(this);
        resize(mFirstSize);
    }
    CFormHost(const CFormHost&) = delete;
    CFormHost& operator=(const CFormHost&) = delete;
    ~CFormHost() override
    {
        if (Forms::TCustomForm* const form = getForm()) {
            form->Hide();
        }
        if (Forms::TCustomForm* const form = getForm()) {
            form->setHost(nullptr);
        }
    }

    /// Null once the form is gone.
    Forms::TCustomForm* getForm() const noexcept
    {
        return static_cast<Forms::TCustomForm*>(mForm.getComponent());
    }

    QSize sizeHint() const override { return mFirstSize; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == mWindow && event->type() == QEvent::Move) {
            FollowWidget();
        }
        return QWidget::eventFilter(watched, event);
    }

protected:
    bool event(QEvent* event) override
    {
        const bool isHandled = QWidget::event(event);
        switch (event->type()) {
        case QEvent::Show:
            Begin();
            break;
        case QEvent::Resize:
        case QEvent::Move:
            FollowWidget();
            break;
        default:
            break;
        }
        return isHandled;
    }

private:
    void Begin()
    {
        if (mWindow != window()) {
            // Where the form lies on the screen changes with the window that it is in.
            if (mWindow != nullptr) {
                mWindow->removeEventFilter(this);
            }
            mWindow = window();
            mWindow->installEventFilter(this);
        }
        FollowWidget();
        Forms::TCustomForm* const form = getForm();
        if (form != nullptr && !mWasShown) {
            mWasShown = true;
            form->Show();
        }
    }

    void FollowWidget()
    {
        if (Forms::TCustomForm* const form = getForm()) {
            const QPoint place = mapToGlobal(QPoint());
            form->SetBounds(place.x(), place.y(), width(), height());
        }
    }

    Classes::TComponentLink mForm;
    QSize mFirstSize;
    QPointer<QWidget> mWindow;
    bool mWasShown = false;
};

/// The widget that stands for a control on the screen, for what only Qt can do; the library still owns and
/// fills it. Null while the control has no window, or none of Qt's.
inline QWidget* WidgetOf(const Controls::TWinControl& control)
{
    const Toolkits::Window* const window = control.GetWindow();
    return window == nullptr ? nullptr : static_cast<QWidget*>(window->NativeObject());
}

} // namespace Interop
