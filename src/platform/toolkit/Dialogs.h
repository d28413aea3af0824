// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Set.h"
#include "platform/base/System_String.h"

#include <span>

/// The answers of a box.
inline constexpr int mrNone = 0;
inline constexpr int mrOk = 1;
inline constexpr int mrCancel = 2;
inline constexpr int mrAbort = 3;
inline constexpr int mrRetry = 4;
inline constexpr int mrIgnore = 5;
inline constexpr int mrYes = 6;
inline constexpr int mrNo = 7;

namespace Dialogs
{

/// What a box is for; it shows the icon for that.
enum TMsgDlgType
{
    mtWarning,
    mtError,
    mtInformation,
    mtConfirmation,
    mtCustom
};

/// The buttons of a box.
enum TMsgDlgBtn
{
    mbYes,
    mbNo,
    mbOK,
    mbCancel,
    mbAbort,
    mbRetry,
    mbIgnore
};

/// `TMsgDlgButtons() << mbYes << mbNo`.
using TMsgDlgButtons = System::Set<TMsgDlgBtn, mbYes, mbIgnore>;

/// Shows a box through the current toolkit and gives its answer, one of `mr...`. A set of buttons that the
/// toolkit doesn't have gets the smallest it has that holds them, or else OK. `helpContext` isn't looked at.
///
///     using namespace Dialogs;
///     if (MessageDlg(u"Overwrite?", mtConfirmation, {mbYes, mbNo}, 0) == mrYes) { ... }
TRS8_BTL_API int MessageDlg(const System::UnicodeString& text, TMsgDlgType type, TMsgDlgButtons buttons,
                            int helpContext);
/// As `MessageDlg`; where the box stands is the toolkit's to know, so the place isn't looked at.
TRS8_BTL_API int MessageDlgPos(const System::UnicodeString& text, TMsgDlgType type, TMsgDlgButtons buttons,
                               int helpContext, int x, int y);
/// A box with OK alone.
TRS8_BTL_API void ShowMessage(const System::UnicodeString& text);

/// Asks for a line of text, which is `value` at first. True if the user agreed, and then `value` is the line;
/// otherwise it stays.
TRS8_BTL_API bool InputQuery(const System::UnicodeString& caption, const System::UnicodeString& prompt,
                             System::UnicodeString& value);
/// Asks for one line after the other, for each prompt one, as `InputQuery` does. Once the user cancels,
/// false, and all values stay. `Classes::EInvalidOperation` without a prompt, and for fewer values than
/// prompts.
TRS8_BTL_API bool InputQuery(const System::UnicodeString& caption,
                             std::span<const System::UnicodeString> prompts,
                             std::span<System::UnicodeString> values);
/// As `InputQuery`, but gives the line itself, which is `defaultValue` at first and if the user cancels.
TRS8_BTL_API System::UnicodeString InputBox(const System::UnicodeString& caption,
                                            const System::UnicodeString& prompt,
                                            const System::UnicodeString& defaultValue);

} // namespace Dialogs
