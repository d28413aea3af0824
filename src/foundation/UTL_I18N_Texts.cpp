// SPDX-License-Identifier: MIT
#include "foundation/UTL_I18N_Texts.h"

#include <map>

namespace UTL
{

const char* Ci18n::GetString(EXStrings key)
{
    static const std::map<EXStrings, const char*> texts = {
        {EXStrings::InternalError,
         "Ein interner Fehler ist aufgetreten.\nBitte wenden Sie sich an den Hersteller.\n"},
        {EXStrings::IniFileReadOnly,
         "Die Ini-Datei \n'%s'\nist schreibgesch\xFCtzt.\n"
         "Entfernen Sie bitte den Schreibschutz, damit die Daten gespeichert werden k\xF6nnen."},
    };
    const auto found = texts.find(key);
    return found == texts.end() ? "" : found->second;
}

} // namespace UTL
