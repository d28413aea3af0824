// SPDX-License-Identifier: MIT
#include "platform/visual/forms/Forms_Application.h"

#include "platform/host/Host_Module.h"
#include "platform/runtime/classes/Classes_ComponentLink.h"
#include "platform/runtime/classes/internal/Classes_EndFault.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/LoopFaults.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/controls/internal/Controls_Hint.h"
#include "platform/visual/forms/Classes_DataModule.h"
#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/forms/Forms_Screen.h"
#include "platform/visual/graphics/Graphics_Icon.h"

#include <vector>

namespace Forms
{

constinit TApplication* Application = nullptr;
constinit TScreen* Screen = nullptr;

namespace
{

void HandleControlException(System::TObject* sender)
{
    Application->HandleException(sender);
}

/// The hint of what the mouse is over, which its parents may give.
void ShowHintOf(Controls::TControl* control)
{
    System::UnicodeString hint;
    for (; control != nullptr && hint.IsEmpty(); control = control->getParent()) {
        hint = control->getHint();
    }
    Application->setHint(hint);
}

/// Makes the two global objects. They are never destroyed: a fault in the destructor of a program's global
/// object still finds them.
struct TGlobalObjects
{
    TGlobalObjects()
    {
        Application = new TApplication;
        Screen = new TScreen;
        Controls::ApplicationLinks().HandleException = &HandleControlException;
        // What is at its end is no sender.
        Classes::TellEndFault = [] { Application->HandleException(nullptr); };
        Toolkits::HandleLoopException = [] { Application->HandleException(Application); };
        Toolkits::HandleScreenLoss = [] { Application->ScreenLost(); };
        Controls::ApplicationLinks().MouseMoved = &ShowHintOf;
        Controls::ApplicationLinks().ControlDestroyed = [](Controls::TControl* control) {
            Screen->Forget(control);
        };
    }
};

// Units that ask for the program's folder while they start find the application there.
[[gnu::init_priority(200)]] TGlobalObjects globalObjects;

bool IsThere(const TCustomForm* form)
{
    for (int i = 0; i < Screen->getCustomFormCount(); ++i) {
        if (Screen->getCustomForms(i) == form) {
            return true;
        }
    }
    return false;
}

} // namespace

System::TMetaClass* TApplication::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TApplication>(u"TApplication").Build();
    return record;
}

TApplication::TApplication()
    : mTitle(Sysutils::ChangeFileExt(Sysutils::ExtractFileName(getExeName()), System::UnicodeString()))
{
}

TApplication::~TApplication() = default;

System::UnicodeString TApplication::getExeName() const
{
    return Host::ProgramPath();
}

Graphics::TIcon* TApplication::getIcon()
{
    if (mIcon == nullptr) {
        mIcon = System::MakeOwner<Graphics::TIcon>();
    }
    return mIcon.get();
}

void TApplication::setIcon(Graphics::TIcon* icon)
{
    getIcon()->Assign(icon);
}

void TApplication::FormCreated(Classes::TComponent* component, const System::TClosure<void()>& onGone)
{
    const Classes::TComponentLink link(component, onGone);
    if (auto* const module = dynamic_cast<Classes::TDataModule*>(component)) {
        return module->AfterConstruction();
    }
    auto* const form = dynamic_cast<TCustomForm*>(component);
    if (form == nullptr) {
        return;
    }
    if (mMainForm == nullptr) {
        mMainForm = form;
    }
    form->AfterConstruction();
}

void TApplication::FormDestroyed(const TCustomForm* form) noexcept
{
    if (form == mMainForm) {
        mMainForm = nullptr;
        Terminate();
    }
}

void TApplication::Terminate()
{
    mTerminated = true;
    Toolkits::CurrentToolkit().Post([] {});
}

int TApplication::MessageBox(const System::WideChar* text, const System::WideChar* caption, int flags) const
{
    return MessageBoxW(nullptr, text, caption == nullptr ? mTitle.c_str() : caption,
                       static_cast<unsigned>(flags));
}

void TApplication::ProcessMessages()
{
    while (Toolkits::CurrentToolkit().ProcessMessage()) {
    }
}

void TApplication::HandleMessage()
{
    if (Toolkits::CurrentToolkit().ProcessMessage()) {
        return;
    }
    bool isDone = true;
    if (OnIdle) {
        RunHandled([&] { OnIdle(this, isDone); });
    }
    if (isDone) {
        Toolkits::CurrentToolkit().WaitMessage();
    }
}

void TApplication::Run()
{
    if (mMainForm != nullptr && mShowMainForm) {
        mMainForm->Show();
    }
    while (!mTerminated) {
        try {
            HandleMessage();
        } catch (...) {
            HandleException(this);
        }
    }
}

void TApplication::HandleException(System::TObject* sender)
{
    if (!OnException) {
        return ShowCurrentException();
    }
    try {
        TellException(sender);
    } catch (...) {
        // What the handler itself raises must not end the program.
        ShowCurrentException();
    }
}

void TApplication::TellException(System::TObject* sender)
{
    try {
        throw;
    } catch (const Sysutils::EAbort&) {
    } catch (const std::exception& fault) {
        OnException(sender, fault);
    }
}

void TApplication::ShowCurrentException()
{
    try {
        throw;
    } catch (const Sysutils::EAbort&) {
    } catch (const std::exception& fault) {
        ShowException(fault);
    } catch (...) {
        MessageBox(u"An exception of an unknown kind", nullptr, MB_OK | MB_ICONSTOP);
    }
}

void TApplication::ShowException(const std::exception& fault)
{
    MessageBox(Sysutils::MessageOf(fault).c_str(), nullptr, MB_OK | MB_ICONSTOP);
}

void TApplication::ScreenLost()
{
    mTerminated = true;
    RunHandled([this] {
        if (OnScreenLost) {
            OnScreenLost(this);
        }
    });
    // A handler may destroy forms.
    std::vector<TCustomForm*> forms;
    for (int i = 0; i < Screen->getCustomFormCount(); ++i) {
        forms.push_back(Screen->getCustomForms(i));
    }
    for (TCustomForm* const form : forms) {
        if (IsThere(form) && form->getVisible()) {
            RunHandled([form] {
                TCloseAction action = caHide;
                form->DoClose(action);
            });
        }
    }
}

bool TApplication::HelpContext(int context)
{
    return HelpCommand(1, context);
}

bool TApplication::HelpCommand(int command, System::NativeInt data)
{
    bool callHelp = true;
    return OnHelp && OnHelp(static_cast<System::Word>(command), data, callHelp);
}

void TApplication::setHint(const System::UnicodeString& hint)
{
    const System::UnicodeString text = Controls::LongHint(hint);
    if (text != mHint) {
        mHint = text;
        if (OnHint) {
            OnHint(this);
        }
    }
}

} // namespace Forms
