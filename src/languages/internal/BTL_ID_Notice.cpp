// SPDX-License-Identifier: MIT
#include "languages/internal/BTL_ID_Notice.h"

#include "foundation/logs/UTL_LOG_Log.h"
#include "os/WIN_CriticalSection.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"

#include <set>

namespace BTL
{

namespace
{

using System::UnicodeString;

struct TNotices
{
    WIN::CCriticalSectionObject lock;
    std::set<UnicodeString> told;
};

// A program that goes through many broken files neither fills its memory nor its log.
constexpr std::size_t MostNotices = 1000;

/// True for the first call with `notice`. What was told is never destroyed: destructors of global objects ask
/// for texts too.
bool IsNews(const UnicodeString& notice)
{
    static TNotices& notices = *new TNotices;
    const WIN::CCriticalSection lock(notices.lock);
    return notices.told.size() < MostNotices && notices.told.insert(notice).second;
}

} // namespace

UnicodeString GetKeyPlace(const UnicodeString& key, const UnicodeString& file)
{
    return u"IDS-Key '" + key + u"' in File '" + file + u"'";
}

void LogNoticeOnce(const UnicodeString& notice)
{
    if (IsNews(notice)) {
        Log(Sysutils::StringReplace(notice, u"\n", u"", Sysutils::TReplaceFlags() << Sysutils::rfReplaceAll));
    }
}

} // namespace BTL
