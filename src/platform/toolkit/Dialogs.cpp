// SPDX-License-Identifier: MIT
#include "platform/toolkit/Dialogs.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/toolkit/Toolkit.h"

#include <algorithm>
#include <array>
#include <vector>

namespace Dialogs
{

namespace
{

struct TButtonRow
{
    unsigned flags;
    TMsgDlgButtons buttons;
};

/// The rows that a box can have, those with fewer buttons first.
std::array<TButtonRow, 6> ButtonRows()
{
    return {{{MB_OK, {mbOK}},
             {MB_OKCANCEL, {mbOK, mbCancel}},
             {MB_YESNO, {mbYes, mbNo}},
             {MB_RETRYCANCEL, {mbRetry, mbCancel}},
             {MB_YESNOCANCEL, {mbYes, mbNo, mbCancel}},
             {MB_ABORTRETRYIGNORE, {mbAbort, mbRetry, mbIgnore}}}};
}

unsigned RowFlags(const TMsgDlgButtons& wanted)
{
    const auto rows = ButtonRows();
    const auto found =
        std::ranges::find_if(rows, [&](const TButtonRow& row) { return (wanted - row.buttons).Empty(); });
    return found == rows.end() ? MB_OK : found->flags;
}

struct TLook
{
    unsigned icon;
    const System::WideChar* caption;
};

TLook LookOf(TMsgDlgType type)
{
    switch (type) {
    case mtWarning:
        return {MB_ICONWARNING, u"Warning"};
    case mtError:
        return {MB_ICONSTOP, u"Error"};
    case mtInformation:
        return {MB_ICONINFORMATION, u"Information"};
    case mtConfirmation:
        return {MB_ICONQUESTION, u"Confirm"};
    case mtCustom:
        break;
    }
    return {0, u""};
}

} // namespace

int MessageDlg(const System::UnicodeString& text, TMsgDlgType type, TMsgDlgButtons buttons, int)
{
    const TLook look = LookOf(type);
    // The numbers of the answers are those of the buttons.
    return MessageBoxW(nullptr, text.c_str(), look.caption, RowFlags(buttons) | look.icon);
}

int MessageDlgPos(const System::UnicodeString& text, TMsgDlgType type, TMsgDlgButtons buttons,
                  int helpContext, int, int)
{
    return MessageDlg(text, type, buttons, helpContext);
}

void ShowMessage(const System::UnicodeString& text)
{
    MessageDlg(text, mtCustom, {mbOK}, 0);
}

bool InputQuery(const System::UnicodeString& caption, const System::UnicodeString& prompt,
                System::UnicodeString& value)
{
    return Toolkits::CurrentToolkit().AskInput({.caption = caption, .prompt = prompt, .value = value}, value);
}

bool InputQuery(const System::UnicodeString& caption, std::span<const System::UnicodeString> prompts,
                std::span<System::UnicodeString> values)
{
    if (prompts.empty() || values.size() < prompts.size()) {
        throw Classes::EInvalidOperation(u"An input takes at least one prompt, and a value for each");
    }
    std::vector<System::UnicodeString> lines(values.begin(), values.end());
    for (std::size_t i = 0; i < prompts.size(); ++i) {
        if (!InputQuery(caption, prompts[i], lines[i])) {
            return false;
        }
    }
    std::ranges::copy(lines, values.begin());
    return true;
}

System::UnicodeString InputBox(const System::UnicodeString& caption, const System::UnicodeString& prompt,
                               const System::UnicodeString& defaultValue)
{
    System::UnicodeString line = defaultValue;
    InputQuery(caption, prompt, line);
    return line;
}

} // namespace Dialogs
