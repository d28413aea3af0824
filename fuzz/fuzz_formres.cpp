// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/filer/Classes_Fixups.h"
#include "platform/runtime/filer/Classes_FormText.h"
#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "support/Fuzz.h"

#include <algorithm>
#include <string>
#include <vector>

namespace
{

using namespace Classes;
using System::GClassBuilder;
using System::TMetaClass;
using System::UnicodeString;

int Boxes = 0;

class TBox;

class TItem : public TCollectionItem
{
    TRS8_BTL_CLASS(TItem, TCollectionItem)

public:
    UnicodeString Title;
    TBox* Source = nullptr;
};

class TBox : public TComponent
{
    TRS8_BTL_CLASS(TBox, TComponent)

public:
    explicit TBox(TComponent* owner = nullptr) : TComponent(owner), mItems(System::ClassOf<TItem>())
    {
        ++Boxes;
    }
    ~TBox() override
    {
        --Boxes;
        while (!mChildren.empty()) {
            delete mChildren.back();
        }
        SetParentComponent(nullptr);
    }

    TStrings* getLines() { return &mLines; }
    TCollection* getItems() { return &mItems; }
    int getStrict() const { return mStrict; }
    void setStrict(int value)
    {
        // The root is its maker's.
        if (value == 13 && getOwner() != nullptr) {
            delete this;
            return;
        }
        if (value < 0) {
            throw Sysutils::ERangeError(u"no");
        }
        mStrict = value;
    }
    void Click(System::TObject*) {}

    UnicodeString Caption;
    double Ratio = 0;
    long double Precise = 0;
    float Share = 0;
    System::Currency Price;
    bool Visible = true;
    System::WideChar Letter = u'x';
    System::Variant Extra;
    TBox* Buddy = nullptr;
    TNotifyEvent OnClick;

protected:
    void Notification(TComponent* component, TOperation operation) override
    {
        TComponent::Notification(component, operation);
        if (operation == opRemove && component == Buddy) {
            Buddy = nullptr;
        }
    }
    void GetChildren(const TGetChildProc& proc, TComponent*) override
    {
        for (TBox* child : std::vector(mChildren)) {
            proc(child);
        }
    }
    void SetChildOrder(TComponent* child, int order) override
    {
        const auto found = std::ranges::find(mChildren, child);
        if (found != mChildren.end() && order >= 0 && order < static_cast<int>(mChildren.size())) {
            std::iter_swap(found, mChildren.begin() + order);
        }
    }
    void SetParentComponent(TComponent* parent) override
    {
        if (mParent != nullptr) {
            std::erase(mParent->mChildren, this);
        }
        mParent = dynamic_cast<TBox*>(parent);
        if (mParent != nullptr) {
            mParent->mChildren.push_back(this);
        }
    }

private:
    TStringList mLines;
    TCollection mItems;
    TBox* mParent = nullptr;
    std::vector<TBox*> mChildren;
    int mStrict = 0;
};

TMetaClass* TItem::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TItem>(u"TItem")
                                          .Property(u"Title", &TItem::Title)
                                          .Property(u"Source", &TItem::Source)
                                          .Build();
    return record;
}

TMetaClass* TBox::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<TBox>(u"TBox")
            .Property(u"Caption", &TBox::Caption)
            .Property(u"Ratio", &TBox::Ratio)
            .Property(u"Precise", &TBox::Precise)
            .Property(u"Share", &TBox::Share)
            .Property(u"Price", &TBox::Price)
            .Property(u"Visible", &TBox::Visible, {.defaultValue = 1})
            .Property(u"Letter", &TBox::Letter, {.defaultValue = u'x'})
            .Property(u"Extra", &TBox::Extra)
            .Property(u"Buddy", &TBox::Buddy)
            .Property(u"OnClick", &TBox::OnClick)
            .Property(u"Lines", [](const TBox& box) { return const_cast<TBox&>(box).getLines(); })
            .Property(u"Items", [](const TBox& box) { return const_cast<TBox&>(box).getItems(); })
            .Property(u"Strict", &TBox::getStrict, &TBox::setStrict, {.defaultValue = 0})
            .Method(u"Click", &TBox::Click)
            .Build();
    return record;
}

TMemoryStream& Filled(TMemoryStream& stream, std::string_view bytes)
{
    stream.WriteBuffer(bytes.data(), static_cast<System::Int64>(bytes.size()));
    stream.setPosition(0);
    return stream;
}

std::string Compiled(std::string_view text)
{
    TMemoryStream input;
    TMemoryStream output;
    ObjectTextToBinary(&Filled(input, text), &output);
    return std::string(output.AsView());
}

std::string Decompiled(std::string_view bytes)
{
    TMemoryStream input;
    TMemoryStream output;
    ObjectBinaryToText(&Filled(input, bytes), &output);
    return std::string(output.AsView());
}

/// Both forms tell the same, once each value has its shortest form.
void CheckText(std::string_view bytes)
{
    std::string text;
    try {
        text = Decompiled(bytes);
    } catch (const EReadError&) {
        return;
    }
    const std::string shortest = Compiled(text);
    Fuzz::Require(Decompiled(shortest) == text);
    Fuzz::Require(Compiled(Decompiled(shortest)) == shortest);
}

std::string Written(TComponent& root)
{
    TMemoryStream stream;
    TWriter(&stream).WriteRootComponent(&root);
    return std::string(stream.AsView());
}

/// Reads the form into components; those that were made are gone after a fault.
void CheckComponents(std::string_view bytes, bool passesOver)
{
    {
        TBox root;
        TMemoryStream stream;
        TReader reader(&Filled(stream, bytes));
        if (passesOver) {
            reader.OnError = [](TReader*, const UnicodeString&, bool& handled) { handled = true; };
        }
        try {
            reader.ReadRootComponent(&root);
            const std::string written = Written(root);
            TBox again;
            TMemoryStream copy;
            TReader(&Filled(copy, written)).ReadRootComponent(&again);
            Fuzz::Require(Written(again) == written);
        } catch (const Sysutils::Exception&) {
        }
        Fuzz::Require(root.getComponentState().Contains(csLoading) == false);
    }
    RemoveFixupReferences(nullptr, {});
    Fuzz::Require(Boxes == 0);
}

} // namespace

/// Any bytes are a form, or are refused with an exception that leaves nothing behind.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    RegisterClass(System::ClassOf<TBox>());
    const std::string_view bytes = Fuzz::Bytes(data, size);
    CheckText(bytes);
    CheckComponents(bytes, false);
    CheckComponents(bytes, true);
    return 0;
}
