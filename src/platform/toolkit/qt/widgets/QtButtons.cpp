// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtButtons.h"

#include "platform/toolkit/qt/QtConvert.h"

#include <QCheckBox>
#include <QEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include <utility>

namespace Toolkits
{

namespace
{

/// A box whose mark is the control's alone to set, and that can be clicked on anywhere.
template <class Box>
class GMarkedBox final : public Box
{
protected:
    bool hitButton(const QPoint& place) const override { return Box::rect().contains(place); }
    void nextCheckState() override {}
};

QAbstractButton* MakeButton(EWindowKind kind)
{
    if (kind == EWindowKind::CheckBox) {
        return new GMarkedBox<QCheckBox>;
    }
    if (kind == EWindowKind::RadioButton) {
        auto* const button = new GMarkedBox<QRadioButton>;
        button->setAutoExclusive(false);
        return button;
    }
    return new QPushButton;
}

} // namespace

CQtButton::CQtButton(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings)
    : CQtWindow(std::move(desktop), settings, MakeButton(settings.kind)),
      mButton(static_cast<QAbstractButton*>(&Widget()))
{
    // The control takes the focus when it hears of the press: a radio button must know why it comes.
    mButton->setFocusPolicy(Qt::NoFocus);
    SetText(settings.text);
    QObject::connect(mButton, &QAbstractButton::clicked, Context(), [this] { TellChosen(); });
    // Readers of screens set the mark by themselves, which is the control's to do.
    QObject::connect(mButton, &QAbstractButton::toggled, Context(), [this](bool isOn) {
        {
            const QSignalBlocker blocker(mButton);
            mButton->setChecked(!isOn);
        }
        TellChosen();
    });
}

void CQtButton::TellChosen()
{
    // Readers don't ask whether the user may.
    if (CanBeUsed()) {
        Tell([](WindowEvents& events) { events.Chosen(0); });
    }
}

CQtButton::~CQtButton() = default;

bool CQtButton::HandleEvent(QEvent& event)
{
    if (event.type() != QEvent::MouseButtonRelease) {
        return CQtWindow::HandleEvent(event);
    }
    // The click comes before the release, as on every toolkit.
    if (CanBeUsed() && !Pass(event)) {
        return true;
    }
    CQtWindow::HandleEvent(event);
    return true;
}

void CQtButton::SetText(const System::UnicodeString& text)
{
    mButton->setText(ToQString(text));
}

void CQtButton::SetCheck(ECheck check)
{
    const QSignalBlocker blocker(mButton);
    if (auto* const box = qobject_cast<QCheckBox*>(mButton)) {
        box->setTristate(check == ECheck::Grayed);
        box->setCheckState(check == ECheck::Grayed    ? Qt::PartiallyChecked
                           : check == ECheck::Checked ? Qt::Checked
                                                      : Qt::Unchecked);
    } else {
        mButton->setChecked(check == ECheck::Checked);
    }
}

void CQtButton::SetDefaultButton(bool isDefault)
{
    if (auto* const button = qobject_cast<QPushButton*>(mButton)) {
        button->setDefault(isDefault);
    }
}

} // namespace Toolkits
