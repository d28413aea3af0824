// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "progress/BTL_SharedProgressData.h"
#include "progress/model/BTL_ProgressInfo.h"

namespace WIN
{
class CSharedMemory;
}

namespace BTL
{

class CSharedProgressPage;
struct TProgressPart;

/// A progress that other processes see, by a name that is any text.
///
///     BTL::CSharedProgressInfo progress(u"Export", 0);            // "Export1234" in process 1234
///     progress.Prepare(files.getCount(), false, false, u"Export", u"", u"", u"", 0);
///     progress.IncPosition();
///
///     BTL::CSharedProgressInfo monitor(true, u"Export", 1234);    // in another program
///     if (monitor.IsOpen()) { ShowText(monitor.getText1()); }
///
/// One process writes, any number of them reads, also those of other users. The record lives as long as
/// somebody has it. What is written is seen at the next read; a reader can't ask for a cancel. Without a
/// record the setters do nothing and the getters give 0 and empty texts. For the room of the texts see
/// `CSharedProgressInfoData`.
class TRS8_BTL_API CSharedProgressInfo : public AProgressInfo
{
public:
    /// To write, under this very name, as the calling process. A failure goes to `WIN::ThrowLastError`.
    explicit CSharedProgressInfo(const System::UnicodeString& name);
    /// To write, under the name with the number of the process behind it, 0 for the calling one. A failure
    /// goes to `WIN::ThrowLastError`.
    CSharedProgressInfo(const System::UnicodeString& name, unsigned long processId);
    /// As the constructor to write; with `readOnly` to read what is there, without an exception where there
    /// is none.
    CSharedProgressInfo(bool readOnly, const System::UnicodeString& name, unsigned long processId);
    /// Lets the record go.
    ~CSharedProgressInfo() override;

    /// Lets a former record go. With `readOnly` takes the one of this name, if there is one. Else takes it as
    /// it is and goes on, or makes it, with this process number, 0 for the calling one, the current time and
    /// the command line.
    void InitSharedMemory(bool readOnly, const System::UnicodeString& mappingName, unsigned long processId);

    /// Whether there is a record.
    bool IsOpen() const noexcept { return mRecord != nullptr; }
    /// Whether the process that the record names still runs; a later process of its number doesn't count.
    /// False without a record. Who goes on with another one's record stands not for it.
    bool IsWriterAlive() const;
    /// The whole record as it stood at a moment of the call; a change that the writer is in the middle of,
    /// for ever if it died there, isn't in it. False, and `data` left alone, without a record, or if that
    /// doesn't come about within 10 ms beside a writer without a pause.
    bool Snapshot(CSharedProgressInfoData& data) const;
    /// The record itself, which changes meanwhile; an empty one if there is none. It belongs to this object.
    const CSharedProgressInfoData& getData() const noexcept;

    System::Int64 getMax() const override;
    void setMax(System::Int64 max) override;
    System::Int64 getPosition() const override;
    void setPosition(System::Int64 position) override;
    System::UnicodeString getCaption() const override;
    void setCaption(System::UnicodeString caption) override;
    System::UnicodeString getText1() const override;
    void setText1(System::UnicodeString text) override;
    System::UnicodeString getText2() const override;
    void setText2(System::UnicodeString text) override;
    System::UnicodeString getTextLines() const override;
    void setTextLines(System::UnicodeString lines) override;
    System::UnicodeString getMessage() const override;
    void setMessage(System::UnicodeString message) override;
    void IncPosition() override;
    void SetProgressEndPosition() override;

private:
    template <class Value>
    void ChangePart(const TProgressPart& part, void (CSharedProgressInfoData::*set)(Value),
                    const Value& value);

    System::GOwner<WIN::CSharedMemory> mMemory;
    System::GOwner<CSharedProgressPage> mPage;
    const CSharedProgressInfoData* mRecord = nullptr;
    /// Null where it is only read.
    CSharedProgressInfoData* mWritable = nullptr;
};

} // namespace BTL
