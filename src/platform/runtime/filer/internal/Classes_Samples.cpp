// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_Samples.h"

#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_Filer.h"
#include "platform/runtime/filer/internal/Classes_Definer.h"
#include "platform/runtime/typinfo/System_MetaClass.h"

namespace Classes::Form
{

using System::UnicodeString;

namespace
{

/// Hears of what an object defines.
class CDefinedNames final : public TFiler
{
public:
    void DefineProperty(const UnicodeString& name, const TReaderProc&, const TWriterProc&, bool) override
    {
        names.insert(name.LowerCase());
    }
    void DefineBinaryProperty(const UnicodeString& name, const TStreamProc&, const TStreamProc&,
                              bool) override
    {
        names.insert(name.LowerCase());
    }
    void FlushBuffer() override {}

    std::unordered_set<UnicodeString> names;
};

} // namespace

TComponent* CSamples::ComponentOf(const System::TMetaClass* type)
{
    const auto [known, isNew] = mComponents.try_emplace(type);
    if (isNew) {
        try {
            known->second.reset(type->Create(static_cast<TComponent*>(nullptr)));
        } catch (const std::exception&) {
            // A class that can't be made here shows nothing.
        }
    }
    return known->second.get();
}

TPersistent* CSamples::ItemOf(TPersistent* collection)
{
    auto* const items = dynamic_cast<TCollection*>(collection);
    if (items == nullptr) {
        return nullptr;
    }
    try {
        return items->GetCount() > 0 ? items->GetItem(0) : items->Add();
    } catch (const std::exception&) {
        return nullptr;
    }
}

bool CSamples::Defines(TPersistent& object, const UnicodeString& name)
{
    const auto [known, isNew] = mDefined.try_emplace(&object);
    if (isNew) {
        CDefinedNames filer;
        CDefiner::DefineProperties(object, filer);
        known->second = std::move(filer.names);
    }
    return known->second.contains(name.LowerCase());
}

} // namespace Classes::Form
