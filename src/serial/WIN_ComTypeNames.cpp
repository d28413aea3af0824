// SPDX-License-Identifier: MIT
#include "serial/WIN_ComTypeNames.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/base/numbers/Sysutils_Integer.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/registry/Registry.h"
#include "platform/toolkit/Dialogs.h"

#include <exception>

namespace WIN
{

namespace
{

using System::AnsiString;
using System::UnicodeString;

constexpr std::u16string_view DeviceMark = u"\\Device\\";
constexpr std::u16string_view PortMark = u"COM";

/// Shows what went wrong and lets the caller go on.
void ShowFault(const UnicodeString& location, const std::exception& fault)
{
    Dialogs::MessageDlg(u"Exception:\n----------------------\nLocation:\n" + location + u"Message:\n\t" +
                            Sysutils::MessageOf(fault),
                        Dialogs::mtError, {Dialogs::mbOK}, 0);
}

/// Runs `action`; what it raises is shown with the place that `location` tells.
template <class Action, class Location>
void Guarded(Action action, Location location)
{
    try {
        action();
    } catch (const std::exception& fault) {
        ShowFault(location(), fault);
    }
}

void AddValue(CComTypeNameList& list, const Registry::TRegistry& registry, const UnicodeString& name)
{
    const UnicodeString port = registry.ReadString(name);
    const std::size_t mark = name.AsView().find(DeviceMark);
    if (!port.AsView().starts_with(PortMark) || mark == std::u16string_view::npos) {
        return;
    }
    const int number = Sysutils::StrToIntDef(UnicodeString(port.AsView().substr(PortMark.size())), 0);
    if (number <= 0) {
        return;
    }
    std::u16string device(name.AsView());
    device.erase(mark, DeviceMark.size());
    list.Add(Int2Com(number), UnicodeString(std::u16string_view(device)));
}

AnsiString WithoutFinalDigits(const AnsiString& name)
{
    std::string_view text = name.AsView();
    while (!text.empty() && System::Detail::IsAsciiDigit(text.back())) {
        text.remove_suffix(1);
    }
    return AnsiString(text);
}

} // namespace

void ReadComTypeNames(CComTypeNameList& list)
{
    Registry::TRegistry registry;
    Classes::TStringList names;
    Guarded(
        [&] {
            registry.setRootKey(Registry::HKEY_LOCAL_MACHINE);
            if (registry.OpenKeyReadOnly(u"HARDWARE\\DEVICEMAP\\SERIALCOMM")) {
                registry.GetValueNames(&names);
            }
        },
        [] { return UnicodeString(u"\tGetPortTypeNames()::Part1\n"); });
    for (int i = 0; i < names.getCount(); ++i) {
        Guarded([&] { AddValue(list, registry, names.getStrings(i)); },
                [&] {
                    return u"\tGetPortTypeNames()::Part2::(size=" + UnicodeString(names.getCount()) +
                           u",pos=" + UnicodeString(i) + u"\n";
                });
    }
}

AnsiString GetComTypeName(ECom port, bool withNumber)
{
    CComTypeNameList list;
    AnsiString name;
    AnsiString result;
    Guarded([&] { ReadComTypeNames(list); }, [] { return UnicodeString(u"GetPortTypeName()::Part1\n"); });
    Guarded(
        [&] {
            const auto found = list.find(port);
            name = found == list.end() ? AnsiString() : found->second;
        },
        [&] { return u"GetPortTypeName()::Part2::(port=" + UnicodeString(Com2Int(port)) + u"\n"; });
    Guarded([&] { result = withNumber ? name : WithoutFinalDigits(name); },
            [&] {
                return u"GetPortTypeName()::Part3::(name=" + UnicodeString(name) + u",tmp=" +
                       UnicodeString(result) + u"\n";
            });
    return result;
}

} // namespace WIN
