// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/FilerSupport.h"

#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/filer/Classes_FormResource.h"
#include "platform/runtime/filer/Classes_IntegerConsts.h"
#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>

namespace FilerTest
{

using namespace Classes;
using System::GClassBuilder;
using System::TMetaClass;
using System::UnicodeString;

namespace
{

int Boxes = 0;

constexpr TIdentMapEntry Colours[] = {{0xFF, u"clRed"}, {0xFF00, u"clGreen"}, {0xFF0000, u"clBlue"}};

bool ColourOf(const UnicodeString& ident, int& value)
{
    return IdentToInt(ident, value, Colours);
}

bool NameOfColour(int value, UnicodeString& ident)
{
    return IntToIdent(value, ident, Colours);
}

} // namespace

const Typinfo::TTypeInfo* ColourType()
{
    static const auto* const type = [] {
        auto* const info = new Typinfo::TTypeInfo(*Typinfo::TypeInfoOf<int>());
        info->Name = u"TColour";
        return info;
    }();
    return type;
}

TMetaClass* TLetters::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TLetters>(u"TLetters")
                                          .Property(u"Size", &TLetters::Size, {.defaultValue = 8})
                                          .Property(u"Face", &TLetters::Face)
                                          .Build();
    return record;
}

TMetaClass* TColumn::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TColumn>(u"TColumn")
                                          .Property(u"Title", &TColumn::Title)
                                          .Property(u"Source", &TColumn::Source)
                                          .Build();
    return record;
}

TMetaClass* TBox::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<TBox>(u"TBox")
            .Property(u"Width", &TBox::Width, {.defaultValue = 10})
            .Property(u"Height", &TBox::Height, {.defaultValue = 0})
            .Property(u"Caption", &TBox::Caption)
            .Property(u"Kind", &TBox::Kind, {.defaultValue = bkPlain})
            .Property(u"Marks", &TBox::Marks, {.defaultValue = 0})
            .Property(u"Visible", &TBox::Visible, {.defaultValue = 1})
            .Property(u"Ratio", &TBox::Ratio)
            .Property(u"Precise", &TBox::Precise)
            .Property(u"Share", &TBox::Share)
            .Property(u"Price", &TBox::Price)
            .Property(u"When", &TBox::When)
            .Property(u"Big", &TBox::Big, {.defaultValue = 0})
            .Property(u"Letter", &TBox::Letter, {.defaultValue = u'x'})
            .Property(u"Colour", &TBox::Colour, {.type = &ColourType, .defaultValue = 0})
            .Property(u"Extra", &TBox::Extra)
            .Property(u"Font", &TBox::getFont)
            .Property(u"Lines", &TBox::getLines)
            .Property(u"Columns", &TBox::getColumns)
            .Property(u"Buddy", &TBox::Buddy)
            .Property(u"OnClick", &TBox::OnClick)
            .Property(u"Strict", &TBox::getStrict, &TBox::setStrict, {.defaultValue = 0})
            .Property(u"Hidden", &TBox::Hidden, {.stored = [](const System::TObject*) { return false; }})
            .Property(u"ChildCount", [](const TBox& box) { return static_cast<int>(box.Children().size()); })
            .Property(u"FailsLoaded", &TBox::FailsLoaded, {.defaultValue = 0})
            .Property(u"DiesOnStrict", &TBox::DiesOnStrict, {.defaultValue = 0})
            .Build();
    return record;
}

TMetaClass* TSheet::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TSheet>(u"TSheet")
                                          .Method(u"BoxClick", &TSheet::BoxClick)
                                          .Field(u"Button1", &TSheet::Button1)
                                          .Build();
    return record;
}

TMetaClass* TPart::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TPart>(u"TPart").Build();
    return record;
}

TMetaClass* TBroken::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TBroken>(u"TBroken").Build();
    return record;
}

TBox::TBox(TComponent* owner)
    : TComponent(owner),
      mFont(std::make_unique<TLetters>()),
      mLines(std::make_unique<TStringList>()),
      mColumns(std::make_unique<TOwnedCollection>(this, System::ClassOf<TColumn>()))
{
    ++Boxes;
}

