// SPDX-License-Identifier: MIT
#pragma once

#include "config/BTL_INI_Ini.h"

namespace BTL
{

namespace Detail
{
class CJsonIniImp;
} // namespace Detail

/// Many ini files in one JSON document: the name of a file, without folder and extension, is a key of the
/// root, that of a section a key below it. Values keep their type: `WriteBool` stores `true`, and a read of
/// another type than was written gives the default for a text and otherwise what jsoncpp converts or raises,
/// `Json::LogicError`.
///
///     BTL::CJsonIni ini(u"settings.json", u"station.ini");
///     ini.Load();                                                 // a missing file leaves it empty
///     ini.setSection(u"Run");
///     ini.WriteInt("Channels", 4);                                // {"station": {"Run": {"Channels": 4}}}
///     ini.Save();
///
/// Another program's changes of the document are seen by `Load` only, and lost by `Save`. A section has to be
/// set after a file; one without either is an internal fault. What isn't set gives defaults, and writes do
/// nothing. Names and texts are kept as UTF-8, which loses nothing but lone surrogates; `Load` refuses a
/// document that is no UTF-8. JSON has no infinity: to write one raises `Sysutils::EConvertError`; what is no
/// number is saved as null, which gives the default.
class TRS8_BTL_API CJsonIni : public AIni
{
public:
    /// Reads nothing, and leaves the file to `setFile`.
    explicit CJsonIni(const System::UnicodeString& jsonFile);
    /// Sets the file to the name of `iniFile` without folder and extension.
    CJsonIni(const System::UnicodeString& jsonFile, const System::UnicodeString& iniFile);
    ~CJsonIni() override;

    /// The document, as it was given.
    const System::UnicodeString& getJsonFileName() const noexcept;
    /// Whether the document holds something of the current file.
    bool Exists() const;

    /// Takes all ini files in over, of `folder` that match `mask`, each under its name. A text becomes a
    /// boolean if it is "true" or "false", an integer or a float if it is one, and stays a text otherwise: an
    /// integer of more than 32 bits becomes a float, a hexadecimal one as `$1F` becomes 0.
    /// Values that are there are overwritten; `Save` isn't called. The current file and section are then
    /// those that came last.
    void ImportIniFiles(const System::UnicodeString& folder, const System::UnicodeString& mask);

private:
    explicit CJsonIni(Detail::CJsonIniImp* store);

    Detail::CJsonIniImp* mJson;
};

} // namespace BTL
