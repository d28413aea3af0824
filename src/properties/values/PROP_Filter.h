// SPDX-License-Identifier: MIT
#pragma once

#include "text/lists/BTL_STR_StringSet.h"

namespace Typinfo
{
class TPropInfo;
} // namespace Typinfo

namespace PROP
{

/// Which classes and properties a snapshot of objects takes. Names count with their case. A new filter takes
/// every class and none of its properties. Who makes one fills its sets.
///
///     PROP::CFilter filter;
///     filter.getProperties().setCommaText(u"Caption,Hint,Columns");
///     filter.getItemProperties() << u"Title";                     // of the items in "Columns"
///     filter.getNotClasses() << u"TSplitter";
///     const PROP::CPropList texts(form, &filter);
class TRS8_BTL_API CFilter
{
public:
    CFilter() = default;
    CFilter(const CFilter&) = default;
    CFilter& operator=(const CFilter&) = default;
    ~CFilter();

    // The sets, to be asked and to be filled.

    /// The names of the properties that are taken.
    BTL::CStringSet& getProperties() noexcept { return mProperties; }
    const BTL::CStringSet& getProperties() const noexcept { return mProperties; }
    /// Those that are not taken from a form.
    BTL::CStringSet& getNotOnForms() noexcept { return mNotOnForms; }
    const BTL::CStringSet& getNotOnForms() const noexcept { return mNotOnForms; }
    /// The names of the classes that are taken; all if it is empty. A class that derives from one of them has
    /// a name of its own.
    BTL::CStringSet& getClasses() noexcept { return mClasses; }
    const BTL::CStringSet& getClasses() const noexcept { return mClasses; }
    /// Those that are not taken, whatever else is said.
    BTL::CStringSet& getNotClasses() noexcept { return mNotClasses; }
    const BTL::CStringSet& getNotClasses() const noexcept { return mNotClasses; }
    /// The properties that are taken from the items of a collection.
    BTL::CStringSet& getItemProperties() noexcept { return mItemProperties; }
    const BTL::CStringSet& getItemProperties() const noexcept { return mItemProperties; }

    /// Empties all sets.
    void Clear();

    // Whether a class is taken. A null class or object is an internal fault, and is not taken if the user
    // lets that pass.

    bool IsObjectValid(const System::UnicodeString& className) const;
    bool IsObjectValid(System::TMetaClass* type) const;
    bool IsObjectValid(System::TObject* object) const;

    // Whether a property is taken. With a class or object it also counts whether that is a form; null is
    // none. No record is no property.

    bool IsPropertyValid(const System::UnicodeString& name) const;
    bool IsPropertyValid(System::TObject* object, const System::UnicodeString& name) const;
    bool IsPropertyValid(System::TMetaClass* type, const System::UnicodeString& name) const;
    bool IsPropertyValid(System::TMetaClass* type, const Typinfo::TPropInfo* info) const;

private:
    BTL::CStringSet mProperties;
    BTL::CStringSet mNotOnForms;
    BTL::CStringSet mClasses;
    BTL::CStringSet mNotClasses;
    BTL::CStringSet mItemProperties;
};

} // namespace PROP
