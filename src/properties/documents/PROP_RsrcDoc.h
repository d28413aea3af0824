// SPDX-License-Identifier: MIT
#pragma once

#include "properties/documents/PROP_Document.h"

namespace PROP
{

/// What a new `CRsrcDoc` takes of its component.
enum class ERsrcDocSetMode
{
    None = 0,
    /// As by `SetCurrent`.
    Current = 1,
    /// As by `SetOriginalObjects`.
    Original = 2,
};

/// The document of a form that keeps what differs from its design: texts, places and sizes that a translator
/// or a user changed. A form that is back in its design has no file.
///
///     PROP::CRsrcDoc document(form, PROP::ERsrcDocSetMode::Original); // right after the form was loaded
///     document.ReadAndApply();                                    // as it was left the last time
///     ...                                                         // at its end
///     document.SetChanges();
///     document.SaveToFile(document.GetFileName());
///
/// Sections of the file whose objects don't differ any more stay in it while others differ; whoever wants
/// none deletes the file before it is written.
///
/// The constructors take the snapshot by the `GetFilter` of this class. A derived class with a `GetFilter` of
/// its own hands `None` on, and takes the snapshot in its own constructor.
class TRS8_BTL_API CRsrcDoc : public CComponentDoc
{
public:
    /// Null is an internal fault.
    CRsrcDoc(Classes::TComponent* component, ERsrcDocSetMode mode);
    /// With `setOriginal` as by `SetOriginalObjects`, else without a snapshot.
    CRsrcDoc(Classes::TComponent* component, bool setOriginal);
    ~CRsrcDoc() override;

    /// Takes all of the present state in place of all objects, for a complete file.
    void SetCurrent();
    /// Takes the present state as the design that others are compared with, but for "Visible" of the
    /// component itself. By `GetFilter`, or by any other filter, of which then only what `GetFilter` takes
    /// too can differ; a null one takes all.
    void SetOriginalObjects();
    void SetOriginalObjects(const CFilter* filter);
    /// Takes what differs now from the design, with its present values, in place of all objects. Without a
    /// design there is nothing.
    void SetChanges();
    /// Adds to `objects` the component and all below it as they are now, as `CObjects::AddObjects`.
    void GetCurrentObjects(CObjects& objects) const;

    /// As of `CDocument`, but deletes the file if there are no objects; `Sysutils::Exception` if it can't be
    /// deleted.
    void DoWrite(const System::UnicodeString& fileName) override;
    /// Sets the filter to what is taken: texts, places, sizes, visibility but of forms, shortcuts, and the
    /// "Caption" and "Text" of items of collections.
    virtual void GetFilter(CFilter& filter) const;

    /// The design; null if none was taken.
    const CObjects* getOriginalObjects() const noexcept { return mOriginalObjects.get(); }

private:
    System::GOwner<CObjects> mOriginalObjects;
};

/// A `CRsrcDoc` of texts alone, for translators.
class TRS8_BTL_API CRsrcDoc_OnlyText : public CRsrcDoc
{
public:
    /// Null is an internal fault.
    CRsrcDoc_OnlyText(Classes::TComponent* component, ERsrcDocSetMode mode);
    ~CRsrcDoc_OnlyText() override;

    /// Sets the filter to texts; those of items of collections aren't taken.
    void GetFilter(CFilter& filter) const override;
};

} // namespace PROP
