// SPDX-License-Identifier: MIT
#include "languages/BTL_I18N_Texts.h"

#include "config/BTL_INI_Texts.h"
#include "os/WIN_TickCount.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "text/verifiers/BTL_TextVerifier.h"

namespace BTL
{

namespace
{

using System::UnicodeString;

/// The keys of `EIDS` in the language file. scripts/check-texts reads them here.
constexpr int Keys[] = {
    100000100, 100000101, 100000200, 100000210, 100000330, 100000340, 100000350, 100000360,
    100000400, 100000410, 100000900, 100000901, 100001000, 100001001, 100001500, 100001510,
    100002000, 100003000, 100004000, 100004010, 100005000, 200000000, 200000001, 200000002,
    200000003, 200000004, 200000005, 200000006, 200000007, 200000008, 200000009, 200000010,
    200000011, 200000012, 200011000, 200011010, 200011020, 200011060, 200020000, -1,
};

UnicodeString ReplaceAll(const UnicodeString& text, const UnicodeString& from, const UnicodeString& to)
{
    return Sysutils::StringReplace(text, from, to, Sysutils::TReplaceFlags() << Sysutils::rfReplaceAll);
}

/// The text for someone who applies escapes to it and then fills in one text. Where that can't be done, it is
/// a notice that comes out of this as it is, but for the separators in the name of the language file.
UnicodeString GetFormat(EIDS id)
{
    constexpr System::WideChar place = u'\uFFFC';
    const UnicodeString filled = Gi18n::GetString_VA(id, UnicodeString(place));
    return filled.Pos(place) > 0 ? Gi18n::GetString(id)
                                 : ReplaceAll(ReplaceAll(filled, u"%", u"%%"), u"\\", u"/");
}

[[maybe_unused]] const bool linked = [] {
    WIN::GetRemainingTimeText = [] { return Gi18n::GetString(EIDS::RemainingTime); };
    GetCurrencyUnit = [] { return Gi18n::GetString(EIDS::CurrencyUnit); };
    GetIniText = [](EIniText text) { return GetFormat(static_cast<EIDS>(text)); };
    return true;
}();

} // namespace

Ci18n_IDSFile::Ci18n_IDSFile() : AIDSFile(EIDS_Path::ProgramIDS, u"BTL_German.ids", Keys) {}

Ci18n_IDSFile::~Ci18n_IDSFile() = default;

template class Gi18nEx<EIDS, Ci18n_IDSFile>;

} // namespace BTL
