// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <utility>
#include <vector>

namespace Classes
{
class TStrings;
} // namespace Classes

namespace System
{
class TObject;
} // namespace System

namespace PROP
{

class CFilter;
class CSnapshot;

/// A property as a document has it: its name, or its path from an object on, and its value, both as text.
///
///     PROP::CProperty width(u"Width", button);                    // "75"
///     PROP::CProperty(u"Font.Name", u"Arial").ApplyProperty(button);
///     PROP::CProperty(u"invisible").ApplyProperty(button);        // short for Visible=false
class TRS8_BTL_API CProperty
{
public:
    CProperty() = default;
    CProperty(System::UnicodeString name, System::UnicodeString value)
        : mName(std::move(name)), mValue(std::move(value))
    {
    }
    /// As `SetProperty` of the name and the object.
    CProperty(const System::UnicodeString& name, System::TObject* object);
    /// As `SetProperty` of the text, on an empty property.
    explicit CProperty(const System::UnicodeString& text);

    const System::UnicodeString& getName() const noexcept { return mName; }
    void setName(const System::UnicodeString& name) { mName = name; }
    const System::UnicodeString& getValue() const noexcept { return mValue; }
    void setValue(const System::UnicodeString& value) { mValue = value; }

    /// Takes the name, and the value of the object's property of that name, no path, as
    /// `PROP::GetPropValueAsString` gives it. Null is an internal fault.
    void SetProperty(const System::UnicodeString& name, System::TObject* object);
    /// Takes a property from its short form. The first rule that fits counts:
    /// - `Name(value)`: the name in front of the first `(`; the last character goes, whatever it is
    /// - `Name=value`: what is in front of the first `=`, and all behind it
    /// - `visible`, `invisible`, `active`, `inactive`: "Visible" or "Active" with "true" or "false";
    ///   `readonly`, `required`: "ReadOnly", "Required" with "true". Case matters.
    ///
    /// Any other text changes nothing.
    void SetProperty(const System::UnicodeString& text);

    /// Writes the value to the property at that path from `object` on. If the object reached
    /// is a collection and not `object` itself, its items get their values of it, see
    /// `PROP::SetItemPropValuesFromString`; any other object's property is set as by
    /// `PROP::SetPropValueFromString`, and nothing happens if it has none of that name. An object that isn't
    /// there, `object` itself or one along the path, is an internal fault.
    void ApplyProperty(System::TObject* object) const;

    /// "Name=value".
    System::UnicodeString ToString() const;
    /// The short form, by the name, whose case matters: the words for "Visible" and "Active", the positive
    /// ones for the value "true" alone; "readonly" and "required" whatever the value is; `Name(value)` else.
    System::UnicodeString GetPropString() const;

    /// By both texts, with their case.
    friend bool operator==(const CProperty& a, const CProperty& b) noexcept
    {
        return a.mName == b.mName && a.mValue == b.mValue;
    }

private:
    System::UnicodeString mName;
    System::UnicodeString mValue;
};

/// Properties in the order of adding. Names aren't unique by themselves; where one is sought, the first of it
/// counts, with its case.
///
/// A snapshot of an object goes through the objects that its properties hold, under their paths
/// ("Font.Name"): it takes the items of collections, the lines of lists, and the properties of any other. It
/// doesn't enter an object in which it is already, nor more than 64 deep, nor one that it has under another
/// path already once that came 256 times. Properties that can't be read are passed over.
///
///     PROP::CProperties before, after, changes;
///     before.SetProperties(button, &filter);
///     button->setCaption(u"&Stop");
///     after.SetProperties(button, &filter);
///     before.GetDifferenceOf(after, changes);                     // "Caption=&Stop"
///     before.ApplyProperties(button);                             // "&Start" again
///
/// What comes back when a snapshot is applied are the values that come back from their text, see
/// `PROP::GetPropValueAsString`. Not among these are:
/// - colours and mouse pointers without a name, whose empty text raises `Sysutils::EConvertError`
/// - floats with more digits than their text; those that are infinite, no number or the largest of their type
///   raise as in `PROP::SetPropValueFromString`
/// - properties that can be read alone, which raise `Typinfo::EPropertyError`
/// - sets, wide characters, 64-bit integers, variants and events, which have no text
/// - lines in a property that is declared as a class derived from `TStringList`
/// - the count of a collection's items: as many values are written as there are items
/// - what a setter makes of the value, or of another property that is set after it.
class TRS8_BTL_API CProperties
{
public:
    using iterator = std::vector<CProperty>::iterator;
    using const_iterator = std::vector<CProperty>::const_iterator;

    iterator begin() noexcept { return mProperties.begin(); }
    iterator end() noexcept { return mProperties.end(); }
    const_iterator begin() const noexcept { return mProperties.begin(); }
    const_iterator end() const noexcept { return mProperties.end(); }
    int size() const noexcept { return static_cast<int>(mProperties.size()); }
    [[nodiscard]] bool empty() const noexcept { return mProperties.empty(); }
    void clear() noexcept { mProperties.clear(); }

    // Adding, whatever is there.

    void AddProperty(CProperty property) { mProperties.push_back(std::move(property)); }
    void AddProperty(const System::UnicodeString& name, const System::UnicodeString& value);
    /// A property of each line, as by `CProperty::SetProperty`; one that isn't understood is added empty.
    /// Null adds nothing.
    void AddProperties(const Classes::TStrings* strings);
    /// A snapshot of what `filter` takes of the object, of all if it is null. A null object adds nothing.
    /// Below collections it is the filter's item properties that are taken, and none without a filter.
    void AddProperties(System::TObject* object, const CFilter* filter);

    /// As `AddProperties`, in place of all that was there.
    void SetProperties(System::TObject* object, const CFilter* filter);
    /// Gives the first property of that name the value, or adds one.
    void SetProperty(const System::UnicodeString& name, const System::UnicodeString& value);
    /// Null if there is none of that name; else valid until a property comes or goes.
    CProperty* FindProperty(const System::UnicodeString& name);
    const CProperty* FindProperty(const System::UnicodeString& name) const;
    /// Removes the first of that name, if there is one.
    void DeleteProperty(const System::UnicodeString& name);

    /// Applies one after the other, see `CProperty::ApplyProperty`. What a property raises passes; those
    /// before it have their values then. If a handler destroys the component, the rest is left.
    void ApplyProperties(System::TObject* object) const;

    /// Sets `out` to the properties of `other` that are here too with another value, in the order here. What
    /// is on one side alone is left out. `out` may be one of the two.
    void GetDifferenceOf(const CProperties& other, CProperties& out) const;
    /// Sets the lines to "Name=value"; null does nothing.
    void GetProperties(Classes::TStrings* strings) const;

private:
    friend class CSnapshot;

    void Reserve(int count);

    std::vector<CProperty> mProperties;
};

} // namespace PROP
