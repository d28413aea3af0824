// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/sysutils/System_Printf.h"
#include "platform/toolkit/Dialogs.h"

namespace Classes
{
class TStrings;
} // namespace Classes

namespace BTL
{

/// Texts by number, with the boxes, inputs and exceptions that show them. In the forms `_V` and `_VA` the
/// text is a format of `System::Printf`; one that doesn't fit its arguments gives a text that tells where it
/// stands. `flags` and the results of boxes are those of the platform's boxes.
///
///     BTL::CIDSIniFile texts(u"station.ids");                     // one of the sources
///     const auto line = texts.GetString_VA(12, u"Ofen", 20.5);    // "%s: %.1f °C" filled
///     if (texts.MessageBox1(13, MB_YESNO | MB_ICONQUESTION) == IDYES) { ... }
///     texts.ThrowMessage_VA(14, 0, u"Ofen");
class TRS8_BTL_API AID_Strings
{
public:
    virtual ~AID_Strings();

    /// The text; what an unknown `id` gives is told by the source.
    virtual System::UnicodeString GetString(int id) = 0;
    /// The text; `defaultValue` if there is none, or where the source doesn't say otherwise an empty one.
    virtual System::UnicodeString GetStringDef(int id, const System::UnicodeString& defaultValue);

    /// The text as a format, filled.
    System::UnicodeString GetString_V(int id, System::TVarArgs arguments);
    /// As `GetString_V`, with the arguments one by one.
    template <class... Arguments>
    System::UnicodeString GetString_VA(int id, const Arguments&... arguments)
    {
        return GetString_V(id, {arguments...});
    }

    /// The text without the square brackets around it, if it has both.
    System::UnicodeString GetCommaText(int id);
    /// Sets the lines of `list` to the items of the comma text. A null `list` is left alone.
    void GetStrings(int id, Classes::TStrings* list);
    /// Sets the lines of `list` to the items of one comma text, and their objects to the numbers of another
    /// one, 0 for what is no number. Different counts are an internal fault, with the list empty.
    void GetStringsEx(int idNames, int idValues, Classes::TStrings* list);

    /// A box with a text of the caller's, under the application's title.
    int MessageBoxW(const System::UnicodeString& text, int flags);
    /// A box under the application's title.
    int MessageBox1(int id, int flags);
    int MessageBox1_V(int id, int flags, System::TVarArgs arguments);
    /// As `MessageBox1_V`, with the arguments one by one.
    template <class... Arguments>
    int MessageBox1_VA(int id, int flags, const Arguments&... arguments)
    {
        return MessageBox1_V(id, flags, {arguments...});
    }
    /// A box under another text, which is not filled.
    int MessageBox2(int idText, int idCaption, int flags);
    int MessageBox2_V(int idText, int idCaption, int flags, System::TVarArgs arguments);
    /// As `MessageBox2_V`, with the arguments one by one.
    template <class... Arguments>
    int MessageBox2_VA(int idText, int idCaption, int flags, const Arguments&... arguments)
    {
        return MessageBox2_V(idText, idCaption, flags, {arguments...});
    }
    /// A box under a caption of the caller's.
    int MessageBox3(int id, const System::UnicodeString& caption, int flags);
    int MessageBox3_V(int id, const System::UnicodeString& caption, int flags, System::TVarArgs arguments);
    /// As `MessageBox3_V`, with the arguments one by one.
    template <class... Arguments>
    int MessageBox3_VA(int id, const System::UnicodeString& caption, int flags, const Arguments&... arguments)
    {
        return MessageBox3_V(id, caption, flags, {arguments...});
    }

    /// As `Dialogs::MessageDlg` of the text.
    int MessageDlg(int id, Dialogs::TMsgDlgType type, Dialogs::TMsgDlgButtons buttons, int helpContext);
    int MessageDlg_V(int id, Dialogs::TMsgDlgType type, Dialogs::TMsgDlgButtons buttons, int helpContext,
                     System::TVarArgs arguments);
    /// As `MessageDlg_V`, with the arguments one by one.
    template <class... Arguments>
    int MessageDlg_VA(int id, Dialogs::TMsgDlgType type, Dialogs::TMsgDlgButtons buttons, int helpContext,
                      const Arguments&... arguments)
    {
        return MessageDlg_V(id, type, buttons, helpContext, {arguments...});
    }

    /// Raises a `Sysutils::Exception` with the text and the page of the help that tells of it.
    [[noreturn]] void ThrowMessage(const System::UnicodeString& text, int helpContext);
    [[noreturn]] void ThrowMessage(int id, int helpContext);
    [[noreturn]] void ThrowMessage_V(int id, int helpContext, System::TVarArgs arguments);
    /// As `ThrowMessage_V`, with the arguments one by one.
    template <class... Arguments>
    [[noreturn]] void ThrowMessage_VA(int id, int helpContext, const Arguments&... arguments)
    {
        ThrowMessage_V(id, helpContext, {arguments...});
    }

    /// As `Dialogs::InputBox`; the default may be a text of the source too.
    System::UnicodeString InputBox(int idCaption, int idPrompt, const System::UnicodeString& defaultValue);
    System::UnicodeString InputBox(int idCaption, int idPrompt, int idDefault);
    /// As `Dialogs::InputQuery`.
    bool InputQuery(int idCaption, int idPrompt, System::UnicodeString& value);

protected:
    /// What is known of a text beside itself.
    struct TOrigin
    {
        /// Where it stands, for messages.
        System::UnicodeString place;
        /// False if it is no text of the caller's, but a notice in its stead, which nothing fills.
        bool isFormat = true;
    };

    /// The origin of what `GetString` gives; the base only knows the number.
    virtual TOrigin GetOrigin(int id);

    AID_Strings() = default;
    AID_Strings(const AID_Strings&) = default;
    AID_Strings& operator=(const AID_Strings&) = default;
};

} // namespace BTL
