// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_AutoPtr.h"
#include "properties/objects/PROP_Property.h"

#include <map>
#include <vector>

namespace BTL
{
class CComponents;
} // namespace BTL

namespace Classes
{
class TComponent;
} // namespace Classes

namespace Menus
{
class TMenuItem;
} // namespace Menus

namespace PROP
{

/// A component as a document has it: its name and its properties.
///
///     UTL::GAutoPtr<PROP::CObject> before = new PROP::CObject(button, &filter);
///     button->setEnabled(false);
///     before->ApplyProperties(button);                            // enabled again
class TRS8_BTL_API CObject : public UTL::AAutoObj
{
public:
    explicit CObject(const System::UnicodeString& name);
    CObject(const System::UnicodeString& name, CProperties properties);
    /// As `SetProperties` of the text, with the name.
    CObject(const System::UnicodeString& name, const System::UnicodeString& propString);
    /// As `SetProperties` of the object and the filter.
    CObject(System::TObject* object, const CFilter* filter);
    ~CObject() noexcept(false) override;

    /// Takes the name of the component as `PROP::GetComponentName` gives it, and a snapshot of its properties
    /// as `CProperties::SetProperties` does. What is no component is an internal fault.
    virtual void SetProperties(System::TObject* object, const CFilter* filter);
    virtual void AddProperty(const System::UnicodeString& name, const System::UnicodeString& value);
    /// A property of each line, as by `CProperty::SetProperty`; one that isn't understood is added empty.
    /// Null adds nothing. Derived classes take other lines for themselves, so it must be the caller's own
    /// list.
    virtual void AddProperties(Classes::TStrings* strings);
    /// Applies the properties to `object`, see `CProperties::ApplyProperties`.
    virtual void ApplyProperties(System::TObject* object) const;
    /// The short forms of the properties with commas between. A value with a comma or a quote doesn't come
    /// back from it.
    virtual System::UnicodeString GetPropString() const;
    /// Sets `properties` to all that a document stores of the object.
    virtual void GetProperties(CProperties& properties) const;

    /// Takes the properties from their short forms in place of all that were there: a text with a double
    /// quote is the comma text of several, any other text is one.
    void SetProperties(const System::UnicodeString& propString);
    /// As of `CProperties`.
    void SetProperty(const System::UnicodeString& name, const System::UnicodeString& value);
    void DeleteProperty(const System::UnicodeString& name);
    /// Whether there is a property of that name; `value` is set to that of the first one, else it stays.
    bool GetValue(const System::UnicodeString& name, System::UnicodeString& value) const;
    /// As `CProperties::GetDifferenceOf`, of what the two objects' `GetProperties` give.
    void GetDifferenceOf(const CObject& other, CProperties& out) const;

    const System::UnicodeString& getName() const noexcept { return mName; }
    const CProperties& getProperties() const noexcept { return mProperties; }

protected:
    void setName(const System::UnicodeString& name) { mName = name; }
    /// The properties, to be changed.
    CProperties& Properties() noexcept { return mProperties; }

private:
    System::UnicodeString mName;
    CProperties mProperties;
};

/// An object with a caption, which stands in front of its properties as text: `"Caption",visible`.
class TRS8_BTL_API ACaptionProp : public CObject
{
public:
    explicit ACaptionProp(const System::UnicodeString& name);
    /// As `SetProperties` of the text, with the name.
    ACaptionProp(const System::UnicodeString& name, const System::UnicodeString& propString);
    ~ACaptionProp() noexcept(false) override;

    /// The property "Caption" sets the caption.
    void AddProperty(const System::UnicodeString& name, const System::UnicodeString& value) override;
    /// The first line is the caption and is removed.
    void AddProperties(Classes::TStrings* strings) override;
    /// The caption in double quotes, and a comma and the properties if there are any. Quotes in the caption
    /// stand as they are, so that it doesn't come back from this text; a document doubles them.
    System::UnicodeString GetPropString() const override;
    /// The caption comes last, as "Caption".
    void GetProperties(CProperties& properties) const override;

    const System::UnicodeString& getCaption() const noexcept { return mCaption; }
    void setCaption(const System::UnicodeString& caption) { mCaption = caption; }

private:
    System::UnicodeString mCaption;
};

/// A menu item as a document has it: `"&Save","Ctrl+S"`, or with words between: `"&Save",invisible,"Ctrl+S"`.
///
///     const PROP::CMenuItem save(u"mnSave", u"\"&Save\",\"Ctrl+S\"");
///     save.ApplyProperties(mnSave);
class TRS8_BTL_API CMenuItem : public ACaptionProp
{
public:
    explicit CMenuItem(const System::UnicodeString& name);
    /// As `SetProperties` of the text, with the name.
    CMenuItem(const System::UnicodeString& name, const System::UnicodeString& propString);
    /// As `SetMenuItemProperties`.
    explicit CMenuItem(Menus::TMenuItem* item);
    ~CMenuItem() noexcept(false) override;

