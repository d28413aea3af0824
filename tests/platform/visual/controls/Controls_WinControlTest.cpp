// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Controls_WinControl.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/ControlKinds.h"
#include "platform/visual/dialogs/Dialogs_OpenDialog.h"
#include "platform/visual/menus/Menus.h"
#include "platform/visual/stdctrls/Extctrls_Timer.h"
#include "support/ChildProgram.h"
#include "support/RunUntil.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

// What handlers of events may do: destroy whatever they were called from, and raise.

namespace
{

using Controls::TControl;
using Controls::TWinControl;
using Forms::TForm;
using Support::TKind;
using System::UnicodeString;
using Toolkits::EMouseAction;

using CAct = std::function<void()>;

/// What handlers raise.
constexpr const char16_t* Failed = u"handler failed";

// Their events.

struct TEvent
{
    const char* name;
    /// Lets the event call `act`; false if the component has no such event.
    std::function<bool(Classes::TComponent& component, const CAct& act)> arm;
};

template <class T, class R, class... Args>
TEvent EventOf(const char* name, System::TClosure<R(Args...)> T::*event)
{
    return {name, [event](Classes::TComponent& component, const CAct& act) {
                auto* const owner = dynamic_cast<T*>(&component);
                if (owner != nullptr) {
                    owner->*event = [act](Args...) {
                        act();
                        return R();
                    };
                }
                return owner != nullptr;
            }};
}

const std::vector<TEvent>& ControlEvents()
{
    static const std::vector<TEvent> events = {
        EventOf("TControl.OnClick", &TControl::OnClick),
        EventOf("TControl.OnDblClick", &TControl::OnDblClick),
        EventOf("TControl.OnMouseDown", &TControl::OnMouseDown),
        EventOf("TControl.OnMouseMove", &TControl::OnMouseMove),
        EventOf("TControl.OnMouseUp", &TControl::OnMouseUp),
        EventOf("TControl.OnMouseWheel", &TControl::OnMouseWheel),
        EventOf("TControl.OnMouseEnter", &TControl::OnMouseEnter),
        EventOf("TControl.OnMouseLeave", &TControl::OnMouseLeave),
        EventOf("TControl.OnContextPopup", &TControl::OnContextPopup),
        EventOf("TControl.OnResize", &TControl::OnResize),
        EventOf("TControl.OnCanResize", &TControl::OnCanResize),
        EventOf("TControl.OnConstrainedResize", &TControl::OnConstrainedResize),
        EventOf("TWinControl.OnEnter", &TWinControl::OnEnter),
        EventOf("TWinControl.OnExit", &TWinControl::OnExit),
        EventOf("TWinControl.OnKeyDown", &TWinControl::OnKeyDown),
        EventOf("TWinControl.OnKeyPress", &TWinControl::OnKeyPress),
        EventOf("TWinControl.OnKeyUp", &TWinControl::OnKeyUp),
        EventOf("TCustomEdit.OnChange", &Stdctrls::TCustomEdit::OnChange),
        EventOf("TCustomComboBox.OnChange", &Stdctrls::TCustomComboBox::OnChange),
        EventOf("TCustomComboBox.OnSelect", &Stdctrls::TCustomComboBox::OnSelect),
        EventOf("TCustomComboBox.OnDropDown", &Stdctrls::TCustomComboBox::OnDropDown),
        EventOf("TCustomComboBox.OnCloseUp", &Stdctrls::TCustomComboBox::OnCloseUp),
        EventOf("TCustomComboBox.OnDrawItem", &Stdctrls::TCustomComboBox::OnDrawItem),
        EventOf("TCustomComboBox.OnMeasureItem", &Stdctrls::TCustomComboBox::OnMeasureItem),
        EventOf("TCustomListBox.OnDrawItem", &Stdctrls::TCustomListBox::OnDrawItem),
        EventOf("TCustomListBox.OnMeasureItem", &Stdctrls::TCustomListBox::OnMeasureItem),
        EventOf("TCustomListBox.OnData", &Stdctrls::TCustomListBox::OnData),
        EventOf("TCustomListBox.OnDataObject", &Stdctrls::TCustomListBox::OnDataObject),
        EventOf("TCustomListBox.OnDataFind", &Stdctrls::TCustomListBox::OnDataFind),
        EventOf("TCheckListBox.OnClickCheck", &Checklst::TCheckListBox::OnClickCheck),
        EventOf("TDirectoryListBox.OnChange", &Filectrl::TDirectoryListBox::OnChange),
        EventOf("TCustomTabControl.OnChange", &Comctrls::TCustomTabControl::OnChange),
        EventOf("TCustomTabControl.OnChanging", &Comctrls::TCustomTabControl::OnChanging),
        EventOf("TDrawGrid.OnColumnMoved", &Grids::TDrawGrid::OnColumnMoved),
        EventOf("TDrawGrid.OnDrawCell", &Grids::TDrawGrid::OnDrawCell),
        EventOf("TDrawGrid.OnFixedCellClick", &Grids::TDrawGrid::OnFixedCellClick),
        EventOf("TDrawGrid.OnGetEditMask", &Grids::TDrawGrid::OnGetEditMask),
        EventOf("TDrawGrid.OnGetEditText", &Grids::TDrawGrid::OnGetEditText),
        EventOf("TDrawGrid.OnRowMoved", &Grids::TDrawGrid::OnRowMoved),
        EventOf("TDrawGrid.OnSelectCell", &Grids::TDrawGrid::OnSelectCell),
        EventOf("TDrawGrid.OnSetEditText", &Grids::TDrawGrid::OnSetEditText),
        EventOf("TDrawGrid.OnTopLeftChanged", &Grids::TDrawGrid::OnTopLeftChanged),
        EventOf("TCustomDBGrid.OnCellClick", &Dbgrids::TCustomDBGrid::OnCellClick),
        EventOf("TCustomDBGrid.OnColEnter", &Dbgrids::TCustomDBGrid::OnColEnter),
        EventOf("TCustomDBGrid.OnColExit", &Dbgrids::TCustomDBGrid::OnColExit),
        EventOf("TCustomDBGrid.OnColumnMoved", &Dbgrids::TCustomDBGrid::OnColumnMoved),
        EventOf("TCustomDBGrid.OnDrawColumnCell", &Dbgrids::TCustomDBGrid::OnDrawColumnCell),
        EventOf("TCustomDBGrid.OnTitleClick", &Dbgrids::TCustomDBGrid::OnTitleClick),
        EventOf("TForm.OnCreate", &TForm::OnCreate),
        EventOf("TForm.OnPaint", &TForm::OnPaint),
        EventOf("TForm.OnShow", &TForm::OnShow),
        EventOf("TForm.OnHide", &TForm::OnHide),
        EventOf("TForm.OnActivate", &TForm::OnActivate),
        EventOf("TForm.OnDeactivate", &TForm::OnDeactivate),
        EventOf("TForm.OnClose", &TForm::OnClose),
        EventOf("TForm.OnCloseQuery", &TForm::OnCloseQuery),
        EventOf("TForm.OnShortCut", &TForm::OnShortCut),
    };
    return events;
}

// What a user and a program do to them.

/// Tells that a screen has begun to show its form.
class TSeenPanel final : public Extctrls::TPanel
{
public:
    using TPanel::TPanel;

