// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <vector>

namespace Classes
{
class TComponent;
} // namespace Classes

namespace PROP
{

class ADocument;

/// Why a property of a document doesn't fit.
enum class ELintFault
{
    /// No component or menu item has the object's name; it isn't applied.
    NoComponent,
    /// A name of the path is no property; nothing is written. Applying it is an internal fault unless it is
    /// the last name.
    NoProperty,
    /// The path goes through a property that holds no object; applying it is an internal fault.
    NoObject,
    /// The property can't be written, or has no text that it could be written by.
    NotWritable,
    /// The enumeration has no such name; the property stays as it is.
    NoName,
    /// The text is no value of the property's type, or beyond its range; applying it raises. Of menu items:
    /// an empty caption, which is an internal fault, and what is no shortcut, which isn't taken.
    NoValue,
    /// There are more or fewer values than the collection has items; the rest stays.
    OtherCount,
};

/// A property of a document that doesn't fit.
struct TLintFinding
{
    System::UnicodeString object;
    /// Empty where the object itself doesn't fit.
    System::UnicodeString property;
    System::UnicodeString value;
    ELintFault fault;

    friend bool operator==(const TLintFinding&, const TLintFinding&) = default;
};

/// What of the document's objects doesn't fit the form, or any other component, in the order of the document.
/// Most of it is passed over in silence when the document is applied, and a text that was edited by hand has
/// no effect. Menu items are sought in the document's menu or, if it has none, among those of the form.
/// Nothing is changed. A null form is an internal fault, and no component is found if the user lets that
/// pass.
///
///     PROP::CFormDoc document(form);
///     document.LoadFromFile(u"texts.txt");
///     for (const PROP::TLintFinding& finding : PROP::Lint(document, form)) { ... }
[[nodiscard]] TRS8_BTL_API std::vector<TLintFinding> Lint(const ADocument& document,
                                                          Classes::TComponent* form);

} // namespace PROP
