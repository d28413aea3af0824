// SPDX-License-Identifier: MIT
#include "environment/BTL_ENV_ApplicationIni.h"
#include "environment/BTL_ENV_PathMacros.h"
#include "environment/BTL_ENV_UserFolders.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "platform/host/Host_Path.h"
#include "support/WorkFolder.h"

using Fuzz::Require;
using System::UnicodeString;

namespace
{

/// Lets the user's data lie in a folder that goes with the program.
void PlaceUserData()
{
    static const Fuzz::WorkFolder folder;
    static BTL::CApplicationIni application;
    application.UserDataPath = Sysutils::FromHostPath(folder.Path().string());
    BTL::CApplicationIni::Set(&application);
}

/// A folder with a text behind it comes back from its stored form.
void RoundTrip(const UnicodeString& path)
{
    const UnicodeString stored = BTL::ReplacePathToMacro(path);
    Require(stored.AsView().starts_with(u'%') && stored.Length() < path.Length());
    Require(BTL::ReplaceMacroToPath(stored) == path);
}

/// Macros and paths of the input's own, which may hold each other.
void ReplaceOwn(Fuzz::Input& input)
{
    BTL::CStringPairs macros;
    for (int i = 0; i < 4; ++i) {
        const UnicodeString macro = System::FromUtf8(input.TakeLine());
        macros.Add(macro, System::FromUtf8(input.TakeLine().substr(0, 40)));
    }
    const UnicodeString text = System::FromUtf8(input.getText().substr(0, 200));
    const UnicodeString path = macros.ReplaceMacroToPath(text);
    Require(path != text || macros.ReplaceMacroToPathRecursive(text) == text);
    static_cast<void>(macros.ReplacePathToMacro(text));
}

} // namespace

/// The bytes are what stands behind a folder, and then macros, their paths and a text, each in a line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool isPlaced = (PlaceUserData(), true);
    Require(isPlaced);
    const std::string_view bytes = Fuzz::Bytes(data, size);
    for (const UnicodeString& text : {System::FromUtf8(bytes), Fuzz::WideText(bytes)}) {
        if (text.Pos(u"%") != 0) {
            static_cast<void>(BTL::ReplaceMacroToPath(text));
            continue;
        }
        Require(BTL::ReplaceMacroToPath(text) == text);
        for (const UnicodeString& folder :
             {BTL::GetRootPath(), BTL::GetProductPath(), BTL::GetUserDataPath()}) {
            RoundTrip(folder + text);
        }
    }
    Fuzz::Input input(data, size);
    ReplaceOwn(input);
    return 0;
}