    bool isPainted = false;

protected:
    void Paint() override
    {
        isPainted = true;
        TPanel::Paint();
    }
};

/// A form with a panel, in which stands the control that is used.
class CScene
{
public:
    explicit CScene(const TKind& kind, bool isMain = false)
    {
        if (isMain) {
            Forms::Application->CreateForm(mForm);
        } else {
            mForm = new TForm;
        }
        mForm->setName(u"fForm");
        mForm->setKeyPreview(true);
        mForm->SetBounds(0, 0, 340, 220);
        mFormWatch = std::make_unique<Classes::TComponentWatch>(mForm);
        mPanel = Named(new TSeenPanel(mForm), u"fPanel", mForm);
        mPanel->SetBounds(0, 0, 310, 130);
        TControl* const target = kind.make(*mForm);
        mTarget = target == mForm ? mForm : Named(target, u"fTarget", mPanel);
        if (mTarget != mForm) {
            // As large, the form would lie below the panel, where a screen paints nothing of it.
            mTarget->SetBounds(0, 0, 300, 120);
        }
        mOther = Named(new Support::TProbe(mForm), u"fOther", mForm);
        mOther->SetBounds(0, 130, 100, 30);
        mTargetWatch = std::make_unique<Classes::TComponentWatch>(mTarget);
    }
    CScene(const CScene&) = delete;
    CScene& operator=(const CScene&) = delete;
    ~CScene()
    {
        if (HasForm()) {
            delete mForm;
        }
    }

