// SPDX-License-Identifier: MIT
#include "testing/FormDriver.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/toolkit/InputPlayer.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/grids/Grids_CustomGrid.h"
#include "platform/visual/menus/Menus.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "testing/internal/ControlState.h"
#include "testing/internal/GridState.h"

#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

namespace Testing
{

using Classes::TComponent;
using Classes::TShiftState;
using Controls::TControl;
using Controls::TWinControl;
using System::UnicodeString;
using Toolkits::EMouseAction;
using Toolkits::TMouseInput;
using Types::TPoint;

namespace
{

/// The windowed control that the mouse over `control` belongs to, and where `place` of `control` is in it.
TWinControl& WindowOf(TControl& control, TPoint& place)
{
    if (auto* const window = dynamic_cast<TWinControl*>(&control)) {
        return *window;
    }
    place.X += control.getLeft();
    place.Y += control.getTop();
    return *control.getParent();
}

/// What the left button of the mouse does.
TMouseInput At(EMouseAction action, TPoint place)
{
    TMouseInput mouse;
    mouse.action = action;
    mouse.place = place;
    if (action == EMouseAction::Down || action == EMouseAction::DoubleClick) {
        mouse.shift << Classes::ssLeft;
    }
    return mouse;
}

/// What the mouse does in a window, by way of the toolkit where it has one.
void Use(TWinControl& window, const TMouseInput& mouse)
{
    Toolkits::InputPlayer* const player = Toolkits::CurrentToolkit().GetInputPlayer();
    if (player != nullptr && window.GetWindow() != nullptr) {
        player->UseMouse(*window.GetWindow(), mouse);
    } else {
        window.GetWindowEvents().MouseUsed(mouse);
    }
}

/// Has the toolkit do what it does later. False if the control is gone by then.
bool SettleFor(const TControl& control)
{
    const Classes::TComponentWatch watch(&control);
    if (Toolkits::InputPlayer* const player = Toolkits::CurrentToolkit().GetInputPlayer()) {
        player->Settle();
    }
    return watch.IsAlive();
}

bool CanBeUsed(const TControl& control)
{
    for (const TControl* outer = &control; outer != nullptr; outer = outer->getParent()) {
        if (!outer->getVisible() || !outer->getEnabled()) {
            return false;
        }
    }
    return true;
}

UnicodeString PathOf(const TComponent& component, const TComponent& form)
{
    UnicodeString path = component.getName();
    for (const TComponent* owner = component.getOwner(); owner != nullptr && owner != &form;
         owner = owner->getOwner()) {
        path = owner->getName() + u"." + path;
    }
    return path;
}

void PrintControl(std::ostream& out, const TControl& control, int level)
{
    out << std::string(static_cast<std::size_t>(level) * 2, ' ') << control.ClassName() << ' '
        << (control.getName().IsEmpty() ? UnicodeString(u"-") : control.getName()) << ' ' << control.getLeft()
        << ',' << control.getTop() << ' ' << control.getWidth() << 'x' << control.getHeight() << " \""
        << control.GetText() << '"';
    if (!control.getVisible()) {
        out << " hidden";
    }
    if (!control.getEnabled()) {
        out << " disabled";
    }
    const auto* const window = dynamic_cast<const TWinControl*>(&control);
    if (window != nullptr && window->Focused()) {
        out << " focused";
    }
    WriteControlState(out, control);
    WriteGridState(out, control);
    out << '\n';
    WriteGridCells(out, control, level + 1);
}

/// By a list of what is still to come, since controls may lie deeper than the stack bears.
void PrintTree(std::ostream& out, const TControl& root)
{
    std::vector<std::pair<const TControl*, int>> waiting{{&root, 0}};
    while (!waiting.empty()) {
        const auto [control, level] = waiting.back();
        waiting.pop_back();
        PrintControl(out, *control, level);
        const auto* const window = dynamic_cast<const TWinControl*>(control);
        for (int i = window == nullptr ? 0 : window->GetControlCount(); i > 0; --i) {
            waiting.emplace_back(window->GetControl(i - 1), level + 1);
        }
    }
}

/// The key that types a character: that of a letter or digit, else one that only brings it.
System::Word KeyOf(System::WideChar character)
{
    const bool isSmall = character >= u'a' && character <= u'z';
    const bool isKey = isSmall || (character >= u'A' && character <= u'Z') ||
                       (character >= u'0' && character <= u'9') || character == u' ';
    if (!isKey) {
        return VK_PACKET;
    }
    return isSmall ? static_cast<System::Word>(character - u'a' + u'A') : character;
}

/// What a key types; 0 for one that types nothing.
System::WideChar CharacterOf(System::Word key)
{
    switch (key) {
    case VK_BACK:
    case VK_TAB:
    case VK_RETURN:
    case VK_ESCAPE:
    case VK_SPACE:
        return key;
    default:
        return 0;
    }
}

} // namespace

TControl& CFormDriver::Find(const UnicodeString& name) const
{
    TComponent* found = &mForm;
    std::u16string_view rest = name.AsView();
    while (found != nullptr && !rest.empty()) {
        const std::size_t dot = std::min(rest.find(u'.'), rest.size());
        found = found->FindComponent(UnicodeString(rest.substr(0, dot)));
        rest.remove_prefix(std::min(dot + 1, rest.size()));
    }
    auto* const control = dynamic_cast<TControl*>(found);
    if (control == nullptr || control == &mForm) {
        throw std::invalid_argument("there is no control '" + System::ToUtf8(name) + "'");
    }
    return *control;
}

void CFormDriver::Click(const UnicodeString& name)
{
    const TControl& control = Find(name);
    Click(name, {control.getWidth() / 2, control.getHeight() / 2});
}

void CFormDriver::Click(const UnicodeString& name, TPoint place)
{
    TControl& control = Find(name);
    if (!CanBeUsed(control)) {
        throw std::logic_error("nobody can click on '" + System::ToUtf8(name) + "'");
    }
    if (!SettleFor(control)) {
        return;
    }
    TPoint inWindow = place;
    TWinControl& window = WindowOf(control, inWindow);
    const Classes::TComponentWatch watch(&window);
    for (const EMouseAction action : {EMouseAction::Move, EMouseAction::Down, EMouseAction::Up}) {
        if (watch.IsAlive()) {
            Use(window, At(action, inWindow));
        }
    }
}

void CFormDriver::DoubleClick(const UnicodeString& name)
{
    const TControl& control = Find(name);
    const TPoint place{control.getWidth() / 2, control.getHeight() / 2};
    const Classes::TComponentWatch watch(&control);
    Click(name, place);
    if (watch.IsAlive()) {
        Mouse(name, At(EMouseAction::DoubleClick, place));
    }
    if (watch.IsAlive()) {
        Mouse(name, At(EMouseAction::Up, place));
    }
}

void CFormDriver::ClickCell(const UnicodeString& name, int col, int row)
{
    const auto* const grid = dynamic_cast<const Grids::TCustomGrid*>(&Find(name));
    const Types::TRect rect = grid == nullptr ? Types::TRect{} : grid->CellRect(col, row);
    if (rect.Width() <= 0 || rect.Height() <= 0) {
        throw std::logic_error("nobody can click on a cell of '" + System::ToUtf8(name) +
                               "' that isn't in sight");
    }
    Click(name, {(rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2});
}

void CFormDriver::ClickSoon(const UnicodeString& name)
{
    mForm.HandleNeeded();
    Toolkits::CurrentToolkit().PostInput(*mForm.GetWindow(),
                                         [driver = *this, name]() mutable { driver.Click(name); });
}

void CFormDriver::Mouse(const UnicodeString& name, const TMouseInput& mouse)
{
    TControl& control = Find(name);
    if (SettleFor(control)) {
        TMouseInput inWindow = mouse;
        TWinControl& window = WindowOf(control, inWindow.place);
        Use(window, inWindow);
    }
}

void CFormDriver::ChooseMenu(const UnicodeString& path)
{
    const Menus::TMainMenu* const menu = mForm.getMenu();
    Menus::TMenuItem* item = menu == nullptr ? nullptr : menu->getItems();
    std::u16string_view rest = path.AsView();
    while (item != nullptr && !rest.empty()) {
        const std::size_t bar = std::min(rest.find(u'|'), rest.size());
        item = item->Find(UnicodeString(rest.substr(0, bar)));
        rest.remove_prefix(std::min(bar + 1, rest.size()));
        if (item != nullptr && !(item->getVisible() && item->getEnabled())) {
            throw std::logic_error("nobody can choose '" + System::ToUtf8(path) + "'");
        }
    }
    if (item == nullptr) {
        throw std::invalid_argument("there is no item '" + System::ToUtf8(path) + "'");
    }
    item->Click();
}

void CFormDriver::Choose(const UnicodeString& name, int index)
{
    auto* const window = dynamic_cast<TWinControl*>(&Find(name));
    if (window == nullptr || !CanBeUsed(*window)) {
        throw std::logic_error("nobody can choose in '" + System::ToUtf8(name) + "'");
    }
    window->GetWindowEvents().Chosen(index);
}

void CFormDriver::Focus(const UnicodeString& name)
{
    auto* const window = dynamic_cast<TWinControl*>(&Find(name));
    if (window == nullptr) {
        throw std::logic_error("'" + System::ToUtf8(name) + "' can't have the focus");
    }
    if (SettleFor(*window)) {
        window->SetFocus();
    }
}

UnicodeString CFormDriver::Focused() const
{
    const TWinControl* const focused = Controls::GetFocusedControl();
    return focused == nullptr || focused == &mForm ? UnicodeString() : PathOf(*focused, mForm);
}

TWinControl* CFormDriver::KeyTarget() const
{
    TWinControl* const focused = Controls::GetFocusedControl();
    return focused != nullptr && mForm.ContainsControl(focused) ? focused : &mForm;
}

bool CFormDriver::PlayKey(System::Word key, System::WideChar character, const TShiftState& shift)
{
    if (!SettleFor(mForm)) {
        return true;
    }
    Toolkits::InputPlayer* const player = Toolkits::CurrentToolkit().GetInputPlayer();
    TWinControl* const target = KeyTarget();
    if (player == nullptr || target->GetWindow() == nullptr) {
        return false;
    }
    player->PressKey(*target->GetWindow(), key, character, shift);
    return true;
}

void CFormDriver::Press(System::Word key, const TShiftState& shift)
{
    const Classes::TComponentWatch watch(&mForm);
    const bool typesNothing = shift.Contains(Classes::ssAlt);
    if (PlayKey(key, typesNothing ? 0 : CharacterOf(key), shift)) {
        return;
    }
    System::Word pressed = key;
    const bool isTaken = KeyTarget()->GetWindowEvents().KeyPressed(pressed, shift);
    System::WideChar character = CharacterOf(pressed);
    if (watch.IsAlive() && !isTaken && character != 0 && !typesNothing) {
        KeyTarget()->GetWindowEvents().CharacterTyped(character);
    }
    if (watch.IsAlive()) {
        KeyTarget()->GetWindowEvents().KeyReleased(key, shift);
    }
}

void CFormDriver::Type(const UnicodeString& text)
{
    const Classes::TComponentWatch watch(&mForm);
    for (System::WideChar character : text.AsView()) {
        if (!watch.IsAlive()) {
            return;
        }
        TypeCharacter(character);
    }
}

void CFormDriver::TypeCharacter(System::WideChar character)
{
    if (PlayKey(0, character, {})) {
        return;
    }
    const Classes::TComponentWatch watch(&mForm);
    System::Word key = KeyOf(character);
    const bool isTaken = KeyTarget()->GetWindowEvents().KeyPressed(key, {});
    if (watch.IsAlive() && !isTaken && key != 0) {
        KeyTarget()->GetWindowEvents().CharacterTyped(character);
    }
    if (watch.IsAlive()) {
        KeyTarget()->GetWindowEvents().KeyReleased(KeyOf(character), {});
    }
}

void CFormDriver::Insert(const UnicodeString& text)
{
    auto* const edit = dynamic_cast<Stdctrls::TCustomEdit*>(KeyTarget());
    if (edit == nullptr) {
        throw std::logic_error("what has the focus takes no text");
    }
    Toolkits::InputPlayer* const player = Toolkits::CurrentToolkit().GetInputPlayer();
    if (player != nullptr && edit->GetWindow() != nullptr) {
        player->InsertText(*edit->GetWindow(), text);
        return;
    }
    const Classes::TComponentWatch watch(edit);
    System::Word key = VK_PROCESSKEY;
    if (edit->GetWindowEvents().KeyPressed(key, {}) || !watch.IsAlive() || edit->getReadOnly()) {
        return;
    }
    UnicodeString whole = edit->GetText();
    whole.Delete(edit->getSelStart() + 1, edit->getSelLength());
    whole.Insert(text, edit->getSelStart() + 1);
    // The window has the text before the control hears of it.
    if (edit->GetWindow() != nullptr) {
        edit->GetWindow()->SetText(whole);
    }
    edit->GetWindowEvents().TextEdited(whole);
}

std::string CFormDriver::Print() const
{
    std::ostringstream out;
    PrintTree(out, mForm);
    return out.str();
}

} // namespace Testing
