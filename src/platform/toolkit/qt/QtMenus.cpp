// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtBoxes.h"
#include "platform/toolkit/qt/QtConvert.h"

#include <QActionGroup>
#include <QMenu>

// Menus that are opened at a place.

namespace Toolkits
{

namespace
{

void Fill(QMenu& menu, const std::vector<TMenuEntry>& entries, int& chosen)
{
    QActionGroup* group = nullptr;
    for (const TMenuEntry& entry : entries) {
        if (entry.caption == u"-") {
            menu.addSeparator();
            group = nullptr;
            continue;
        }
        QString text = ToQString(entry.caption);
        if (!entry.shortCut.IsEmpty()) {
            text += u'\t' + ToQString(entry.shortCut);
        }
        QAction* action = nullptr;
        if (entry.entries.empty()) {
            action = menu.addAction(text);
            QObject::connect(action, &QAction::triggered, action, [&chosen, id = entry.id] { chosen = id; });
        } else {
            QMenu* const inner = menu.addMenu(text);
            Fill(*inner, entry.entries, chosen);
            action = inner->menuAction();
        }
        action->setEnabled(entry.isEnabled);
        action->setCheckable(entry.isChecked || entry.isRadio);
        action->setChecked(entry.isChecked);
        if (entry.isRadio) {
            group = group == nullptr ? new QActionGroup(&menu) : group;
            group->addAction(action);
        }
        if (entry.isDefault) {
            menu.setDefaultAction(action);
        }
    }
}

} // namespace

int ShowQtMenu(Toolkit& toolkit, const std::vector<TMenuEntry>& entries, Types::TPoint place)
{
    int chosen = 0;
    QMenu menu;
    Fill(menu, entries, chosen);
    menu.popup({place.X, place.Y});
    RunLoop(toolkit, [&menu] { return menu.isVisible(); });
    return chosen;
}

} // namespace Toolkits