    TForm& Form() { return *mForm; }
    TControl& Target() { return *mTarget; }
    TWinControl& Panel() { return *mPanel; }
    bool HasForm() const { return mFormWatch->IsAlive(); }
    bool HasTarget() const { return HasForm() && mTargetWatch->IsAlive(); }

    /// All that can be done, step by step, as long as the control is there.
    void UseAll()
    {
        Do([&] {
            mForm->Show();
            // What isn't on the screen yet isn't painted.
            EXPECT_TRUE(
                Support::RunUntil([&] { return !HasTarget() || !mForm->getVisible() || mPanel->isPainted; }));
        });
        Do([&] { mTarget->Repaint(); });
        Do([&] { mForm->Repaint(); });
        UseKeys();
        UseMouse();
        Do([&] { mTarget->SetBounds(0, 0, 250, 110); });
        Do([&] { mTarget->Perform(LB_GETITEMDATA); });
        Do([&] {
            if (auto* const list = dynamic_cast<Stdctrls::TListBox*>(mTarget)) {
                list->getItems()->Add(u"d");
            }
        });
        Do([&] {
            TForm other;
            other.Show();
        });
        Do([&] { mForm->Close(); });
        Do([&] { Forms::Application->ProcessMessages(); });
    }

    /// How often what a handler raised reached the program that did a step, since the last call.
    int TakeCaught() { return std::exchange(mCaught, 0); }

private:
    template <class T>
    static T* Named(T* control, const UnicodeString& name, TWinControl* parent)
    {
        control->setName(name);
        control->setParent(parent);
        return control;
    }

    Testing::CFormDriver Driver() { return Testing::CFormDriver(*mForm); }

    void Do(const CAct& step)
    {
        if (!HasTarget()) {
            return;
        }
        try {
            step();
        } catch (const Sysutils::Exception& fault) {
            mCaught += Sysutils::MessageOf(fault) == Failed ? 1 : 0;
        }
    }

    void Press(System::Word key, const Classes::TShiftState& shift = {})
    {
        Do([&] { Driver().Press(key, shift); });
    }

    void UseKeys()
    {
        auto* const window = HasTarget() ? dynamic_cast<TWinControl*>(mTarget) : nullptr;
        if (window == nullptr) {
            return;
        }
        const auto focus = [&] {
            Do([&] {
                if (window->CanFocus()) {
                    window->SetFocus();
                }
            });
        };
        focus();
        Press(VK_END, {Classes::ssCtrl});
        Press(VK_HOME, {Classes::ssCtrl});
        Do([&] { Driver().Type(u"b1"); });
        for (const System::Word key : {VK_DOWN, VK_RIGHT, VK_F2}) {
            Press(key);
        }
        Do([&] { Driver().Type(u"x"); });
        Press(VK_ESCAPE);
        Press(VK_F4);
        Press(VK_DOWN);
        Press(VK_RETURN);
        Press(VK_SPACE);
        Press(VK_TAB, {Classes::ssCtrl});
        Do([&] { mOther->SetFocus(); });
        focus();
    }

    void Mouse(EMouseAction action, Types::TPoint place, Controls::TMouseButton button = Controls::mbLeft)
    {
        Toolkits::TMouseInput mouse;
        mouse.action = action;
        mouse.place = place;
        mouse.button = button;
        mouse.wheelDelta = action == EMouseAction::Wheel ? -120 : 0;
        Do([&] {
            if (mTarget == mForm) {
                mForm->GetWindowEvents().MouseUsed(mouse);
            } else {
                Driver().Mouse(u"fTarget", mouse);
            }
        });
    }

