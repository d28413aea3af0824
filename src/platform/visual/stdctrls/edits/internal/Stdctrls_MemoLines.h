// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Memo.h"

namespace Stdctrls
{

/// The lines of a memo, which are its text.
class CMemoLines : public Classes::TStrings
{
public:
    /// `memo` outlives the lines. Null until `setMemo`.
    explicit CMemoLines(TCustomMemo* memo = nullptr) noexcept : mMemo(memo) {}
    ~CMemoLines() override;

    void setMemo(TCustomMemo* memo) noexcept { mMemo = memo; }
    void Insert(int index, const System::UnicodeString& text) override;
    void Delete(int index) override;
    void Clear() override;

protected:
    System::UnicodeString Get(int index) const override;
    int GetCount() const override;
    void Put(int index, const System::UnicodeString& text) override;
    void AppendItems(std::vector<Classes::TStringItem>&& items) override;
    System::UnicodeString GetTextStr() const override;
    void SetTextStr(const System::UnicodeString& text) override;

    TCustomMemo& Memo() const noexcept { return *mMemo; }

private:
    TCustomMemo* mMemo;
};

/// A text with CR LF for each end of a line.
System::UnicodeString WithUsualBreaks(const System::UnicodeString& text);

} // namespace Stdctrls
