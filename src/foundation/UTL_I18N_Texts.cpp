// SPDX-License-Identifier: MIT
#include "foundation/UTL_I18N_Texts.h"

namespace UTL
{

const char* Ci18n::GetString(EXStrings key)
{
    switch (key) {
    case EXStrings::InternalError:
        return "Ein interner Fehler ist aufgetreten.\nBitte wenden Sie sich an den Hersteller.\n";
    case EXStrings::IniFileReadOnly:
        return "Die Ini-Datei \n'%s'\nist schreibgesch\xFCtzt.\n"
               "Entfernen Sie bitte den Schreibschutz, damit die Daten gespeichert werden k\xF6nnen.";
    }
    return "";
}

} // namespace UTL
