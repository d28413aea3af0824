// SPDX-License-Identifier: MIT
#include "properties/documents/PROP_IniFile.h"

#include "config/BTL_INI_WinIniFile.h"
#include "config/internal/BTL_INI_Unwritable.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "os/Win_sys_utilitiesw.h"
#include "platform/base/dates/Sysutils_Calendar.h"
#include "platform/base/dates/Sysutils_DateText.h"
#include "platform/host/profile/internal/Host_ProfileText.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "properties/documents/PROP_Document.h"
#include "properties/documents/internal/PROP_InfoSection.h"
#include "properties/values/internal/PROP_Path.h"
#include "text/editing/BTL_STR_Replace.h"
#include "text/lists/BTL_STR_StringList.h"

#include <algorithm>
#include <vector>

namespace PROP
{

using System::UnicodeString;

namespace
{

constexpr UTL::CFaultPlace NoDocument{"PROP_IniFile", 1};
constexpr UTL::CFaultPlace NoObject{"PROP_IniFile", 2};
constexpr UTL::CFaultPlace NotWritten{"PROP_IniFile", 3};

/// What a file keeps of itself is no object's.
bool IsInfo(const UnicodeString& section)
{
    return section.Trim().CompareIC(InfoSection) == 0;
}

bool IsStorableSection(const UnicodeString& section)
{
    return !IsInfo(section) && Host::IsStorable({section, UnicodeString(u"k"), UnicodeString()});
}

/// One section as it is to be in the file.
struct TSection
{
    UnicodeString name;
    std::vector<Host::ProfileEntry> entries;
};

/// Gathers what is to be written, and what the file can't hold.
class CPlan
{
public:
    /// Null if the section can't be written at all.
    TSection* AddSection(const UnicodeString& name)
    {
        if (!IsStorableSection(name)) {
            LeaveOut(name);
            return nullptr;
        }
        mSections.push_back({name, {}});
        return &mSections.back();
    }

    void AddEntry(TSection& section, const UnicodeString& key, UnicodeString value)
    {
        const Host::ProfileChange change{section.name, key, std::move(value)};
        if (Host::IsStorable(change)) {
            section.entries.push_back({key, *change.value});
        } else {
            LeaveOut(section.name + u"." + key);
        }
    }

    const std::vector<TSection>& getSections() const noexcept { return mSections; }

    /// One warning of all, before the file is touched.
    void WarnOfLeftOut() const
    {
        constexpr int mostTold = 10;
        if (mLeftOut.empty()) {
            return;
        }
        const int told = std::min(mLeftOut.GetCount(), mostTold);
        UnicodeString text = u"Not written:";
        for (int i = 0; i < told; ++i) {
            text += (i == 0 ? u" " : u", ") + mLeftOut[i];
        }
        if (told < mLeftOut.GetCount()) {
            text += u" and " + UnicodeString(mLeftOut.GetCount() - told) + u" more";
        }
        UTL::Warn(text.c_str(), NotWritten.source, NotWritten.line);
    }

private:
    /// Names may be as long as their writer likes.
    void LeaveOut(const UnicodeString& name)
    {
        constexpr int longest = 80;
        mLeftOut.Add(name.Length() <= longest ? name : name.SubString(1, longest) + u"...");
    }

    std::vector<TSection> mSections;
    BTL::CStringList mLeftOut;
};

/// What both forms have in common.
class AFormatIniFile : public BTL::CWIN_IniFile
{
public:
    AFormatIniFile(ADocument* document, const UnicodeString& fileName)
        : CWIN_IniFile(fileName), mDocument(document)
    {
        if (document == nullptr) {
            UTL::THROW_XAssert(NoDocument);
        }
    }

protected:
    /// Null if the user let that pass.
    ADocument* getDocument() const noexcept { return mDocument; }

    void WritePlan(const CPlan& plan)
    {
        plan.WarnOfLeftOut();
        if (const UnicodeString folder = Sysutils::ExtractFilePath(getFile()); !folder.IsEmpty()) {
            Sysutils::ForceDirectories(folder);
        }
        Host::ProfileBundle bundle(getFile());
        UpdateInfo();
        for (const TSection& section : plan.getSections()) {
            setSection(section.name);
            DeleteSection();
            for (const Host::ProfileEntry& entry : section.entries) {
                WriteString(entry.key, entry.value);
            }
        }
        Flush();
        if (!bundle.End()) {
            BTL::Detail::ThrowUnwritable(getFile());
        }
    }

private:
    void UpdateInfo()
    {
        const bool isNew = !FileExists();
        const BTL::CSetIniSection section(this, InfoSection);
        const UnicodeString now = Sysutils::DateTimeToStr(Sysutils::Now());
        const UnicodeString user = WIN::GetUserNameW();
        if (isNew) {
            WriteString(CreationDateTimeKey, now);
            WriteString(CreationAuthorKey, user);
        }
        WriteString(ChangeDateKey, now);
        WriteString(ChangeAuthorKey, user);
        if (isNew) {
            WriteString(TranslationKey, u"?");
        }
    }

