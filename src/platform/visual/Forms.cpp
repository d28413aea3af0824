// SPDX-License-Identifier: MIT
#include "platform/visual/Forms.h"

#include "platform/host/Host_Module.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/toolkit/Toolkit.h"

namespace Forms
{

constinit TApplication* Application = nullptr;
constinit TScreen* Screen = nullptr;

namespace
{

/// Makes the two global objects. They are never destroyed: a fault in the destructor of a program's global
/// object still finds them.
struct TGlobalObjects
{
    TGlobalObjects()
    {
        Application = new TApplication;
        Screen = new TScreen;
    }
};

// Units that ask for the program's folder while they start find the application there.
[[gnu::init_priority(200)]] TGlobalObjects globalObjects;

} // namespace

TApplication::TApplication()
    : mTitle(Sysutils::ChangeFileExt(Sysutils::ExtractFileName(getExeName()), System::UnicodeString()))
{
}

TApplication::~TApplication() = default;

System::UnicodeString TApplication::getExeName() const
{
    return Host::ProgramPath();
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
    if (!Toolkits::CurrentToolkit().ProcessMessage()) {
        Toolkits::CurrentToolkit().WaitMessage();
    }
}

void TApplication::Run()
{
    while (!mTerminated) {
        HandleMessage();
    }
}

Types::TRect TScreen::getDesktopRect() const
{
    return Toolkits::CurrentToolkit().DesktopRect();
}

void TScreen::setCursor(Controls::TCursor cursor)
{
    if (mCursor != cursor) {
        mCursor = cursor;
        Toolkits::CurrentToolkit().SetCursor(cursor);
    }
}

} // namespace Forms
