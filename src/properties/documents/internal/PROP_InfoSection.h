// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace PROP
{

// What a file of a document keeps of itself. The points belong to the keys.

inline constexpr const char16_t* InfoSection = u"__INFO__";
inline constexpr const char16_t* CreationDateTimeKey = u"CreationDateTime";
inline constexpr const char16_t* CreationAuthorKey = u"CreationAuthor..";
inline constexpr const char16_t* ChangeDateKey = u"ChangeDate......";
inline constexpr const char16_t* ChangeAuthorKey = u"ChangeAuthor....";
inline constexpr const char16_t* TranslationKey = u"Translation.....";

inline constexpr std::array InfoKeys = {CreationDateTimeKey, CreationAuthorKey, ChangeDateKey,
                                        ChangeAuthorKey, TranslationKey};

} // namespace PROP
