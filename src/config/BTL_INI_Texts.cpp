// SPDX-License-Identifier: MIT
#include "config/BTL_INI_Texts.h"

namespace BTL
{

namespace
{

System::UnicodeString GetOwnText(EIniText text)
{
    return text == EIniText::ReadOnly ? u"The file\n'%s'\nis read-only.\nPlease remove the write protection, "
                                        u"so that data can be saved."
                                      : u"The file '%s' can't be written.";
}

} // namespace

constinit FGetIniText GetIniText = GetOwnText;

} // namespace BTL
