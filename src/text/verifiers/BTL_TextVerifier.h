// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Verifiers judge what a user types into a field, and tidy it when the field is left. While it is typed a
// text may be half of a value, such as a lone sign.
//
//     BTL::CNumberTextVerifier verifier(1, 10);
//     verifier(u"-");                                             // true: something may follow
//     UnicodeString text = u"12";
//     verifier.ExitText(text);                                    // true: it is "10" now

/// Base of verifiers: accepts each text and changes none.
class TRS8_BTL_API ATextVerifier
{
public:
    ATextVerifier() = default;
    ATextVerifier(const ATextVerifier&) = default;
    ATextVerifier& operator=(const ATextVerifier&) = default;

    /// Whether the text is acceptable while it is typed.
    virtual bool operator()(const System::UnicodeString& text);
    /// Repairs the text of a field that is left; true if it changed.
    virtual bool ExitText(System::UnicodeString& text);
    virtual ~ATextVerifier();
};

/// Of texts whose parts a separator parts.
class TRS8_BTL_API ATextVerifierWithSeperator : public ATextVerifier
{
public:
    ATextVerifierWithSeperator() = default;
    explicit ATextVerifierWithSeperator(const System::UnicodeString& separator) : mSeparator(separator) {}
    ATextVerifierWithSeperator(const ATextVerifierWithSeperator&) = default;
    ATextVerifierWithSeperator& operator=(const ATextVerifierWithSeperator&) = default;
    ~ATextVerifierWithSeperator() override;

    /// Whether the part may have the value; of the parts 0 to 2. Any here.
    virtual bool IsValueOk(int value, int index) const;

protected:
    /// What parts the parts.
    const System::UnicodeString& Separator() const noexcept { return mSeparator; }

private:
    System::UnicodeString mSeparator;
};

/// Of whole numbers, and a lone sign.
class TRS8_BTL_API CNumberTextVerifier : public ATextVerifier
{
public:
    /// Equal limits are none. They don't count while typing.
    CNumberTextVerifier(double min, double max) noexcept : mMin(min), mMax(max) {}
    CNumberTextVerifier(const CNumberTextVerifier&) = default;
    CNumberTextVerifier& operator=(const CNumberTextVerifier&) = default;
    ~CNumberTextVerifier() override;

    bool operator()(const System::UnicodeString& text) override;
    /// A number outside the limits becomes the nearer one, without its fraction; a lone sign counts as 0.
    /// What is no number, but for the empty text, becomes the minimum.
    bool ExitText(System::UnicodeString& text) override;
    /// Whether the text is "-" or "+".
    static bool PlusMinusCheck(const System::UnicodeString& text);

protected:
    /// Whether the limits, which follow, count.
    bool HasLimits() const noexcept { return mMin != mMax; }
    double Min() const noexcept { return mMin; }
    double Max() const noexcept { return mMax; }

private:
    double mMin;
    double mMax;
};

/// Of numbers with `.` or `,`, as `BTL::IsDouble` reads them, and a lone sign. There are no thousand
/// separators: "1.000" is one.
class TRS8_BTL_API CFloatTextVerifier : public CNumberTextVerifier
{
public:
    /// With `Sysutils::DecimalSeparator`.
    CFloatTextVerifier(double min, double max) noexcept;
    /// Without limits.
    explicit CFloatTextVerifier(char separator) noexcept;
    CFloatTextVerifier(const CFloatTextVerifier&) = default;
    CFloatTextVerifier& operator=(const CFloatTextVerifier&) = default;
    ~CFloatTextVerifier() override;

    bool operator()(const System::UnicodeString& text) override;
    /// Takes `Sysutils::DecimalSeparator` from the end. A lone sign becomes 0, whatever the limits are; a
    /// number outside them the nearer one. What is no number stays.
    bool ExitText(System::UnicodeString& text) override;
    /// The first `.`, or if there is none the first `,`, becomes the verifier's separator.
    void ClearDecimalSeparator(System::UnicodeString& text) const;
    /// The first `.` becomes the verifier's separator.
    void SetDecimalSeparator(System::UnicodeString& text) const;

private:
    // As wide as the locale's, which not every code page has.
    System::WideChar mSeparator;
};

/// Of numbers as `CFloatTextVerifier` has them, with a unit anywhere.
class TRS8_BTL_API CUnitTextVerifier : public CFloatTextVerifier
{
public:
    CUnitTextVerifier(const System::UnicodeString& unit, char separator);
    /// With `Sysutils::DecimalSeparator`, and without limits.
    explicit CUnitTextVerifier(const System::UnicodeString& unit);
    CUnitTextVerifier(const CUnitTextVerifier&) = default;
    CUnitTextVerifier& operator=(const CUnitTextVerifier&) = default;
    ~CUnitTextVerifier() override;

    bool operator()(const System::UnicodeString& text) override;
    /// Removes the first occurrence of the unit.
    void ClearUnit(System::UnicodeString& text) const;
    /// Adds a blank and the unit, if there is one.
    void SetUnit(System::UnicodeString& text) const;

private:
    System::UnicodeString mUnit;
};

/// Of amounts of money, in the unit that the language's texts have.
class TRS8_BTL_API CCurrencyTextVerifier : public CUnitTextVerifier
{
public:
    CCurrencyTextVerifier();
    CCurrencyTextVerifier(const CCurrencyTextVerifier&) = default;
    CCurrencyTextVerifier& operator=(const CCurrencyTextVerifier&) = default;
    ~CCurrencyTextVerifier() override;
};

/// Gives the unit of money. The room of languages fills it in while the program starts; null is no unit.
TRS8_BTL_API extern System::UnicodeString (*GetCurrencyUnit)();

} // namespace BTL
