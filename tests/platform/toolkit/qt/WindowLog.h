// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/InputPlayer.h"
#include "platform/toolkit/Toolkit.h"

#include <QApplication>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>

namespace Support
{

/// What a window tells, each event a word of its own.
class WindowLog final : public Toolkits::WindowEvents
{
public:
    std::string text;
    /// Called with each word; it may destroy the window.
    std::function<void(const std::string&)> heard;
    /// The characters that are refused.
    std::u16string refused;
    /// What the window shows; nothing of its own for null.
    std::function<void(Toolkits::PaintDevice&)> paint;
    /// What is told about each place.
    System::UnicodeString hint;

    std::string Take() { return std::exchange(text, {}); }

    bool KeyPressed(System::Word& key, Classes::TShiftState) override
    {
        Add("key" + std::to_string(key));
        return false;
    }
    bool KeyReleased(System::Word, Classes::TShiftState) override { return false; }
    bool CharacterTyped(System::WideChar& character) override
    {
        Add("char" + System::ToUtf8(System::UnicodeString(character)));
        return refused.find(character) != std::u16string::npos;
    }
    bool MouseUsed(const Toolkits::TMouseInput& mouse) override
    {
        if (mouse.action == Toolkits::EMouseAction::Down) {
            Add("down" + std::to_string(mouse.place.X) + "," + std::to_string(mouse.place.Y));
        }
        return false;
    }
    void FocusChanged(bool isFocused) override { Add(isFocused ? "focus" : "unfocus"); }
    void TextEdited(const System::UnicodeString& edited) override { Add("text=" + System::ToUtf8(edited)); }
    void SelectionMoved(int start, int length) override
    {
        Add("selection" + std::to_string(start) + "+" + std::to_string(length));
    }
    void Chosen(int index) override { Add("chosen" + std::to_string(index)); }
    void ItemChecked(int index) override { Add("check" + std::to_string(index)); }
    void DropChanged(bool isOpen) override { Add(isOpen ? "open" : "closed"); }
    bool PaintAsked(Toolkits::PaintDevice& device, const Types::TRect&) override
    {
        if (paint) {
            paint(device);
        }
        return paint != nullptr;
    }
    void ColorsChanged() override { Add("colors"); }
    void Scrolled(int first) override { Add("scrolled" + std::to_string(first)); }
    System::UnicodeString HintAt(Types::TPoint) override { return hint; }
    void BoundsChanged(const Types::TRect&) override { Add("bounds"); }
    void FilesDropped(const std::vector<System::UnicodeString>&, Types::TPoint) override { Add("files"); }
    void CloseAsked() override { Add("close"); }
    void ActivationChanged(bool isActive) override { Add(isActive ? "active" : "inactive"); }

private:
    void Add(const std::string& word)
    {
        text += word + " ";
        if (heard) {
            heard(word);
        }
    }
};

/// The widget of that name; null if there is none.
inline QWidget* FindWidget(const char* name)
{
    for (QWidget* const widget : QApplication::allWidgets()) {
        if (widget->objectName() == QLatin1String(name)) {
            return widget;
        }
    }
    return nullptr;
}

/// A form with one window in it, both shown, and what they tell.
struct TShownWindow
{
    explicit TShownWindow(Toolkits::EWindowKind kind)
    {
        Toolkits::Toolkit& toolkit = Toolkits::CurrentToolkit();
        form = toolkit.MakeWindow({.kind = Toolkits::EWindowKind::Form,
                                   .events = &formLog,
                                   .text = u"Form",
                                   .name = u"Form",
                                   .bounds = {10, 10, 310, 210}});
        window = toolkit.MakeWindow({.kind = kind,
                                     .parent = form.get(),
                                     .events = &log,
                                     .name = u"Form.Window",
                                     .bounds = {10, 20, 110, 50}});
        window->SetVisible(true);
        form->SetVisible(true);
        form->Focus();
        window->Focus();
        player().Settle();
        log.Take();
        formLog.Take();
    }

    static Toolkits::InputPlayer& player() { return *Toolkits::CurrentToolkit().GetInputPlayer(); }

    /// Types what each character stands for, by keys.
    void Type(std::u16string_view text)
    {
        for (const char16_t character : text) {
            player().PressKey(*window, 0, character, {});
        }
    }
    void Press(System::Word key, System::WideChar character = 0)
    {
        player().PressKey(*window, key, character, {});
    }
    void Click(Types::TPoint place = {5, 5})
    {
        using Toolkits::EMouseAction;
        for (const EMouseAction action : {EMouseAction::Down, EMouseAction::Up}) {
            if (window != nullptr) {
                player().UseMouse(*window, {.action = action, .place = place});
            }
        }
    }

    WindowLog formLog;
    WindowLog log;
    std::unique_ptr<Toolkits::Window> form;
    std::unique_ptr<Toolkits::Window> window;
};

} // namespace Support
