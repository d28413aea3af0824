// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniBusy.h"

#include "config/BTL_INI_Ini.h"

namespace BTL
{

AIniBusy::AIniBusy(AIni* ini) : mIni(ini)
{
    if (mIni == nullptr) {
        return;
    }
    mIni->Begin();
    try {
        mIni->Load();
    } catch (...) {
        mIni->OnError();
        throw;
    }
}

AIniBusy::~AIniBusy()
{
    if (mIni == nullptr) {
        return;
    }
    try {
        mIni->OnError();
    } catch (...) { // NOLINT(bugprone-empty-catch): the exception that ended the work is on its way
    }
}

void AIniBusy::End()
{
    if (mIni != nullptr) {
        mIni->End();
        mIni = nullptr;
    }
}

void CIniWriteBusy::End()
{
    if (getIni() != nullptr) {
        getIni()->Save();
        AIniBusy::End();
    }
}

} // namespace BTL
