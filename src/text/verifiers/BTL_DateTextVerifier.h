// SPDX-License-Identifier: MIT
#pragma once

#include "text/verifiers/BTL_TextVerifier.h"

namespace BTL
{

/// Of times: hours, minutes, and a last part up to 999. What has `%` or `_` is a filter, which may be
/// anything.
///
///     BTL::CTimeTextVerifier verifier;
///     verifier(u"1:");                                            // true: something may follow
///     verifier(u"24:00");                                         // false
class TRS8_BTL_API CTimeTextVerifier : public ATextVerifierWithSeperator
{
public:
    /// With `Sysutils::TimeSeparator`.
    CTimeTextVerifier();
    explicit CTimeTextVerifier(const System::UnicodeString& separator);
    CTimeTextVerifier(const CTimeTextVerifier&) = default;
    CTimeTextVerifier& operator=(const CTimeTextVerifier&) = default;
    ~CTimeTextVerifier() override;

    bool operator()(const System::UnicodeString& text) override;
    /// The hours, minutes and last part. Any other index is an internal fault; false if the user lets that
    /// pass.
    bool IsValueOk(int value, int index) const override;
};

/// Of dates in the order of `Sysutils::ShortDateFormat`, in part or whole; each part may be the `%` or `_` of
/// a filter.
///
///     BTL::CDateTextVerifier verifier;
///     UnicodeString text = u"5";
///     verifier.ExitText(text);                                    // the 5th of this month
class TRS8_BTL_API CDateTextVerifier : public CTimeTextVerifier
{
public:
    /// With `Sysutils::DateSeparator`.
    CDateTextVerifier();
    CDateTextVerifier(const CDateTextVerifier&) = default;
    CDateTextVerifier& operator=(const CDateTextVerifier&) = default;
    ~CDateTextVerifier() override;

    /// Whether the parts are numbers; whether they are a date doesn't count yet.
    bool operator()(const System::UnicodeString& text) override;
    /// Completes the date by today's and holds it within the calendar, the day to the last of its month. A
    /// filter only loses separators and blanks at its ends.
    bool ExitText(System::UnicodeString& text) override;
    /// The day, month and year. Any other index is an internal fault; false if the user lets that pass.
    bool IsValueOk(int value, int index) const override;
};

} // namespace BTL
