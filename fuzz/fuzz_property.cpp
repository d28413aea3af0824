// SPDX-License-Identifier: MIT
#include "../tests/properties/values/AllKinds.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/visual/menus/Menus.h"
#include "properties/objects/PROP_Object.h"
#include "properties/values/PROP_CPropList.h"
#include "properties/values/PROP_Typinfo.h"
#include "support/Fuzz.h"

using Fuzz::Require;
using PROP::CProperties;
using PROP::CProperty;
using System::UnicodeString;

namespace
{

/// Whether the value was taken; otherwise the conversion or the setter refused it, which is no fault.
template <class Call>
bool IsTaken(Call call)
{
    try {
        call();
    } catch (const UTL::XAssert&) {
        throw;
    } catch (const Sysutils::Exception&) {
        return false;
    }
    return true;
}

/// The words stand for fewer values than there are.
bool HasWord(const CProperty& property)
{
    const UnicodeString& name = property.getName();
    return name == u"Visible" || name == u"Active" || name == u"ReadOnly" || name == u"Required";
}

void ReadOne(const UnicodeString& text)
{
    const CProperty read(text);
    const CProperty again(read.GetPropString());
    Require(again.getName() == read.getName());
    Require(HasWord(read) ? again.GetPropString() == read.GetPropString() : again == read);

    const CProperty former(u"former", UnicodeString(u"value"));
    CProperty kept = former;
    kept.SetProperty(text);
    Require(kept == read || (kept == former && read == CProperty()));
}

/// The short forms of the properties, taken one by one, give the object again.
template <class Object>
void ReadObject(const UnicodeString& text)
{
    const Object object(u"Object", text);
    Classes::TStringList forms;
    for (const CProperty& property : object.getProperties()) {
        forms.Add(property.GetPropString());
    }
    PROP::CObject again(u"Again");
    again.AddProperties(&forms);
    Require(again.getProperties().size() == object.getProperties().size());
    Require(object.GetPropString().AsView().find(again.GetPropString().AsView()) !=
            std::u16string_view::npos);

    CProperties stored;
    object.GetProperties(stored);
    CProperties difference;
    object.GetDifferenceOf(again, difference);
    Require(difference.size() <= stored.size());
}

void ApplyItem(const UnicodeString& text)
{
    const PROP::CMenuItem read(u"mnItem", text);
    Menus::TMenuItem item;
    bool isApplied = false;
    const bool hasNoFault =
        Fuzz::Try<UTL::XAssert>([&] { isApplied = IsTaken([&] { read.ApplyProperties(&item); }); });
    Require(!isApplied || (hasNoFault && !read.getCaption().IsEmpty()));
    Require(!isApplied || !read.getProperties().empty() || item.getCaption() == read.getCaption());
}

/// An object with properties of all kinds: one holds no object, one two items.
struct TSample : PropertyValues::TGauge
{
    TSample()
    {
        Columns.Add();
        Columns.Add();
    }
};

/// What a property made of a text comes back from its own text, but for what says so: values of an integer
/// without a name, floats whose text is beyond them, and lines with a NUL.
void SetEachKind(const UnicodeString& text)
{
    TSample sample;
    TSample other;
    for (const Typinfo::TPropInfo* const info : PROP::CPropList(&sample)) {
        if (!IsTaken([&] { PROP::SetPropValueFromString(&sample, info, text); })) {
            continue;
        }
        const UnicodeString value = PROP::GetPropValueAsString(&sample, info, false);
        if (value.Pos(u'\0') != 0) {
            continue;
        }
        const Typinfo::TTypeKind kind = info->getKind();
        if (IsTaken([&] { PROP::SetPropValueFromString(&other, info, value); })) {
            Require(PROP::GetPropValueAsString(&other, info, false) == value);
        } else {
            Require(kind == Typinfo::tkFloat || (kind == Typinfo::tkInteger && value.IsEmpty()));
        }
    }
}

void FollowPath(const UnicodeString& path, const UnicodeString& value)
{
    TSample sample;
    Fuzz::Try<UTL::XAssert>([&] { static_cast<void>(PROP::GetPropPathValueAsString(&sample, path, true)); });
    Fuzz::Try<UTL::XAssert>([&] { static_cast<void>(PROP::GetPropPathObject(&sample, path)); });
    Fuzz::Try<UTL::XAssert>(
        [&] { IsTaken([&] { PROP::SetPropPathValueFromString(&sample, path, value); }); });
    Fuzz::Try<UTL::XAssert>([&] { IsTaken([&] { CProperty(path, value).ApplyProperty(&sample); }); });
}

void Use(const UnicodeString& text)
{
    ReadOne(text);
    ReadObject<PROP::CObject>(text);
    ReadObject<PROP::ACaptionProp>(text);
    ReadObject<PROP::CMenuItem>(text);
    ApplyItem(text);
    SetEachKind(text);
    const int end = text.Pos(u'\n');
    FollowPath(end == 0 ? text : text.SubString(1, end - 1), text.SubString(end + 1));
}

} // namespace

/// Any text as a property, as those of an object, as a value of each kind of property, and up to its first
/// line feed as a path with a value behind it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes = Fuzz::Bytes(data, size);
    Use(System::FromUtf8(bytes));
    Use(Fuzz::WideText(bytes));
    return 0;
}