    void UseMouse()
    {
        for (const auto& [from, to] : {std::pair<Types::TPoint, Types::TPoint>{{100, 60}, {100, 60}},
                                       {{100, 5}, {100, 5}},
                                       {{100, 5}, {180, 5}},
                                       {{40, 5}, {100, 5}},
                                       {{30, 40}, {30, 90}},
                                       {{5, 5}, {5, 5}}}) {
            Mouse(EMouseAction::Move, from);
            Mouse(EMouseAction::Down, from);
            Mouse(EMouseAction::Move, to);
            Mouse(EMouseAction::Up, to);
        }
        Mouse(EMouseAction::DoubleClick, {100, 60});
        Mouse(EMouseAction::Up, {100, 60});
        Mouse(EMouseAction::Wheel, {100, 60});
        Mouse(EMouseAction::Down, {100, 60}, Controls::mbRight);
        Mouse(EMouseAction::Up, {100, 60}, Controls::mbRight);
        Do([&] { Driver().Mouse(u"fOther", {}); });
    }

    TForm* mForm = nullptr;
    TSeenPanel* mPanel = nullptr;
    TControl* mTarget = nullptr;
    TWinControl* mOther = nullptr;
    std::unique_ptr<Classes::TComponentWatch> mFormWatch;
    std::unique_ptr<Classes::TComponentWatch> mTargetWatch;
    int mCaught = 0;
};

/// Whose end is tried.
enum class EVictim
{
    Control,
    Parent,
    Form
};

/// How many things are tried of each event; windows take their time, so that with them each comes in its
/// turn.
constexpr int Turns = 3;

bool IsInTurn(int turn, int deed)
{
    return !Support::ScriptedScreen::IsWanted() || turn % Turns == deed;
}

/// Calls `check(kind, event, turn)` for each event of each control.
void ForEachEvent(const std::function<void(const TKind&, const TEvent&, int)>& check)
{
    int turn = 0;
    for (const TKind& kind : Support::Kinds::All) {
        const std::unique_ptr<TForm> form(new TForm);
        TControl& control = *kind.make(*form);
        const CAct none = [] {};
        for (const TEvent& event : ControlEvents()) {
            SCOPED_TRACE(std::string(kind.name) + " " + event.name);
            if (event.arm(control, none)) {
                check(kind, event, turn++);
            }
        }
    }
}

void Destroy(CScene& scene, EVictim victim)
{
    const auto isGoing = [](const Classes::TComponent& component) {
        return component.getComponentState().Contains(Classes::csDestroying);
    };
    if (!scene.HasTarget() || isGoing(scene.Form()) || isGoing(scene.Target())) {
        return;
    }
    if (victim == EVictim::Form || &scene.Target() == &scene.Form()) {
        delete &scene.Form();
    } else if (victim == EVictim::Parent) {
        delete &scene.Panel();
    } else {
        delete &scene.Target();
    }
}

class EventHandlersTest : public testing::Test
{
protected:
    Support::ScriptedBoxes mToolkit;
};

TEST_F(EventHandlersTest, MayDestroyWhatTheyAreCalledFrom)
{
    std::set<std::string> called;
    ForEachEvent([&](const TKind& kind, const TEvent& event, int turn) {
        for (const EVictim victim : {EVictim::Control, EVictim::Parent, EVictim::Form}) {
            if (!IsInTurn(turn, static_cast<int>(victim))) {
                continue;
            }
            bool isCalled = false;
            CScene scene(kind);
            event.arm(scene.Target(), [&] {
                isCalled = true;
                Destroy(scene, victim);
            });
            scene.UseAll();
            EXPECT_EQ(scene.HasTarget(), !isCalled);
            if (!isCalled) {
                // Nor is it with the others.
                break;
            }
            called.insert(event.name);
        }
    });
    EXPECT_EQ(Controls::GetCaptureControl(), nullptr);
    EXPECT_EQ(Controls::GetFocusedControl(), nullptr);
    EXPECT_TRUE(mToolkit.TakeShown().empty());
    for (const TEvent& event : ControlEvents()) {
        EXPECT_TRUE(called.contains(event.name)) << event.name << " is never called";
    }
}

TEST_F(EventHandlersTest, MayRaiseAndNothingIsLost)
{
    ForEachEvent([&](const TKind& kind, const TEvent& event, int turn) {
        int raised = 0;
        bool isRaising = true;
        CScene scene(kind);
        event.arm(scene.Target(), [&] {
            if (isRaising) {
                ++raised;
                throw Sysutils::Exception(Failed);
            }
        });
        scene.UseAll();
        // Shown to the user, or handed to the program that called.
        EXPECT_EQ(static_cast<int>(mToolkit.TakeShown().size()) + scene.TakeCaught(), raised);
        EXPECT_TRUE(scene.HasTarget());
        isRaising = false;
        if (raised == 0 || !IsInTurn(turn, 0)) {
            return;
        }
        scene.UseAll();
        EXPECT_EQ(scene.TakeCaught(), 0);
        EXPECT_TRUE(mToolkit.TakeShown().empty());
    });
}

// What is no control.

/// A component with a handler, and what has it called.
struct TUse
{
    const char* name;
    Classes::TComponent* (*make)(TForm& form, const CAct& act);
    void (*use)(Support::ScriptedBoxes& toolkit, Classes::TComponent& component);
};

template <auto Event>
Classes::TComponent* MakeDialog(TForm& form, const CAct& act)
{
    auto* const dialog = new Dialogs::TOpenDialog(&form);
    EventOf("", Event).arm(*dialog, act);
    return dialog;
}

void Execute(Support::ScriptedBoxes& toolkit, Classes::TComponent& component)
{
    toolkit.AnswerFiles({.files = {u"file"}});
    dynamic_cast<Dialogs::TOpenDialog&>(component).Execute();
}

constexpr TUse Uses[] = {
    {"timer",
     [](TForm& form, const CAct& act) -> Classes::TComponent* {
         auto* const timer = new Extctrls::TTimer(&form);
         timer->setInterval(10);
         timer->setOnTimer([act](System::TObject*) { act(); });
         return timer;
     },
     [](Support::ScriptedBoxes& toolkit, Classes::TComponent&) { toolkit.AdvanceClock(15); }},
    {"menu item",
     [](TForm& form, const CAct& act) -> Classes::TComponent* {
         auto* const menu = new Menus::TPopupMenu(&form);
         auto* const item = new Menus::TMenuItem(menu);
         item->setCaption(u"x");
         item->OnClick = [act](System::TObject*) { act(); };
         menu->getItems()->Add(item);
         return menu;
     },
     [](Support::ScriptedBoxes& toolkit, Classes::TComponent& menu) {
         toolkit.AnswerMenu(u"x");
         dynamic_cast<Menus::TPopupMenu&>(menu).Popup(0, 0);
     }},
    {"popup menu",
     [](TForm& form, const CAct& act) -> Classes::TComponent* {
         auto* const menu = new Menus::TPopupMenu(&form);
         menu->OnPopup = [act](System::TObject*) { act(); };
         return menu;
     },
     [](Support::ScriptedBoxes&, Classes::TComponent& menu) {
         dynamic_cast<Menus::TPopupMenu&>(menu).Popup(0, 0);
     }},
    {"dialog that is shown", MakeDialog<&Dialogs::TCommonDialog::OnShow>, Execute},
    {"dialog that closes", MakeDialog<&Dialogs::TCommonDialog::OnClose>, Execute},
    {"dialog that may close", MakeDialog<&Dialogs::TOpenDialog::OnCanClose>, Execute},
};

TEST_F(EventHandlersTest, OfComponentsMayDestroyThemAndRaise)
{
    mToolkit.UseVirtualClock();
    enum class EDeed
    {
        DestroyComponent,
        DestroyForm,
        Raise
    };
    for (const TUse& row : Uses) {
        for (const EDeed deed : {EDeed::DestroyComponent, EDeed::DestroyForm, EDeed::Raise}) {
            SCOPED_TRACE(row.name);
            auto* const form = new TForm;
            const Classes::TComponentWatch formWatch(form);
            Classes::TComponent* component = nullptr;
            int calls = 0;
            component = row.make(*form, [&] {
                ++calls;
                if (deed == EDeed::Raise) {
                    throw Sysutils::Exception(Failed);
                }
                delete (deed == EDeed::DestroyForm ? form : component);
            });
            const Classes::TComponentWatch watch(component);
            int caught = 0;
            try {
                row.use(mToolkit, *component);
            } catch (const Sysutils::Exception&) {
                ++caught;
            }
            EXPECT_EQ(calls, 1);
            const auto seen = static_cast<int>(mToolkit.TakeShown().size()) + caught;
            EXPECT_EQ(seen, deed == EDeed::Raise ? 1 : 0);
            EXPECT_EQ(watch.IsAlive(), deed == EDeed::Raise);
            EXPECT_EQ(formWatch.IsAlive(), deed != EDeed::DestroyForm);
            if (formWatch.IsAlive()) {
                delete form;
            }
        }
    }
}

TEST_F(EventHandlersTest, OfTheApplicationMayRaise)
{
    Forms::TApplication& application = *Forms::Application;
    const auto fail = [](auto&&...) {
        // Nothing is waited for.
        Toolkits::CurrentToolkit().Post([] {});
        throw Sysutils::Exception(Failed);
    };
    application.OnIdle = fail;
    std::size_t told = 0;
    // What a screen still has to say comes first.
    EXPECT_TRUE(Support::RunUntil([&] {
        application.HandleMessage();
        return (told += mToolkit.TakeShown().size()) > 0;
    }));
    application.OnIdle = nullptr;
    EXPECT_EQ(told, 1U);
    // Even what tells of exceptions.
    application.OnException = fail;
    application.RunHandled([] { throw Sysutils::Exception(u"first"); });
    application.OnException = nullptr;
    const auto shown = mToolkit.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].box.text, Failed);
}

