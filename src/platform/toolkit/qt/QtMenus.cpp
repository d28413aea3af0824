// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtMenus.h"

#include "platform/toolkit/qt/QtBoxes.h"
#include "platform/toolkit/qt/QtConvert.h"

#include <QActionGroup>
#include <QMenu>

namespace Toolkits
{

void FillMenu(QMenu& menu, const std::vector<TMenuEntry>& entries, const std::function<void(int)>& choose)
{
    for (const TMenuEntry& entry : entries) {
        if (entry.caption == u"-") {
            menu.addSeparator();
            continue;
        }
        QString text = ToQString(entry.caption);
        if (!entry.shortCut.IsEmpty()) {
            text += u'\t' + ToQString(entry.shortCut);
        }
        QAction* action = nullptr;
        if (entry.entries.empty()) {
            action = menu.addAction(text);
            QObject::connect(action, &QAction::triggered, action, [choose, id = entry.id] { choose(id); });
        } else {
            QMenu* const inner = menu.addMenu(text);
            FillMenu(*inner, entry.entries, choose);
            action = inner->menuAction();
        }
        action->setEnabled(entry.isEnabled);
        action->setCheckable(entry.isChecked || entry.isRadio);
        action->setChecked(entry.isChecked);
        if (entry.isRadio) {
            // For the look alone: which of them excludes which is up to the items.
            (new QActionGroup(action))->addAction(action);
        }
        if (entry.isDefault) {
            menu.setDefaultAction(action);
        }
    }
}

int ShowQtMenu(Toolkit& toolkit, const std::vector<TMenuEntry>& entries, Types::TPoint place)
{
    int chosen = 0;
    QMenu menu;
    FillMenu(menu, entries, [&chosen](int id) { chosen = id; });
    menu.popup({place.X, place.Y});
    RunLoop(toolkit, [&menu] { return menu.isVisible(); });
    return chosen;
}

} // namespace Toolkits
