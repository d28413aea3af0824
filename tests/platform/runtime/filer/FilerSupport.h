// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/filer/Classes_FormResource.h"
#include "platform/runtime/filer/Classes_FormText.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/runtime/typinfo/Typinfo.h"
#include "support/RegisteredDesign.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace FilerTest
{

enum EKind
{
    bkPlain,
    bkRound,
    bkTall
};

using TMarks = System::Set<EKind, bkPlain, bkTall>;

/// Integers with the names of three colours.
const Typinfo::TTypeInfo* ColourType();

/// A part of a box.
class TLetters : public Classes::TPersistent
{
    TRS8_BTL_CLASS(TLetters, Classes::TPersistent)

public:
    int Size = 8;
    System::UnicodeString Face;
};

class TBox;

/// An item of a box's columns, which may refer to a box.
class TColumn : public Classes::TCollectionItem
{
    TRS8_BTL_CLASS(TColumn, Classes::TCollectionItem)

public:
    System::UnicodeString Title;
    TBox* Source = nullptr;
};

/// A component that stands in others, with a property of each kind.
class TBox : public Classes::TComponent
{
    TRS8_BTL_CLASS(TBox, Classes::TComponent)

public:
    explicit TBox(Classes::TComponent* owner = nullptr);
    ~TBox() override;

    bool HasParent() const override { return mParent != nullptr; }
    Classes::TComponent* GetParentComponent() const override { return mParent; }
    void Loaded() override;
    void Notification(Classes::TComponent* component, Classes::TOperation operation) override;

    TLetters* getFont() const { return mFont.get(); }
    Classes::TStrings* getLines() const { return mLines.get(); }
    Classes::TCollection* getColumns() const { return mColumns.get(); }
    int getStrict() const { return mStrict; }
    /// Refuses what is negative.
    void setStrict(int value);
    const std::vector<TBox*>& Children() const { return mChildren; }
    /// The names of the children.
    std::string Order() const;

    int Width = 10;
    int Height = 0;
    System::UnicodeString Caption;
    EKind Kind = bkPlain;
    TMarks Marks;
    bool Visible = true;
    double Ratio = 0;
    long double Precise = 0;
    float Share = 0;
    System::Currency Price;
    System::TDateTime When;
    System::Int64 Big = 0;
    System::WideChar Letter = u'x';
    int Colour = 0;
    System::Variant Extra;
    TBox* Buddy = nullptr;
    Classes::TNotifyEvent OnClick;
    int Hidden = 0;
    int Inner = 0;
    std::string Blob;
    int LoadedCount = 0;
    bool FailsLoaded = false;
    bool DiesOnStrict = false;

protected:
    void GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent* root) override;
    void SetChildOrder(Classes::TComponent* child, int order) override;
    void SetParentComponent(Classes::TComponent* parent) override;
    void DefineProperties(Classes::TFiler& filer) override;

private:
    void PutInto(TBox* parent);

    std::unique_ptr<TLetters> mFont;
    std::unique_ptr<Classes::TStringList> mLines;
    std::unique_ptr<Classes::TCollection> mColumns;
    TBox* mParent = nullptr;
    std::vector<TBox*> mChildren;
    int mStrict = 0;
};

/// A root, with a method for events.
class TSheet : public TBox
{
    TRS8_BTL_CLASS(TSheet, TBox)

public:
    using TBox::TBox;

    void BoxClick(System::TObject* sender);
    void Unpublished(System::TObject*) {}

    TBox* Button1 = nullptr;
    int Clicks = 0;
};

/// A part with a design of its own, which owns what is in it.
class TPart : public TBox
{
    TRS8_BTL_CLASS(TPart, TBox)

public:
    explicit TPart(Classes::TComponent* owner = nullptr);

protected:
    Classes::TComponent* GetChildOwner() override { return this; }
};

/// Its constructor raises.
class TBroken : public TBox
{
    TRS8_BTL_CLASS(TBroken, TBox)

public:
    explicit TBroken(Classes::TComponent* owner = nullptr);
};

/// How many boxes there are.
int BoxCount();
/// Makes the classes known to readers.
void RegisterClasses();

using Support::Compiled;
using Support::CRegisteredDesign;
using Support::Decompiled;
using Support::StreamOf;

/// A sheet read from the text of a form.
std::unique_ptr<TSheet> SheetOf(std::string_view text);
/// The text of what makes `root` differ from `ancestor`.
std::string TextOf(Classes::TComponent& root, Classes::TComponent* ancestor = nullptr);

/// What a writer gives of a component, as text.
inline std::string WrittenText(Classes::TComponent& component)
{
    Classes::TMemoryStream binary;
    Classes::TWriter(&binary).WriteRootComponent(&component);
    binary.setPosition(0);
    Classes::TMemoryStream text;
    Classes::ObjectBinaryToText(&binary, &text);
    return {static_cast<const char*>(text.getMemory()), static_cast<std::size_t>(text.getSize())};
}

} // namespace FilerTest

template <>
struct Typinfo::GEnumType<FilerTest::EKind>
{
    static TTypeInfo Make() { return EnumType(u"EKind", {u"bkPlain", u"bkRound", u"bkTall"}); }
};
