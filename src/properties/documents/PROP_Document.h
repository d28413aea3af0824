// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "properties/objects/PROP_Object.h"

namespace Forms
{
class TForm;
} // namespace Forms

namespace Menus
{
class TMenu;
} // namespace Menus

namespace PROP
{

// Documents keep what the components of a form say of themselves in a text file, outside the program: its
// texts to be translated, its places to come back at the next start.
//
//     PROP::CFormDoc document(form);
//     document.SetAndWrite(&filter);                              // "i18n\FormMain" of the user's data
//     ...                                                         // somebody edits the file
//     document.ReadAndApply();
//
// A file is written in one step, whole, and the first write makes its folder; what is in it and isn't of the
// document stays. A name or value that the file can't hold, such as one with a line break, is left out of it,
// and all of these are told in one warning (`UTL::Warn`), of a menu's document one for each menu, before the
// file is touched. A file that can't be written raises `Sysutils::Exception`; `PROP::Lint` tells what of a
// document fits a form.

/// Base of documents: what is alike however objects are taken, applied and stored.
class TRS8_BTL_API ADocument
{
public:
    /// The component isn't owned, may be null and must outlive each operation that needs it.
    explicit ADocument(Classes::TComponent* component);
    ADocument(const ADocument&) = delete;
    ADocument& operator=(const ADocument&) = delete;
    virtual ~ADocument();

    /// The folder of documents with a final separator: "i18n\" in the user's data (`BTL::GetUserDataPath`).
    virtual System::UnicodeString GetPath();
    /// The component's name; with an owner that has one: that, "_", the name and ".txt". Empty without a
    /// component.
    virtual System::UnicodeString GetDocName();
    /// Whether the file is there; for an empty name, that of `GetFileName`.
    virtual bool Exists(const System::UnicodeString& fileName);
    /// A new object of the document's kind, which is the caller's.
    virtual CObject* NewObject(const System::UnicodeString& name) const = 0;
    /// Takes a snapshot of the component in place of all objects. A null filter takes all.
    virtual void SetProperties(const CFilter* filter) = 0;
    /// Applies the objects to the component and all below it. What a property raises passes; what was applied
    /// before it stays. Whatever handlers of events do to the document, of which they may be the end, those
    /// objects are applied that were in it at first.
    virtual void ApplyProperties() = 0;
    /// Writes the objects to the file.
    virtual void DoWrite(const System::UnicodeString& fileName) = 0;
    /// Adds the objects of the file. One that is there already is an internal fault, so that a document is
    /// read once. A file that isn't there has none.
    virtual void DoRead(const System::UnicodeString& fileName) = 0;

    /// Folder and name of the document's own file.
    System::UnicodeString GetFileName();
    /// As `DoWrite`.
    void SaveToFile(const System::UnicodeString& fileName) { DoWrite(fileName); }
    /// As `DoRead`.
    void LoadFromFile(const System::UnicodeString& fileName) { DoRead(fileName); }
    /// As `ApplyProperties`.
    void Apply() { ApplyProperties(); }
    /// Takes a snapshot and writes it, to the document's own file or another one.
    void SetAndWrite(const CFilter* filter);
    void SetAndWrite(const System::UnicodeString& fileName, const CFilter* filter);
    /// Reads the document's own file or another one, and applies all objects; nothing happens if there is no
    /// such file.
    void ReadAndApply();
    void ReadAndApply(const System::UnicodeString& fileName);
    /// Adds a new object of that name, which the document holds. An empty name and one that is there already
    /// are internal faults; if the user lets that pass, the object that is there is given, or null.
    CObject* InsertNewObject(const System::UnicodeString& name);

    Classes::TComponent* getComponent() const noexcept { return mComponent; }
    CObjects& getObjects() noexcept { return *mObjects; }
    const CObjects& getObjects() const noexcept { return *mObjects; }

private:
    Classes::TComponent* mComponent;
    System::GOwner<CObjects> mObjects;
};

/// A document of one section for each object, with a key for each property: what a caller fills, reads and
/// writes by itself.
///
///     PROP::CDocument document;
///     document.InsertNewObject(u"Edit1")->AddProperty(u"Text", u"5 µm");
///     document.SaveToFile(u"texts.txt");                          // [Edit1]  Text=5 µm
class TRS8_BTL_API CDocument : public ADocument
{
public:
    explicit CDocument(Classes::TComponent* component = nullptr) : ADocument(component) {}
    ~CDocument() override;

