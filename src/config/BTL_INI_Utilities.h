// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Classes
{
class TStrings;
} // namespace Classes

namespace BTL
{

// One look at an ini file, or one copy, without an object. What is written is on the disk, whole, when the
// call ends; `Inifiles::EIniFileException` if it can't be written, or if a text could not be read back. A
// null list counts as empty and is not filled; any other is cleared first.
//
//     if (!BTL::SectionExists(u"station.ini", u"Run")) {
//         BTL::CopyIniFile(u"station.ini", u"defaults.ini");
//     }

/// Whether the section has a key.
[[nodiscard]] TRS8_BTL_API bool SectionExists(const System::UnicodeString& file,
                                              const System::UnicodeString& section);
/// The names of all sections.
TRS8_BTL_API void ReadSections(const System::UnicodeString& file, Classes::TStrings* list);
/// The keys of the section and their values, in the order of the file.
TRS8_BTL_API void ReadSection(const System::UnicodeString& file, const System::UnicodeString& section,
                              Classes::TStrings* names, Classes::TStrings* values);
/// The values alone.
TRS8_BTL_API void ReadSectionValues(const System::UnicodeString& file, const System::UnicodeString& section,
                                    Classes::TStrings* values);
/// Writes each value under its name and keeps what else is there. Unequal counts are an internal fault, and
/// nothing is written if the user lets that pass.
TRS8_BTL_API void WriteSection(const System::UnicodeString& file, const System::UnicodeString& section,
                               Classes::TStrings* names, Classes::TStrings* values);
/// Writes all sections of `source`, if there is such a file, to `destination`, which keeps what else it has.
TRS8_BTL_API void CopyIniFile(const System::UnicodeString& destination, const System::UnicodeString& source);

} // namespace BTL
