// SPDX-License-Identifier: MIT
#include "languages/BTL_ID_Strings.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "languages/boxes/Btl_messagebox.h"
#include "languages/internal/BTL_ID_Notice.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/numbers/Sysutils_Integer.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "text/lists/BTL_STR_StringList.h"

#include <algorithm>

namespace BTL
{

namespace
{

using System::TVarArgs;
using System::UnicodeString;

constexpr UTL::CFaultPlace UnequalCounts{"BTL_ID_Strings", 91};

/// Lists carry small numbers where others have objects; nobody looks at what such a pointer points to.
System::TObject* NumberAsObject(int number)
{
    return reinterpret_cast<System::TObject*>(static_cast<System::NativeInt>(number));
}

} // namespace

AID_Strings::~AID_Strings() = default;

UnicodeString AID_Strings::GetStringDef(int id, const UnicodeString& defaultValue)
{
    const UnicodeString text = GetString(id);
    return text.IsEmpty() ? defaultValue : text;
}

AID_Strings::TOrigin AID_Strings::GetOrigin(int id)
{
    return {.place = u"IDS-Key '" + UnicodeString(id) + u"'"};
}

UnicodeString AID_Strings::GetString_V(int id, TVarArgs arguments)
{
    const UnicodeString text = GetString(id);
    const TOrigin origin = GetOrigin(id);
    if (!origin.isFormat) {
        return text;
    }
    try {
        return System::Printf(text, arguments);
    } catch (const Sysutils::EConvertError&) {
        const UnicodeString notice = origin.place + u" has wrong placeholders: " + text;
        LogNoticeOnce(notice);
        return notice;
    }
}

UnicodeString AID_Strings::GetCommaText(int id)
{
    const UnicodeString text = GetString(id);
    const bool isBracketed = text.Length() >= 2 && text[1] == u'[' && text[text.Length()] == u']';
    return isBracketed ? text.SubString(2, text.Length() - 2) : text;
}

void AID_Strings::GetStrings(int id, Classes::TStrings* list)
{
    if (list != nullptr) {
        list->setCommaText(GetCommaText(id));
    }
}

void AID_Strings::GetStringsEx(int idNames, int idValues, Classes::TStrings* list)
{
    if (list == nullptr) {
        return;
    }
    list->Clear();
    CStringList names;
    CStringList values;
    names.setCommaText(GetCommaText(idNames));
    values.setCommaText(GetCommaText(idValues));
    if (names.getCount() != values.getCount()) {
        UTL::THROW_XAssert(UnequalCounts);
    }
    const int count = std::min(names.getCount(), values.getCount());
    for (int i = 0; i < count; ++i) {
        const int number = Sysutils::StrToIntDef(Sysutils::Trim(values[i]), 0);
        list->AddObject(names[i], NumberAsObject(number));
    }
}

int AID_Strings::MessageBoxW(const UnicodeString& text, int flags)
{
    return BTL::MessageBoxW(text.c_str(), flags);
}

int AID_Strings::MessageBox1(int id, int flags)
{
    return MessageBoxW(GetString(id), flags);
}

int AID_Strings::MessageBox1_V(int id, int flags, TVarArgs arguments)
{
    return MessageBoxW(GetString_V(id, arguments), flags);
}

int AID_Strings::MessageBox2(int idText, int idCaption, int flags)
{
    return MessageBox3(idText, GetString(idCaption), flags);
}

int AID_Strings::MessageBox2_V(int idText, int idCaption, int flags, TVarArgs arguments)
{
    return MessageBox3_V(idText, GetString(idCaption), flags, arguments);
}

int AID_Strings::MessageBox3(int id, const UnicodeString& caption, int flags)
{
    return BTL::MessageBoxW(GetString(id).c_str(), caption.c_str(), flags);
}

int AID_Strings::MessageBox3_V(int id, const UnicodeString& caption, int flags, TVarArgs arguments)
{
    return BTL::MessageBoxW(GetString_V(id, arguments).c_str(), caption.c_str(), flags);
}

int AID_Strings::MessageDlg(int id, Dialogs::TMsgDlgType type, Dialogs::TMsgDlgButtons buttons,
                            int helpContext)
{
    return Dialogs::MessageDlg(GetString(id), type, buttons, helpContext);
}

int AID_Strings::MessageDlg_V(int id, Dialogs::TMsgDlgType type, Dialogs::TMsgDlgButtons buttons,
                              int helpContext, TVarArgs arguments)
{
    return Dialogs::MessageDlg(GetString_V(id, arguments), type, buttons, helpContext);
}

void AID_Strings::ThrowMessage(const UnicodeString& text, int helpContext)
{
    throw Sysutils::Exception(text, helpContext);
}

void AID_Strings::ThrowMessage(int id, int helpContext)
{
    ThrowMessage(GetString(id), helpContext);
}

void AID_Strings::ThrowMessage_V(int id, int helpContext, TVarArgs arguments)
{
    ThrowMessage(GetString_V(id, arguments), helpContext);
}

UnicodeString AID_Strings::InputBox(int idCaption, int idPrompt, const UnicodeString& defaultValue)
{
    return Dialogs::InputBox(GetString(idCaption), GetString(idPrompt), defaultValue);
}

UnicodeString AID_Strings::InputBox(int idCaption, int idPrompt, int idDefault)
{
    return InputBox(idCaption, idPrompt, GetString(idDefault));
}

bool AID_Strings::InputQuery(int idCaption, int idPrompt, UnicodeString& value)
{
    return Dialogs::InputQuery(GetString(idCaption), GetString(idPrompt), value);
}

} // namespace BTL
