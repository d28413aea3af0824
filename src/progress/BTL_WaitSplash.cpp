// SPDX-License-Identifier: MIT
#include "progress/BTL_WaitSplash.h"

#include "platform/runtime/classes/Classes_ComponentLink.h"
#include "platform/visual/Forms.h"

namespace BTL
{

constinit TWaitForDataSplashDLG* CWaitSplash::smSplash = nullptr;

CWaitSplash::CWaitSplash(const System::UnicodeString& text, bool show)
{
    if (!show || smSplash != nullptr) {
        return;
    }
    smSplash = new TWaitForDataSplashDLG(Forms::Application, text);
    // Whoever destroys the form, nobody keeps its address.
    mForm = System::MakeOwner<Classes::TComponentLink>(smSplash, [] { smSplash = nullptr; });
    try {
        smSplash->Show();
        if (smSplash != nullptr) {
            smSplash->Update();
        }
    } catch (...) {
        Remove();
        throw;
    }
}

CWaitSplash::~CWaitSplash()
{
    Remove();
}

void CWaitSplash::Remove()
{
    if (mForm == nullptr || mForm->getComponent() == nullptr) {
        return;
    }
    auto* const form = static_cast<TWaitForDataSplashDLG*>(mForm->getComponent());
    smSplash = nullptr;
    mForm = nullptr;
    // It hides itself.
    delete form;
}

CWaitForDataSplashEx::CWaitForDataSplashEx(bool show) : CWaitForDataSplash(show)
{
    if (show && Forms::Screen != nullptr) {
        mOldCursor = Forms::Screen->getCursor();
        Forms::Screen->setCursor(Controls::crHourGlass);
    }
}

CWaitForDataSplashEx::~CWaitForDataSplashEx()
{
    if (mOldCursor != Controls::crNone && Forms::Screen != nullptr) {
        Forms::Screen->setCursor(mOldCursor);
    }
}

} // namespace BTL
