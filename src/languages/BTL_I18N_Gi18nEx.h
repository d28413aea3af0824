// SPDX-License-Identifier: MIT
#pragma once

#include "languages/BTL_ID_File.h"

namespace BTL
{

/// One table of texts as static functions, typed by its enumeration: `E` has the places of the table, `F` is
/// a class derived from `AIDSFile` that binds file and table in its constructor. The one object of `F` is
/// made at first use and never destroyed, so that global objects may ask in their destructors. Each function
/// is that of `AIDSFile` or `AID_Strings`. Those of a table for several modules must be instantiated in one
/// of them.
///
///     enum class EStation { Title, LimitPassed };                 // "Limit %s passed: %.1f °C"
///     constexpr int Ids[] = {100000100, 100000110, -1};
///     struct CStationFile : BTL::AIDSFile
///     {
///         CStationFile() : AIDSFile(BTL::EIDS_Path::ProgramIDS, u"Station_German.ids", Ids) {}
///     };
///     using Texts = BTL::Gi18nEx<EStation, CStationFile>;
///     Texts::MessageBox1_VA(EStation::LimitPassed, MB_ICONWARNING, u"high", 81.5);
template <class E, class F>
class Gi18nEx
{
public:
    /// Takes another section and file, from the next text on.
    static void Init(const System::UnicodeString& section, const System::UnicodeString& file,
                     const System::UnicodeString& path)
    {
        Instance().Init(section, file, path);
    }
    static void InitWithPath(const System::UnicodeString& path, bool check)
    {
        Instance().InitWithPath(path, check);
    }
    /// Whether the file is there; with `Check` a box tells if it isn't.
    static bool Exists() { return Instance().Exists(); }
    static bool ExistsCheck() { return Instance().ExistsCheck(); }

    /// The texts and lists of texts.
    static System::UnicodeString GetString(E id) { return Instance().GetString(Index(id)); }
    static System::UnicodeString GetStringDef(E id, const System::UnicodeString& defaultValue)
    {
        return Instance().GetStringDef(Index(id), defaultValue);
    }
    static System::UnicodeString GetString_V(E id, System::TVarArgs arguments)
    {
        return Instance().GetString_V(Index(id), arguments);
    }
    template <class... Arguments>
    static System::UnicodeString GetString_VA(E id, const Arguments&... arguments)
    {
        return GetString_V(id, {arguments...});
    }
    static System::UnicodeString GetCommaText(E id) { return Instance().GetCommaText(Index(id)); }
    static void GetStrings(E id, Classes::TStrings* list) { Instance().GetStrings(Index(id), list); }
    static void GetStringsEx(E idNames, E idValues, Classes::TStrings* list)
    {
        Instance().GetStringsEx(Index(idNames), Index(idValues), list);
    }

    /// The boxes.
    static int MessageBox1(E id, int flags) { return Instance().MessageBox1(Index(id), flags); }
    template <class... Arguments>
    static int MessageBox1_VA(E id, int flags, const Arguments&... arguments)
    {
        return Instance().MessageBox1_VA(Index(id), flags, arguments...);
    }
    static int MessageBox2(E idText, E idCaption, int flags)
    {
        return Instance().MessageBox2(Index(idText), Index(idCaption), flags);
    }
    template <class... Arguments>
    static int MessageBox2_VA(E idText, E idCaption, int flags, const Arguments&... arguments)
    {
        return Instance().MessageBox2_VA(Index(idText), Index(idCaption), flags, arguments...);
    }
    static int MessageBox3(E id, const System::UnicodeString& caption, int flags)
    {
        return Instance().MessageBox3(Index(id), caption, flags);
    }
    template <class... Arguments>
    static int MessageBox3_VA(E id, const System::UnicodeString& caption, int flags,
                              const Arguments&... arguments)
    {
        return Instance().MessageBox3_VA(Index(id), caption, flags, arguments...);
    }
    static int MessageDlg(E id, Dialogs::TMsgDlgType type, Dialogs::TMsgDlgButtons buttons, int helpContext)
    {
        return Instance().MessageDlg(Index(id), type, buttons, helpContext);
    }
    static int MessageDlg_V(E id, Dialogs::TMsgDlgType type, Dialogs::TMsgDlgButtons buttons, int helpContext,
                            System::TVarArgs arguments)
    {
        return Instance().MessageDlg_V(Index(id), type, buttons, helpContext, arguments);
    }
    template <class... Arguments>
    static int MessageDlg_VA(E id, Dialogs::TMsgDlgType type, Dialogs::TMsgDlgButtons buttons,
                             int helpContext, const Arguments&... arguments)
    {
        return MessageDlg_V(id, type, buttons, helpContext, {arguments...});
    }

    /// The inputs.
    static System::UnicodeString InputBox(E idCaption, E idPrompt, const System::UnicodeString& defaultValue)
    {
        return Instance().InputBox(Index(idCaption), Index(idPrompt), defaultValue);
    }
    static System::UnicodeString InputBox(E idCaption, E idPrompt, E idDefault)
    {
        return Instance().InputBox(Index(idCaption), Index(idPrompt), Index(idDefault));
    }
    static bool InputQuery(E idCaption, E idPrompt, System::UnicodeString& value)
    {
        return Instance().InputQuery(Index(idCaption), Index(idPrompt), value);
    }

private:
    static int Index(E id) { return static_cast<int>(id); }
    static F& Instance();
};

// Not in the class, so that a module that only declares an instance makes no object of its own.
template <class E, class F>
F& Gi18nEx<E, F>::Instance()
{
    static F& instance = *new F;
    return instance;
}

} // namespace BTL