    /// Takes name, caption and shortcut of the item, and nothing else. A shortcut that has no text is taken
    /// as "-", which leaves it to the item. Null is an internal fault.
    void SetMenuItemProperties(Menus::TMenuItem* item);

    using CObject::SetProperties;
    /// As `SetMenuItemProperties` if the object is a menu item, and adds to what is there the properties that
    /// `filter` takes of it; all if that is null.
    void SetProperties(System::TObject* object, const CFilter* filter) override;
    /// The property "ShortCut" sets the shortcut, "Caption" the caption.
    void AddProperty(const System::UnicodeString& name, const System::UnicodeString& value) override;
    /// Of two lines the second is the shortcut and is removed. So a text of more than two parts has none.
    void AddProperties(Classes::TStrings* strings) override;
    /// Gives a menu item the caption, which must not be empty, that being an internal fault, and the
    /// shortcut: none for an empty text, the former one for "-" and for what is no shortcut. Then the
    /// properties are applied, to an object of another class too.
    void ApplyProperties(System::TObject* object) const override;
    /// As of `ACaptionProp`, and if there is a shortcut, a comma and that in double quotes.
    System::UnicodeString GetPropString() const override;
    /// The shortcut comes last, as "ShortCut".
    void GetProperties(CProperties& properties) const override;

    /// As `Menus::ShortCutToText` writes it; empty for none, "-" for the one that the item has.
    const System::UnicodeString& getShortCut() const noexcept { return mShortCut; }
    void setShortCut(const System::UnicodeString& shortCut) { mShortCut = shortCut; }

private:
    System::UnicodeString mShortCut;
};

/// The objects of a document, each under a name of its own. It holds them, as others may.
///
///     PROP::CObjects design, changes;
///     design.AddObjects(form, &filter);
///     ...                                                         // the user moves things
///     PROP::CObjects present;
///     present.AddObjects(form, &filter);
///     design.GetDifferenceOf(present, changes);
class TRS8_BTL_API CObjects
{
public:
    /// The two stores, by order of adding and by name.
    using TList = std::vector<UTL::GAutoPtr<CObject>>;
    using TMap = std::map<System::UnicodeString, UTL::GAutoPtr<CObject>>;

    CObjects() = default;
    CObjects(const CObjects&) = delete;
    CObjects& operator=(const CObjects&) = delete;
    ~CObjects();

    // In the order of adding.

    TList::const_iterator begin() const noexcept { return mList.begin(); }
    TList::const_iterator end() const noexcept { return mList.end(); }
    // As pairs of name and object, in the order of the names' characters, so that case matters.
    TMap::const_iterator sbegin() const noexcept { return mMap.begin(); }
    TMap::const_iterator send() const noexcept { return mMap.end(); }
    int size() const noexcept { return static_cast<int>(mList.size()); }
    [[nodiscard]] bool empty() const noexcept { return mList.empty(); }
    void clear() noexcept;
    /// Holds the objects of `other`, the same ones, in place of all that were here.
    void Assign(const CObjects& other);

    /// Holds the object. Null, an empty name and one that is there already are internal faults; if the user
    /// lets that pass, it isn't added.
    void AddObject(CObject* object);
    /// Adds a `CObject` of the component and the filter.
    void AddObject(System::TObject* object, const CFilter* filter);
    /// Adds the component and all below it that have a name; those whose class `filter` refuses are left out.
    /// The component itself must have a name if it isn't refused.
    void AddObjects(Classes::TComponent* root, const CFilter* filter);
    /// Adds those that have a name; those whose class `filter` refuses are left out.
    void AddObjects(const BTL::CComponents& components, const CFilter* filter);

    /// The object of exactly that name; null if there is none.
    CObject* Find(const System::UnicodeString& name) const;
    /// The object of the name that `PROP::GetComponentName` gives; null if there is none. What is no
    /// component is an internal fault.
    CObject* Find(System::TObject* component) const;

    /// Applies each object to the component of its name, in the order of the components. Components without
    /// an object are left alone, and objects without a component too. A component that an event's handler
    /// destroys meanwhile is passed over; whatever it does to the objects here, those that were there at
    /// first are applied to the end. What a property raises passes; what came before has its values then.
    void ApplyProperties(const BTL::CComponents& components) const;

    /// Sets `out` to what differs in objects that both have: a plain object with the values of `other` for
    /// each, in the order here. `out` may be one of the two.
    void GetDifferenceOf(const CObjects& other, CObjects& out) const;

private:
    TMap::iterator AddNear(TMap::iterator next, CObject* object);

    TMap mMap;
    TList mList;
};

} // namespace PROP