/// The caller or the user is told, and the form is in use all the same.
TEST_F(EventHandlersTest, OfTheScreenMayRaise)
{
    Forms::TForm form(nullptr);
    auto* const first = new Stdctrls::TEdit(&form);
    auto* const second = new Stdctrls::TEdit(&form);
    for (Stdctrls::TEdit* const edit : {first, second}) {
        edit->setParent(&form);
        edit->setHint(u"short|long");
        edit->setShowHint(true);
    }
    second->setTop(50);
    second->setName(u"Second");
    const auto tellsOnce = [this](Classes::TNotifyEvent& event, const std::function<void()>& act) {
        int calls = 0;
        event = [&](System::TObject*) {
            ++calls;
            throw Sysutils::Exception(Failed);
        };
        int told = 0;
        try {
            act();
            Forms::Application->ProcessMessages();
        } catch (const Sysutils::Exception&) {
            ++told;
        }
        event = nullptr;
        told += static_cast<int>(mToolkit.TakeShown().size());
        EXPECT_GT(calls, 0);
        EXPECT_EQ(told, calls);
    };
    tellsOnce(Forms::Screen->OnActiveFormChange, [&] { form.Show(); });
    EXPECT_TRUE(form.getVisible());
    EXPECT_EQ(Forms::Screen->getActiveForm(), &form);
    tellsOnce(Forms::Screen->OnActiveControlChange, [&] { second->SetFocus(); });
    second->SetFocus();
    EXPECT_TRUE(second->Focused()) << "the next try moves the focus";
    tellsOnce(Forms::Application->OnHint, [&] {
        Testing::CFormDriver(form).Mouse(u"Second",
                                         {.action = Toolkits::EMouseAction::Move, .place = {3, 3}});
    });
    first->SetFocus();
    EXPECT_TRUE(first->Focused());
}

/// In a process of its own, which is asked to end when its main form goes.
TEST_F(EventHandlersTest, DISABLED_DestroyTheMainForm)
{
    ForEachEvent([](const TKind& kind, const TEvent& event, int turn) {
        if (!IsInTurn(turn, 1)) {
            return;
        }
        CScene scene(kind, true);
        EXPECT_EQ(Forms::Application->getMainForm(), &scene.Form());
        event.arm(scene.Target(), [&] { Destroy(scene, EVictim::Form); });
        scene.UseAll();
        EXPECT_EQ(Forms::Application->getMainForm() == nullptr, !scene.HasForm());
    });
    Support::PrintResult(HasFailure() ? "failed" : "destroyed");
}

TEST_F(EventHandlersTest, MayDestroyTheMainForm)
{
    EXPECT_EQ(Support::RunChildTest("EventHandlersTest.DISABLED_DestroyTheMainForm"), "destroyed");
}

} // namespace