    ADocument* mDocument;
};

/// The text with its quotes doubled, in quotes.
UnicodeString Quoted(const UnicodeString& text)
{
    return u"\"" + BTL::ExchangeAll(text, u"\"", u"\"\"") + u"\"";
}

/// The short form, of which a caption comes back as it was.
UnicodeString StoredForm(const CObject& object)
{
    UnicodeString form = object.GetPropString();
    const auto* const captioned = dynamic_cast<const ACaptionProp*>(&object);
    if (captioned == nullptr || captioned->getCaption().Pos(u'"') == 0) {
        return form;
    }
    const UnicodeString bare = u"\"" + captioned->getCaption() + u"\"";
    const bool isInFront = form.AsView().starts_with(bare.AsView());
    return isInFront ? Quoted(captioned->getCaption()) + form.SubString(bare.Length() + 1, form.Length())
                     : form;
}

} // namespace

class CSectionFormatIniFile::CImp : public AFormatIniFile
{
public:
    using AFormatIniFile::AFormatIniFile;

    void Read()
    {
        if (getDocument() == nullptr) {
            return;
        }
        for (const UnicodeString& section : Host::ListProfileSections(getFile())) {
            // One without a name is none that a document wrote.
            if (!section.IsEmpty() && !IsInfo(section)) {
                ReadObject(section);
            }
        }
    }

    void Write()
    {
        if (getDocument() == nullptr) {
            return;
        }
        CPlan plan;
        const CObjects& objects = getDocument()->getObjects();
        for (auto object = objects.sbegin(); object != objects.send(); ++object) {
            if (TSection* const section = plan.AddSection(object->first); section != nullptr) {
                CProperties properties;
                object->second->GetProperties(properties);
                for (const CProperty& property : properties) {
                    plan.AddEntry(*section, property.getName(), property.getValue());
                }
            }
        }
        WritePlan(plan);
    }

private:
    void ReadObject(const UnicodeString& section)
    {
        CObject* const object = getDocument()->InsertNewObject(section);
        for (const Host::ProfileEntry& entry : Host::ReadProfileSection(getFile(), section.AsView())) {
            if (object == nullptr) {
                UTL::THROW_XAssert(NoObject);
                return;
            }
            object->AddProperty(entry.key, entry.value);
        }
    }
};

class CKeyFormatIniFile::CImp : public AFormatIniFile
{
public:
    CImp(ADocument* document, const UnicodeString& fileName, const UnicodeString& section)
        : AFormatIniFile(document, fileName)
    {
        setSection(section);
    }

    void Read()
    {
        if (getDocument() == nullptr) {
            return;
        }
        DiscardCache();
        for (const Host::ProfileEntry& entry : Host::ReadProfileSection(getFile(), getSection().AsView())) {
            CObject* const object = getDocument()->InsertNewObject(entry.key);
            if (object == nullptr) {
                UTL::THROW_XAssert(NoObject);
                continue;
            }
            object->SetProperties(WithoutBrackets(entry.value));
        }
    }

    void Write()
    {
        if (getDocument() == nullptr) {
            return;
        }
        CPlan plan;
        if (TSection* const section = plan.AddSection(getSection()); section != nullptr) {
            for (const auto& object : getDocument()->getObjects()) {
                plan.AddEntry(*section, object->getName(), InBrackets(StoredForm(*object.get())));
            }
        }
        WritePlan(plan);
    }
};

CSectionFormatIniFile::CSectionFormatIniFile(ADocument* document, const UnicodeString& fileName)
    : mImp(new CImp(document, fileName))
{
}

CSectionFormatIniFile::~CSectionFormatIniFile() = default;

void CSectionFormatIniFile::Read()
{
    mImp->Read();
}

void CSectionFormatIniFile::Write()
{
    mImp->Write();
}

CKeyFormatIniFile::CKeyFormatIniFile(ADocument* document, const UnicodeString& fileName,
                                     const UnicodeString& section)
    : mImp(new CImp(document, fileName, section))
{
}

CKeyFormatIniFile::~CKeyFormatIniFile() = default;

void CKeyFormatIniFile::Read()
{
    mImp->Read();
}

void CKeyFormatIniFile::Write()
{
    mImp->Write();
}

} // namespace PROP
