// SPDX-License-Identifier: MIT
// Tells what a program finds in the folders beside it.
#include <TRS8_BTL/environment/BTL_ENV_ApplicationIni.h>
#include <TRS8_BTL/environment/folders/BTL_ENV_Folders.h>
#include <TRS8_BTL/platform/runtime/sysutils/Sysutils_File.h>

#include <cstdio>

int main()
{
    const bool hasTexts = Sysutils::FileExists(BTL::GetProgramIDSPath() + u"BTL_German.ids") &&
                          Sysutils::FileExists(BTL::GetProgramIDSPath() + u"German\\BTL_German.ids");
    std::printf("%s %s", System::ToUtf8(BTL::GetEndSubPath(BTL::GetBinPath(), 2)).c_str(),
                System::ToUtf8(BTL::CApplicationIni::Get()->getTitle()).c_str());
    return hasTexts ? 0 : 1;
}
