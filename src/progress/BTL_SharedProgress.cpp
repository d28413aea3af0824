// SPDX-License-Identifier: MIT
#include "progress/BTL_SharedProgress.h"

#include "os/WIN_LastError.h"
#include "os/WIN_SharedMemory.h"
#include "platform/base/dates/Sysutils_Calendar.h"
#include "platform/host/Host_Module.h"
#include "platform/host/system/Host_CommandLine.h"
#include "progress/internal/BTL_SharedProgressPage.h"

namespace BTL
{

using System::Int64;
using System::UnicodeString;

namespace
{

unsigned long ProcessOr(unsigned long processId)
{
    return processId == 0 ? GetCurrentProcessId() : processId;
}

UnicodeString NumberedName(const UnicodeString& name, unsigned long processId)
{
    return name + UnicodeString(ProcessOr(processId));
}

} // namespace

CSharedProgressInfo::CSharedProgressInfo(const UnicodeString& name)
{
    InitSharedMemory(false, name, 0);
}

CSharedProgressInfo::CSharedProgressInfo(const UnicodeString& name, unsigned long processId)
    : CSharedProgressInfo(false, name, processId)
{
}

CSharedProgressInfo::CSharedProgressInfo(bool readOnly, const UnicodeString& name, unsigned long processId)
{
    InitSharedMemory(readOnly, NumberedName(name, processId), processId);
}

CSharedProgressInfo::~CSharedProgressInfo() = default;

void CSharedProgressInfo::InitSharedMemory(bool readOnly, const UnicodeString& mappingName,
                                           unsigned long processId)
{
    mRecord = mWritable = nullptr;
    mPage = nullptr;
    mMemory = System::MakeOwner<WIN::CSharedMemory>(mappingName, unsigned{sizeof(CSharedProgressInfoData)});
    if (!readOnly) {
        mMemory->CreateOrOpen();
    } else if (!mMemory->Open(WIN::ESharedMemoryAccess::Read)) {
        return;
    }
    auto* const record = static_cast<CSharedProgressInfoData*>(mMemory->getView());
    if (record == nullptr) {
        return;
    }
    using EAccess = CSharedProgressPage::EAccess;
    mPage = System::MakeOwner<CSharedProgressPage>(mMemory->getMapping(),
                                                   readOnly ? EAccess::Read : EAccess::Write);
    if (!mPage->IsOpen()) {
        WIN::ThrowLastError();
        return;
    }
    mRecord = record;
    if (readOnly) {
        return;
    }
    mWritable = record;
    if (!mMemory->getAlreadyExists()) {
        const UnicodeString commandLine = GetCommandLineW();
        mPage->SetWriter(ProcessOr(processId));
        mPage->Change(*record, CSharedProgressPage::Everything, [&] {
            record->Clear();
            record->setProcessId(ProcessOr(processId));
            record->setStartTime(Sysutils::Now());
            record->setCommandLine(commandLine);
        });
    }
}

template <class Value>
void CSharedProgressInfo::ChangePart(const TProgressPart& part, void (CSharedProgressInfoData::*set)(Value),
                                     const Value& value)
{
    if (mWritable != nullptr) {
        mPage->Change(*mWritable, part, [&] { (mWritable->*set)(value); });
    }
}

bool CSharedProgressInfo::IsWriterAlive() const
{
    return IsOpen() && mPage->IsWriterAlive(*mRecord);
}

bool CSharedProgressInfo::Snapshot(CSharedProgressInfoData& data) const
{
    return IsOpen() && mPage->Copy(*mRecord, data);
}

const CSharedProgressInfoData& CSharedProgressInfo::getData() const noexcept
{
    static constexpr CSharedProgressInfoData none;
    return mRecord == nullptr ? none : *mRecord;
}

Int64 CSharedProgressInfo::getMax() const
{
    return getData().getMax();
}

void CSharedProgressInfo::setMax(Int64 max)
{
    ChangePart(CSharedProgressPage::Max, &CSharedProgressInfoData::setMax, max);
}

Int64 CSharedProgressInfo::getPosition() const
{
    return getData().getPosition();
}

void CSharedProgressInfo::setPosition(Int64 position)
{
    if (mWritable != nullptr) {
        mWritable->setPosition(position);
    }
}

UnicodeString CSharedProgressInfo::getCaption() const
{
    return getData().getCaption();
}

void CSharedProgressInfo::setCaption(UnicodeString caption)
{
    ChangePart(CSharedProgressPage::Caption, &CSharedProgressInfoData::setCaption, caption);
}

UnicodeString CSharedProgressInfo::getText1() const
{
    return getData().getText1();
}

void CSharedProgressInfo::setText1(UnicodeString text)
{
    ChangePart(CSharedProgressPage::Text1, &CSharedProgressInfoData::setText1, text);
}

UnicodeString CSharedProgressInfo::getText2() const
{
    return getData().getText2();
}

void CSharedProgressInfo::setText2(UnicodeString text)
{
    ChangePart(CSharedProgressPage::Text2, &CSharedProgressInfoData::setText2, text);
}

UnicodeString CSharedProgressInfo::getTextLines() const
{
    return getData().getTextLines();
}

void CSharedProgressInfo::setTextLines(UnicodeString lines)
{
    ChangePart(CSharedProgressPage::TextLines, &CSharedProgressInfoData::setTextLines, lines);
}

UnicodeString CSharedProgressInfo::getMessage() const
{
    return getData().getMessage();
}

void CSharedProgressInfo::setMessage(UnicodeString message)
{
    ChangePart(CSharedProgressPage::Message, &CSharedProgressInfoData::setMessage, message);
}

void CSharedProgressInfo::IncPosition()
{
    if (mWritable != nullptr) {
        mWritable->IncPosition();
    }
}

void CSharedProgressInfo::SetProgressEndPosition()
{
    setPosition(getMax());
}

} // namespace BTL
