// SPDX-License-Identifier: MIT
#include "text/verifiers/BTL_TextVerifier.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_STR_Numbers.h"
#include "platform/base/Sysutils_Locale.h"
#include "platform/base/numbers/Sysutils_FloatText.h"
#include "text/numbers/BTL_NUM_Floats.h"
#include "text/numbers/BTL_NUM_SetDecimalSeparator.h"

#include <algorithm>
#include <cmath>

namespace BTL
{

using System::UnicodeString;

UnicodeString (*GetCurrencyUnit)() = nullptr;

namespace
{

UnicodeString ToInteger(double value)
{
    constexpr double most = 9e18;
    return UnicodeString(
        static_cast<System::Int64>(std::isnan(value) ? 0 : std::clamp(std::trunc(value), -most, most)));
}

/// Puts `value` in place of the text; whether that changes it.
bool Replace(UnicodeString& text, const UnicodeString& value)
{
    if (text == value) {
        return false;
    }
    text = value;
    return true;
}

} // namespace

bool ATextVerifier::operator()(const UnicodeString&)
{
    return true;
}

bool ATextVerifier::ExitText(UnicodeString&)
{
    return false;
}

ATextVerifier::~ATextVerifier() = default;

ATextVerifierWithSeperator::~ATextVerifierWithSeperator() = default;

bool ATextVerifierWithSeperator::IsValueOk(int, int) const
{
    return true;
}

CNumberTextVerifier::~CNumberTextVerifier() = default;

bool CNumberTextVerifier::PlusMinusCheck(const UnicodeString& text)
{
    return text == u"-" || text == u"+";
}

bool CNumberTextVerifier::operator()(const UnicodeString& text)
{
    long value = 0;
    return UTL::GetLong(text.c_str(), value) || PlusMinusCheck(text);
}

bool CNumberTextVerifier::ExitText(UnicodeString& text)
{
    if (text.IsEmpty()) {
        return false;
    }
    const UnicodeString former = text;
    if (PlusMinusCheck(text)) {
        text = u"0";
    }
    long value = 0;
    if (!UTL::GetLong(text.c_str(), value)) {
        text = ToInteger(mMin);
    } else if (HasLimits()) {
        const auto number = static_cast<double>(value);
        if (number < mMin) {
            text = ToInteger(mMin);
        } else if (number > mMax) {
            text = ToInteger(mMax);
        }
    }
    return text != former;
}

CFloatTextVerifier::CFloatTextVerifier(double min, double max) noexcept
    : CNumberTextVerifier(min, max), mSeparator(Sysutils::DecimalSeparator)
{
}

CFloatTextVerifier::CFloatTextVerifier(char separator) noexcept
    : CNumberTextVerifier(0, 0), mSeparator(static_cast<unsigned char>(separator))
{
}

CFloatTextVerifier::~CFloatTextVerifier() = default;

bool CFloatTextVerifier::operator()(const UnicodeString& text)
{
    return IsDouble(text) || PlusMinusCheck(text);
}

bool CFloatTextVerifier::ExitText(UnicodeString& text)
{
    const int length = text.Length();
    bool changed = false;
    if (length > 0 && text.AsView().back() == Sysutils::DecimalSeparator) {
        text.SetLength(length - 1);
        changed = true;
    }
    double value = 0;
    if (!ToDouble(text, value)) {
        return PlusMinusCheck(text) ? Replace(text, Sysutils::FloatToStr(0.0)) : changed;
    }
    if (HasLimits() && (value < Min() || value > Max())) {
        changed |= Replace(text, Sysutils::FloatToStr(value < Min() ? Min() : Max()));
    }
    return changed;
}

void CFloatTextVerifier::ClearDecimalSeparator(UnicodeString& text) const
{
    text = BTL::SetDecimalSeparator(text, mSeparator);
}

void CFloatTextVerifier::SetDecimalSeparator(UnicodeString& text) const
{
    const int place = mSeparator == u'.' ? 0 : text.Pos(u'.');
    if (place > 0) {
        text[place] = mSeparator;
    }
}

CUnitTextVerifier::CUnitTextVerifier(const UnicodeString& unit, char separator)
    : CFloatTextVerifier(separator), mUnit(unit)
{
}

CUnitTextVerifier::CUnitTextVerifier(const UnicodeString& unit) : CFloatTextVerifier(0.0, 0.0), mUnit(unit) {}

CUnitTextVerifier::~CUnitTextVerifier() = default;

bool CUnitTextVerifier::operator()(const UnicodeString& text)
{
    UnicodeString number = text;
    ClearUnit(number);
    return CFloatTextVerifier::operator()(number);
}

void CUnitTextVerifier::ClearUnit(UnicodeString& text) const
{
    // An empty unit is nowhere.
    const int place = text.Pos(mUnit);
    if (place > 0) {
        text.Delete(place, mUnit.Length());
    }
}

void CUnitTextVerifier::SetUnit(UnicodeString& text) const
{
    if (!mUnit.IsEmpty()) {
        text += u' ' + mUnit;
    }
}

CCurrencyTextVerifier::CCurrencyTextVerifier()
    : CUnitTextVerifier(GetCurrencyUnit == nullptr ? UnicodeString() : GetCurrencyUnit())
{
}

CCurrencyTextVerifier::~CCurrencyTextVerifier() = default;

} // namespace BTL
