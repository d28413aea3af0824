// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtBoxes.h"

#include "platform/toolkit/internal/BoxButtons.h"
#include "platform/toolkit/qt/QtConvert.h"

#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <exception>
#include <vector>

namespace Toolkits
{

namespace
{

QMessageBox::StandardButton ButtonOf(int answer)
{
    static constexpr std::array buttons = {QMessageBox::Ok,    QMessageBox::Cancel, QMessageBox::Abort,
                                           QMessageBox::Retry, QMessageBox::Ignore, QMessageBox::Yes,
                                           QMessageBox::No};
    return buttons.at(static_cast<std::size_t>(answer - IDOK));
}

QMessageBox::Icon IconOf(unsigned flags)
{
    switch (flags & MB_ICONMASK) {
    case MB_ICONSTOP:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONWARNING:
        return QMessageBox::Warning;
    case MB_ICONINFORMATION:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

/// Which button has the focus at first, from 0.
std::size_t DefaultOf(unsigned flags)
{
    return flags >> 8U & 15U;
}

/// A box that can be left without an answer only where a button says so.
class CBox final : public QMessageBox
{
public:
    explicit CBox(bool canLeave) : mCanLeave(canLeave) {}

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (mCanLeave || event->key() != Qt::Key_Escape) {
            QMessageBox::keyPressEvent(event);
        }
    }
    void closeEvent(QCloseEvent* event) override
    {
        if (mCanLeave) {
            QMessageBox::closeEvent(event);
        } else {
            event->ignore();
        }
    }

private:
    bool mCanLeave;
};

} // namespace

void RunLoop(Toolkit& toolkit, const std::function<bool()>& isOn)
{
    std::vector<std::exception_ptr> raised;
    while (isOn()) {
        try {
            if (!toolkit.ProcessMessage()) {
                toolkit.WaitMessage();
            }
        } catch (...) {
            raised.push_back(std::current_exception());
        }
    }
    for (const std::exception_ptr& fault : raised) {
        toolkit.Post([fault] { std::rethrow_exception(fault); });
    }
}

int RunDialog(Toolkit& toolkit, QDialog& dialog)
{
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.show();
    dialog.activateWindow();
    RunLoop(toolkit, [&dialog] { return dialog.isVisible(); });
    return dialog.result();
}

int ShowQtBox(Toolkit& toolkit, const TBox& box)
{
    const auto buttons = ButtonsOf(box.flags);
    const bool canLeave = buttons.size() == 1 || buttons.back() == IDCANCEL;
    CBox shown(canLeave);
    shown.setWindowTitle(ToQString(box.caption));
    shown.setTextFormat(Qt::PlainText);
    shown.setText(ToQString(box.text));
    shown.setIcon(IconOf(box.flags));
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        QPushButton* const button = shown.addButton(ButtonOf(buttons[i]));
        if (i == 0 || i == DefaultOf(box.flags)) {
            shown.setDefaultButton(button);
        }
    }
    if (canLeave) {
        shown.setEscapeButton(ButtonOf(buttons.back()));
    }
    RunDialog(toolkit, shown);
    const auto answer = shown.standardButton(shown.clickedButton());
    const auto found = std::ranges::find(buttons, answer, ButtonOf);
    return found == buttons.end() ? buttons.back() : *found;
}

bool AskByQt(Toolkit& toolkit, const TInput& input, System::UnicodeString& value)
{
    QInputDialog dialog;
    dialog.setWindowTitle(ToQString(input.caption));
    dialog.setLabelText(ToQString(input.prompt));
    dialog.setTextValue(ToQString(input.value));
    for (QLabel* const label : dialog.findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
    }
    if (RunDialog(toolkit, dialog) != QDialog::Accepted) {
        return false;
    }
    value = FromQString(dialog.textValue());
    return true;
}

} // namespace Toolkits