TBox::~TBox()
{
    --Boxes;
    while (!mChildren.empty()) {
        delete mChildren.back();
    }
    PutInto(nullptr);
}

void TBox::Loaded()
{
    TComponent::Loaded();
    ++LoadedCount;
    if (FailsLoaded) {
        throw Sysutils::Exception(u"not today");
    }
}

void TBox::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == opRemove && component == Buddy) {
        Buddy = nullptr;
    }
}

void TBox::setStrict(int value)
{
    if (DiesOnStrict) {
        delete this;
        return;
    }
    if (value < 0) {
        throw Sysutils::ERangeError(u"less than nothing");
    }
    mStrict = value;
}

std::string TBox::Order() const
{
    std::string order;
    for (const TBox* child : mChildren) {
        order += (order.empty() ? "" : " ") + System::ToUtf8(child->getName());
    }
    return order;
}

void TBox::GetChildren(const TGetChildProc& proc, TComponent* root)
{
    const std::vector<TBox*> children = mChildren;
    for (TBox* child : children) {
        if (child->getOwner() == root) {
            proc(child);
        }
    }
}

void TBox::SetChildOrder(TComponent* child, int order)
{
    const auto found = std::ranges::find(mChildren, child);
    if (found != mChildren.end()) {
        TBox* const moved = *found;
        mChildren.erase(found);
        mChildren.insert(mChildren.begin() + std::clamp(order, 0, static_cast<int>(mChildren.size())), moved);
    }
}

void TBox::SetParentComponent(TComponent* parent)
{
    PutInto(dynamic_cast<TBox*>(parent));
}

void TBox::PutInto(TBox* parent)
{
    if (mParent != nullptr) {
        std::erase(mParent->mChildren, this);
    }
    mParent = parent;
    if (mParent != nullptr) {
        mParent->mChildren.push_back(this);
    }
}

void TBox::DefineProperties(TFiler& filer)
{
    TComponent::DefineProperties(filer);
    const auto* const ancestor = dynamic_cast<const TBox*>(filer.getAncestor());
    filer.DefineProperty(
        u"Inner", [this](TReader& reader) { Inner = reader.ReadInteger(); },
        [this](TWriter& writer) { writer.WriteInteger(Inner); },
        Inner != (ancestor == nullptr ? 0 : ancestor->Inner));
    filer.DefineBinaryProperty(
        u"Blob",
        [this](TStream* stream) {
            Blob.resize(static_cast<std::size_t>(stream->getSize()));
            stream->ReadBuffer(Blob.data(), stream->getSize());
        },
        [this](TStream* stream) {
            stream->WriteBuffer(Blob.data(), static_cast<System::Int64>(Blob.size()));
        },
        Blob != (ancestor == nullptr ? std::string() : ancestor->Blob));
}

void TSheet::BoxClick(System::TObject*)
{
    ++Clicks;
}

TPart::TPart(TComponent* owner) : TBox(owner)
{
    InitInheritedComponent(this, System::ClassOf<TBox>());
}

TBroken::TBroken(TComponent* owner) : TBox(owner)
{
    throw Sysutils::Exception(u"can't be built");
}

int BoxCount()
{
    return Boxes;
}

void RegisterClasses()
{
    for (TMetaClass* type : {System::ClassOf<TBox>(), System::ClassOf<TSheet>(), System::ClassOf<TPart>(),
                             System::ClassOf<TBroken>(), System::ClassOf<TComponent>()}) {
        RegisterClass(type);
    }
    RegisterIntegerConsts(ColourType(), ColourOf, NameOfColour);
}

std::unique_ptr<TSheet> SheetOf(std::string_view text)
{
    RegisterClasses();
    auto sheet = std::make_unique<TSheet>();
    const auto stream = StreamOf(Compiled(text));
    TReader(stream.get()).ReadRootComponent(sheet.get());
    return sheet;
}

std::string TextOf(TComponent& root, TComponent* ancestor)
{
    TMemoryStream stream;
    TWriter(&stream).WriteDescendent(&root, ancestor);
    return Decompiled(stream.AsView());
}

} // namespace FilerTest
