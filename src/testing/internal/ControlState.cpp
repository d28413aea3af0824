// SPDX-License-Identifier: MIT
#include "testing/internal/ControlState.h"

#include "platform/visual/stdctrls/buttons/Buttons_SpeedButton.h"
#include "platform/visual/stdctrls/buttons/Extctrls_RadioGroup.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_CheckBox.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_RadioButton.h"
#include "platform/visual/stdctrls/lists/Checklst_CheckListBox.h"
#include "platform/visual/stdctrls/lists/Stdctrls_ComboBox.h"
#include "platform/visual/stdctrls/panels/Comctrls_ProgressBar.h"
#include "platform/visual/stdctrls/panels/Comctrls_TabControl.h"

#include <ostream>

namespace Testing
{

namespace
{

/// Writes `write(out, control)` if the control is of the class.
template <class T, class Write>
void IfIs(std::ostream& out, const Controls::TControl& control, Write write)
{
    if (const auto* const found = dynamic_cast<const T*>(&control)) {
        write(out, *found);
    }
}

/// The word, a blank and the places for which `isMeant` holds, with commas; nothing if there is none.
template <class IsMeant>
void WritePlaces(std::ostream& out, const char* word, int count, IsMeant isMeant)
{
    const char* mark = " ";
    for (int i = 0; i < count; ++i) {
        if (isMeant(i)) {
            if (*mark == ' ') {
                out << ' ' << word;
            }
            out << mark << i;
            mark = ",";
        }
    }
}

void WriteIndex(std::ostream& out, int count, int index)
{
    out << " items " << count;
    if (index >= 0) {
        out << " index " << index;
    }
}

void WriteMark(std::ostream& out, Stdctrls::TCheckBoxState state)
{
    constexpr const char* marks[] = {"", " checked", " grayed"};
    out << marks[state];
}

void WriteList(std::ostream& out, const Stdctrls::TCustomListBox& list)
{
    WriteIndex(out, list.getCount(), list.getItemIndex());
    if (list.getTopIndex() > 0) {
        out << " top " << list.getTopIndex();
    }
    if (list.getMultiSelect()) {
        WritePlaces(out, "selected", list.getCount(), [&](int i) { return list.getSelected(i); });
    }
}

void WriteChecks(std::ostream& out, const Checklst::TCheckListBox& list)
{
    WritePlaces(out, "checked", list.getCount(), [&](int i) { return list.getChecked(i); });
    WritePlaces(out, "grayed", list.getCount(),
                [&](int i) { return list.getState(i) == Stdctrls::cbGrayed; });
}

} // namespace

void WriteControlState(std::ostream& out, const Controls::TControl& control)
{
    IfIs<Stdctrls::TCustomButton>(out, control, [](std::ostream& to, const auto& button) {
        to << (button.getDefault() ? " default" : "") << (button.getCancel() ? " cancel" : "");
    });
    IfIs<Stdctrls::TCustomCheckBox>(out, control,
                                    [](std::ostream& to, const auto& box) { WriteMark(to, box.getState()); });
    IfIs<Stdctrls::TRadioButton>(out, control, [](std::ostream& to, const auto& button) {
        to << (button.getChecked() ? " checked" : "");
    });
    IfIs<Buttons::TSpeedButton>(
        out, control, [](std::ostream& to, const auto& button) { to << (button.getDown() ? " down" : ""); });
    IfIs<Extctrls::TCustomRadioGroup>(out, control, [](std::ostream& to, const auto& group) {
        WriteIndex(to, group.getItems()->getCount(), group.getItemIndex());
    });
    IfIs<Stdctrls::TCustomListBox>(out, control, WriteList);
    IfIs<Checklst::TCheckListBox>(out, control, WriteChecks);
    IfIs<Stdctrls::TCustomComboBox>(out, control, [](std::ostream& to, const auto& box) {
        WriteIndex(to, box.getItemCount(), box.getItemIndex());
        to << (box.getDroppedDown() ? " open" : "");
    });
    IfIs<Comctrls::TProgressBar>(out, control, [](std::ostream& to, const auto& bar) {
        to << " position " << bar.getPosition() << " of " << bar.getMin() << ".." << bar.getMax();
    });
    IfIs<Comctrls::TCustomTabControl>(
        out, control, [](std::ostream& to, const auto& tabs) { to << " tab " << tabs.getTabIndex(); });
}

} // namespace Testing
