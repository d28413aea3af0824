// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/filer/Classes_FormCheck.h"
#include "platform/runtime/filer/internal/Classes_FormSink.h"
#include "platform/runtime/filer/internal/Classes_Samples.h"
#include "platform/runtime/typinfo/Typinfo.h"

#include <string>
#include <unordered_set>
#include <vector>

namespace Classes::Form
{

class CParser;

/// Looks at what a parser tells.
class CChecker final : public ASink
{
public:
    /// Raised when more faults were found than anybody reads.
    struct TEnough
    {
    };

    explicit CChecker(TFormClasses classes) : mClasses(classes) {}

    /// Whom to ask for places; before the first event.
    void SetParser(const CParser& parser, std::string_view text)
    {
        mParser = &parser;
        mText = text;
    }
    std::vector<TFormFault> TakeFaults() { return std::move(mFaults); }

    void BeginObject(const TObjectHead& head) override;
    void EndObject() override;
    void BeginProperty(std::string_view path) override;
    void Constant(TValueType type) override;
    void Integer(System::Int64 value) override;
    void Float(TValueType type, std::string_view bytes) override;
    void Text(std::string_view text) override;
    void WideText(std::u16string_view text) override;
    void Ident(std::string_view path) override;
    void Bytes(std::string_view bytes) override;
    void BeginSet() override;
    void Element(std::string_view name) override;
    void EndSet() override {}
    void BeginList() override;
    void EndList() override;
    void BeginCollection() override;
    void BeginItem(std::optional<System::Int64> place) override;
    void EndItem() override;
    void EndCollection() override {}

private:
    using CNames = std::unordered_set<System::UnicodeString>;

    /// A component or an item.
    struct TLevel
    {
        /// One of its class; null if that isn't known.
        TPersistent* sample = nullptr;
        bool isInherited = false;
        bool hasOwnScope = false;
        CNames properties = {};
        CNames inheritedChildren = {};
        /// The property at hand; null if nothing is known of it.
        const Typinfo::TPropInfo* info = nullptr;
        /// What that holds in the sample.
        TPersistent* value = nullptr;
        int listDepth = 0;
    };

    void Fault(const System::UnicodeString& message);
    void CheckName(const TObjectHead& head);
    TPersistent* SampleOf(const TObjectHead& head);
    /// The property whose value is being told; null where it can't be judged.
    const Typinfo::TPropInfo* Judged() const;
    template <class... Kinds>
    void NeedKind(const char16_t* what, Kinds... kinds);
    void CheckTextLength(int length);
    void CheckIdent(const Typinfo::TPropInfo& info, const System::UnicodeString& ident);
    bool IsRootMethod(const System::UnicodeString& name) const;

    TFormClasses mClasses;
    const CParser* mParser = nullptr;
    std::string_view mText;
    std::vector<TFormFault> mFaults;
    std::vector<TLevel> mLevels;
    /// The names within the form, and within each part that has a design of its own.
    std::vector<CNames> mScopes;
    const System::TMetaClass* mRootClass = nullptr;
    CSamples mSamples;
};

} // namespace Classes::Form
