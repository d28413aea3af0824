// SPDX-License-Identifier: MIT
#include "Witness.h"

#include "environment/BTL_ENV_ApplicationIni.h"
#include "environment/BTL_ENV_PathMacros.h"
#include "environment/BTL_ENV_ReplicationFolders.h"
#include "environment/BTL_ENV_UserFolders.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_CVariant.h"
#include "foundation/logs/UTL_LOG_Log.h"
#include "foundation/logs/UTL_LOG_LogStream.h"
#include "languages/BTL_I18N_Language.h"
#include "languages/BTL_I18N_Texts.h"
#include "os/WIN_LastError.h"
#include "platform/base/dates/Sysutils_DateText.h"
#include "platform/base/numbers/Sysutils_FloatText.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "text/editing/BTL_STR_String.h"

#include <ostream>

namespace Lifetime
{

namespace
{

using System::UnicodeString;

UnicodeString RaisedFault()
{
    try {
        UTL::THROW_XAssert("late", "Witness.cpp", 1);
    } catch (const UTL::XAssert& fault) {
        return fault.what();
    }
    return u"no fault";
}

/// One line of all that has process-wide state behind it.
UnicodeString Evidence()
{
    Classes::TStringList list;
    list.Add(BTL::GetProgramDBDefPath(u"Name"));
    list.Add(UTL::XAssert::Msg("narrow", "Witness.cpp", 2));
    list.Add(UTL::XAssert::Msg(u"wide", "Witness.cpp", 3));
    list.Add(RaisedFault());
    list.Add(Sysutils::FloatToStr(1.5));
    list.Add(Sysutils::DateToStr(System::TDateTime(2026, 11, 25)));
    list.Add(UTL::CVariant(2.5).ToWString());
    list.Add(BTL::kEmptyString);
    list.Add(BTL::Gi18n::GetString(BTL::EIDS::CurrencyUnit));
    list.Add(BTL::Gi18n::GetStringDef(BTL::EIDS::AlreadyRunning, u"default"));
    list.Add(WIN::GetErrorMessage(2, u"ShellExecute"));
    list.Add(BTL::CApplicationIni::Get()->getIB_ErrorHelpFile());
    list.Add(BTL::GetUserFRPath());
    list.Add(BTL::GetUserDBColumnsPath(u"Name"));
    list.Add(BTL::GetI18NLanguageDataPath());
    list.Add(BTL::GetReplicationPath());
    list.Add(BTL::ReplaceMacroToPath(u"%UserData\\a"));
    list.Sort();
    return list.getCommaText();
}

} // namespace

void Testify(const char* name)
{
    UnicodeString line = UnicodeString(name) + u'|' + Evidence();
    for (int i = 1; i <= line.Length(); ++i) {
        if (line[i] < u' ') {
            line[i] = u' ';
        }
    }
    BTL::Log(line);
    *UTL::get_log_stream() << System::AnsiString(line).c_str() << '\n';
}

} // namespace Lifetime