    /// A plain `CObject`.
    CObject* NewObject(const System::UnicodeString& name) const override;
    /// Do nothing.
    void SetProperties(const CFilter* filter) override;
    void ApplyProperties() override;
    /// As `CSectionFormatIniFile::Write` and `Read`.
    void DoWrite(const System::UnicodeString& fileName) override;
    void DoRead(const System::UnicodeString& fileName) override;
};

/// The document of a component with all that it owns, and further down with what windowed controls own.
class TRS8_BTL_API CComponentDoc : public CDocument
{
public:
    /// A null component is an internal fault; if the user lets that pass, there is nothing to take or apply.
    explicit CComponentDoc(Classes::TComponent* component);
    ~CComponentDoc() override;

    /// The component must have a name; others without one are left out, and those whose class the filter
    /// refuses.
    void SetProperties(const CFilter* filter) override;
    /// The component itself is found by its bare name, the others by `PROP::GetComponentName`.
    void ApplyProperties() override;
};

/// The document of a form.
class TRS8_BTL_API CFormDoc : public CComponentDoc
{
public:
    /// Null is an internal fault.
    explicit CFormDoc(Forms::TForm* form);
    ~CFormDoc() override;

    Forms::TForm* getForm() const noexcept { return mForm; }

private:
    Forms::TForm* mForm;
};

/// The document of a menu: caption and shortcut of each item that has a name. Each menu has a section, the
/// topmost one "MAIN_MENU_ITEMS", all others that of the item which they open from, with a key for each item.
///
///     PROP::CMenuDoc(mainMenu).SetAndWrite(nullptr);              // mnSave=["&Save","Ctrl+S"]
///     PROP::CMenuDoc(mainMenu).ReadAndApply();
///
/// A menu that is written, read and applied is as it was, but that an item without a caption is an internal
/// fault when it is applied. Names of items must be unique in the file.
class TRS8_BTL_API CMenuDoc : public ADocument
{
public:
    /// Null is an internal fault; if the user lets that pass, the document is one without a menu.
    explicit CMenuDoc(Menus::TMenu* menu);
    /// Without a menu, for the section `name`: there is nothing to take and to apply.
    explicit CMenuDoc(const System::UnicodeString& name);
    ~CMenuDoc() override;

    /// A `CMenuItem`.
    CObject* NewObject(const System::UnicodeString& name) const override;
    /// Takes all items of the menu, whatever the filter is, into this document and one for each menu below.
    /// An item without a name is left out with all in it.
    void SetProperties(const CFilter* filter) override;
    /// Applies the objects to the items of their names: to as many items of the topmost menu as there are
    /// objects at all, and to what is in them. Documents of menus below are an internal fault: only one that
    /// was read, and not taken from a menu, is applied. A handler may end the document.
    void ApplyProperties() override;
    void DoWrite(const System::UnicodeString& fileName) override;
    /// Reads all sections into this document.
    void DoRead(const System::UnicodeString& fileName) override;

    /// Adds the items in `item` to this document, and those below them to new documents at the end of the
    /// chain that `last` is in, which becomes the last of these. No item has none in it; no `last` is this
    /// document.
    void AddMenuItems(Menus::TMenuItem* item, CMenuDoc*& last);
    /// Applies the object of the item's name to it, if there is one, and goes on with all items in it.
    /// Null has none.
    void ApplyMenuItem(Menus::TMenuItem* item);

    Menus::TMenu* getMenu() const noexcept { return mMenu; }
    /// The section of this document.
    const System::UnicodeString& getMenuName() const noexcept { return mMenuName; }
    /// The document of the next menu below; null at the end.
    CMenuDoc* getNext() const noexcept { return mNext.get(); }

private:
    void EndChain() noexcept;
    CMenuDoc& Append(const System::UnicodeString& menuName);

    Menus::TMenu* mMenu = nullptr;
    System::UnicodeString mMenuName;
    System::GOwner<CMenuDoc> mNext;
};

} // namespace PROP
