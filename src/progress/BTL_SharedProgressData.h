// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/dates/System_DateTime.h"

#include <cstdint>

namespace BTL
{

class CSharedProgressPage;

/// What a process tells others of its progress: 3920 bytes that have the same places in all programs.
///
///     BTL::CSharedProgressInfoData data;
///     if (info.Snapshot(data)) {                                  // a BTL::CSharedProgressInfo
///         ShowLine(data.getCaption(), data.getPosition(), data.getMax());
///     }
///
/// Numbers are read and written whole, also while another thread or process uses the record; a text may be
/// read in the middle of its change. A text has room for so many characters, and takes the first ones of a
/// longer one up to a character 0, whatever they are: a pair of surrogates may be cut.
class TRS8_BTL_API CSharedProgressInfoData
{
public:
    /// All numbers 0, all texts empty.
    constexpr CSharedProgressInfoData() noexcept = default;

    /// Sets all bytes to 0.
    void Clear() noexcept;

    /// The number of the process that reports, 0 for none.
    unsigned long getProcessId() const noexcept { return Load(mProcessId); }
    void setProcessId(unsigned long id) noexcept { Store(mProcessId, static_cast<std::uint32_t>(id)); }
    /// When the record was made, in local time.
    System::TDateTime getStartTime() const noexcept;
    void setStartTime(System::TDateTime time) noexcept;
    /// The position at which all is done.
    System::Int64 getMax() const noexcept { return Load(mMax); }
    void setMax(System::Int64 max) noexcept { Store(mMax, max); }
    /// How much is done.
    System::Int64 getPosition() const noexcept { return Load(mPosition); }
    void setPosition(System::Int64 position) noexcept { Store(mPosition, position); }
    /// One more is done. None of several writers' counts is lost.
    void IncPosition() noexcept { __atomic_fetch_add(&mPosition, 1, __ATOMIC_RELEASE); }

    /// What the whole is called; room for 100 characters.
    System::UnicodeString getCaption() const;
    void setCaption(System::UnicodeString caption) noexcept;
    /// What is being done; room for 100 characters.
    System::UnicodeString getText1() const;
    void setText1(System::UnicodeString text) noexcept;
    /// As `getText1`, in a second line.
    System::UnicodeString getText2() const;
    void setText2(System::UnicodeString text) noexcept;
    /// More about it, of several lines; room for 100 characters.
    System::UnicodeString getTextLines() const;
    void setTextLines(System::UnicodeString lines) noexcept;
    /// What the process has to say; room for 512 characters.
    System::UnicodeString getMessage() const;
    void setMessage(System::UnicodeString message) noexcept;
    /// How the process was called; room for 1024 characters.
    System::UnicodeString getCommandLine() const;
    void setCommandLine(System::UnicodeString line) noexcept;

private:
    /// Knows where the parts lie.
    friend class CSharedProgressPage;

    /// A place behind each text stays 0.
    template <int Characters>
    struct GText
    {
        System::WideChar characters[Characters + 1] = {};
    };
    using TLine = GText<100>;

    template <class T>
    static T Load(const T& field) noexcept
    {
        return __atomic_load_n(&field, __ATOMIC_ACQUIRE);
    }
    template <class T>
    static void Store(T& field, T value) noexcept
    {
        __atomic_store_n(&field, value, __ATOMIC_RELEASE);
    }

    template <int Characters>
    static System::UnicodeString LoadText(const GText<Characters>& field);
    template <int Characters>
    static void StoreText(GText<Characters>& field, const System::UnicodeString& text) noexcept;

    std::uint32_t mProcessId = 0;
    [[maybe_unused]] std::uint32_t mReserved = 0;
    double mStartTime = 0;
    System::Int64 mMax = 0;
    System::Int64 mPosition = 0;
    TLine mCaption;
    TLine mText1;
    TLine mText2;
    TLine mTextLines;
    GText<512> mMessage;
    GText<1024> mCommandLine;
    [[maybe_unused]] std::uint32_t mReservedAtEnd = 0;
};

static_assert(sizeof(CSharedProgressInfoData) == 3920);

} // namespace BTL
