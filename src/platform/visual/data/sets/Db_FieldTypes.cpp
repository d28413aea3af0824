// SPDX-License-Identifier: MIT
#include "platform/visual/data/sets/Db_FieldTypes.h"

#include "platform/base/System_Types.h"
#include "platform/base/dates/Sysutils_DateText.h"
#include "platform/base/numbers/Sysutils_FloatPicture.h"
#include "platform/base/numbers/Sysutils_FloatText.h"
#include "platform/base/numbers/Sysutils_Integer.h"
#include "platform/runtime/classes/Classes.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <cmath>
#include <limits>

namespace Db
{

using System::Int64;
using System::TDateTime;
using System::UnicodeString;
using System::Variant;

namespace
{

bool IsTextType(TFieldType type)
{
    return type == ftString || type == ftWideString || type == ftMemo || type == ftWideMemo;
}

bool IsBlankText(const Variant& value)
{
    return value.IsText() && Sysutils::Trim(value.As<UnicodeString>()).IsEmpty();
}

Variant BytesToVariant(std::string_view bytes)
{
    const int bounds[] = {0, static_cast<int>(bytes.size()) - 1};
    Variant result = Variant::CreateArray(bounds, System::varByte);
    std::copy(bytes.begin(), bytes.end(), result.ArrayBytes().begin());
    return result;
}

/// The bytes of a binary value, or a text in UTF-8.
std::string BytesOf(const Variant& value)
{
    if (value.Type() == (System::varArray | System::varByte)) {
        const auto bytes = value.ArrayBytes();
        return {bytes.begin(), bytes.end()};
    }
    return value.IsNull() ? std::string() : System::ToUtf8(value.As<UnicodeString>());
}

/// A class of fields without properties of its own.
template <class T>
System::TMetaClass* MakeRecord(const char16_t* name)
{
    return System::GClassBuilder<T>(name).Build();
}

template <class T>
TField* Make(Classes::TComponent* owner)
{
    return new T(owner);
}

} // namespace

TField* NewField(TFieldType type, Classes::TComponent* owner)
{
    switch (type) {
    case ftString:
        return Make<TStringField>(owner);
    case ftWideString:
        return Make<TWideStringField>(owner);
    case ftInteger:
        return Make<TIntegerField>(owner);
    case ftLargeint:
        return Make<TLargeintField>(owner);
    case ftFloat:
        return Make<TFloatField>(owner);
    case ftBoolean:
        return Make<TBooleanField>(owner);
    case ftDate:
        return Make<TDateField>(owner);
    case ftTime:
        return Make<TTimeField>(owner);
    case ftDateTime:
        return Make<TDateTimeField>(owner);
    case ftBlob:
        return Make<TBlobField>(owner);
    case ftMemo:
        return Make<TMemoField>(owner);
    case ftWideMemo:
        return Make<TWideMemoField>(owner);
    case ftUnknown:
        break;
    }
    return nullptr;
}

System::TMetaClass* TStringField::ClassRecord()
{
    static System::TMetaClass* const record = MakeRecord<TStringField>(u"TStringField");
    return record;
}

System::TMetaClass* TWideStringField::ClassRecord()
{
    static System::TMetaClass* const record = MakeRecord<TWideStringField>(u"TWideStringField");
    return record;
}

System::TMetaClass* TNumericField::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TNumericField>(u"TNumericField")
            .Property(u"DisplayFormat", &TNumericField::getDisplayFormat, &TNumericField::setDisplayFormat)
            .Property(u"EditFormat", &TNumericField::getEditFormat, &TNumericField::setEditFormat)
            .Build();
    return record;
}

System::TMetaClass* TIntegerField::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TIntegerField>(u"TIntegerField")
                                                  .Property(u"MaxValue", &TIntegerField::getMaxValue,
                                                            &TIntegerField::setMaxValue, {.defaultValue = 0})
                                                  .Property(u"MinValue", &TIntegerField::getMinValue,
                                                            &TIntegerField::setMinValue, {.defaultValue = 0})
                                                  .Build();
    return record;
}

System::TMetaClass* TLargeintField::ClassRecord()
{
    static System::TMetaClass* const record = MakeRecord<TLargeintField>(u"TLargeintField");
    return record;
}

System::TMetaClass* TFloatField::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TFloatField>(u"TFloatField")
            .Property(u"Currency", &TFloatField::getCurrency, &TFloatField::setCurrency, {.defaultValue = 0})
            .Property(u"MaxValue", &TFloatField::getMaxValue, &TFloatField::setMaxValue)
            .Property(u"MinValue", &TFloatField::getMinValue, &TFloatField::setMinValue)
            .Property(u"Precision", &TFloatField::getPrecision, &TFloatField::setPrecision,
                      {.defaultValue = 15})
            .Build();
    return record;
}

System::TMetaClass* TBooleanField::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TBooleanField>(u"TBooleanField")
            .Property(u"DisplayValues", &TBooleanField::getDisplayValues, &TBooleanField::setDisplayValues)
            .Build();
    return record;
}

System::TMetaClass* TDateTimeField::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TDateTimeField>(u"TDateTimeField")
            .Property(u"DisplayFormat", &TDateTimeField::getDisplayFormat, &TDateTimeField::setDisplayFormat)
            .Build();
    return record;
}

System::TMetaClass* TDateField::ClassRecord()
{
    static System::TMetaClass* const record = MakeRecord<TDateField>(u"TDateField");
    return record;
}

System::TMetaClass* TTimeField::ClassRecord()
{
    static System::TMetaClass* const record = MakeRecord<TTimeField>(u"TTimeField");
    return record;
}

System::TMetaClass* TBlobField::ClassRecord()
{
    static System::TMetaClass* const record = MakeRecord<TBlobField>(u"TBlobField");
    return record;
}

System::TMetaClass* TMemoField::ClassRecord()
{
    static System::TMetaClass* const record = MakeRecord<TMemoField>(u"TMemoField");
    return record;
}

System::TMetaClass* TWideMemoField::ClassRecord()
{
    static System::TMetaClass* const record = MakeRecord<TWideMemoField>(u"TWideMemoField");
    return record;
}

TStringField::~TStringField() = default;
TWideStringField::~TWideStringField() = default;
TNumericField::~TNumericField() = default;
TIntegerField::~TIntegerField() = default;
TLargeintField::~TLargeintField() = default;
TFloatField::~TFloatField() = default;
TBooleanField::~TBooleanField() = default;
TDateTimeField::~TDateTimeField() = default;
TDateField::~TDateField() = default;
TTimeField::~TTimeField() = default;
TBlobField::~TBlobField() = default;
TMemoField::~TMemoField() = default;
TWideMemoField::~TWideMemoField() = default;

Variant TStringField::ToStored(const Variant& value) const
{
    if (value.IsArray()) {
        RaiseBadValue(value, u"text");
    }
    UnicodeString text = value.As<UnicodeString>();
    if (getSize() > 0 && text.Length() > getSize()) {
        RaiseBadValue(text, (u"text of up to " + UnicodeString(getSize()) + u" characters").c_str());
    }
    return text;
}

int TStringField::GetDefaultWidth() const
{
    return getSize() > 0 ? getSize() : 20;
}

bool TStringField::Accepts(TFieldType type) const
{
    return IsTextType(type);
}

void TNumericField::setDisplayFormat(const UnicodeString& format)
{
    mDisplayFormat = format;
    PropertyChanged(false);
}

void TNumericField::setEditFormat(const UnicodeString& format)
{
    mEditFormat = format;
    PropertyChanged(false);
}

bool TNumericField::IsValidChar(System::WideChar character) const
{
    const bool isDigit = character >= u'0' && character <= u'9';
    return isDigit || character == Sysutils::FormatSettings.DecimalSeparator ||
           UnicodeString(u"+-eE").Pos(character) != 0;
}

UnicodeString TNumericField::GetText(bool displayText) const
{
    const UnicodeString& format = displayText || mEditFormat.IsEmpty() ? mDisplayFormat : mEditFormat;
    const bool isFormatted = !format.IsEmpty() && (displayText || !mEditFormat.IsEmpty());
    return isFormatted ? Sysutils::FormatFloat(format, getAsFloat()) : getAsString();
}

bool TIntegerField::IsValidChar(System::WideChar character) const
{
    return (character >= u'0' && character <= u'9') || character == u'+' || character == u'-';
}

Variant TIntegerField::ToStored(const Variant& value) const
{
    if (IsBlankText(value)) {
        return Variant::Null();
    }
    Int64 number = 0;
    try {
        number = getDataType() == ftInteger ? value.As<int>() : value.As<Int64>();
    } catch (const Sysutils::EVariantError&) {
        RaiseBadValue(value, u"integer");
    }
    const bool hasLimits = mMinValue != 0 || mMaxValue != 0;
    if (hasLimits && (number < mMinValue || number > mMaxValue)) {
        RaiseBadValue(
            value, (u"value from " + UnicodeString(mMinValue) + u" to " + UnicodeString(mMaxValue)).c_str());
    }
    return getDataType() == ftInteger ? Variant(static_cast<int>(number)) : Variant(number);
}

bool TIntegerField::Accepts(TFieldType type) const
{
    return type == ftInteger || type == ftLargeint;
}

void TFloatField::setPrecision(int digits)
{
    mPrecision = std::clamp(digits, 1, 18);
    PropertyChanged(false);
}

void TFloatField::setCurrency(bool isOn)
{
    mCurrency = isOn;
    PropertyChanged(false);
}

Variant TFloatField::ToStored(const Variant& value) const
{
    if (IsBlankText(value)) {
        return Variant::Null();
    }
    double number = 0;
    try {
        number = value.As<double>();
    } catch (const Sysutils::EVariantError&) {
        RaiseBadValue(value, u"number");
    }
    const bool hasLimits = mMinValue != 0 || mMaxValue != 0;
    if (std::isnan(number) || (hasLimits && (number < mMinValue || number > mMaxValue))) {
        RaiseBadValue(value, hasLimits ? u"number within the limits" : u"number");
    }
    return number;
}

UnicodeString TFloatField::GetText(bool displayText) const
{
    const UnicodeString& format = displayText ? getDisplayFormat() : getEditFormat();
    if (!format.IsEmpty() || getValue().IsText()) {
        return TNumericField::GetText(displayText);
    }
    return mCurrency && displayText ? Sysutils::FloatToStrF(getAsFloat(), Sysutils::ffCurrency, mPrecision,
                                                            Sysutils::FormatSettings.CurrencyDecimals)
                                    : Sysutils::FloatToStrF(getAsFloat(), Sysutils::ffGeneral, mPrecision, 0);
}

bool TFloatField::Accepts(TFieldType type) const
{
    return type == ftFloat || type == ftInteger || type == ftLargeint;
}

void TBooleanField::setDisplayValues(const UnicodeString& texts)
{
    mDisplayValues = texts;
    PropertyChanged(true);
}

UnicodeString TBooleanField::DisplayValueOf(bool value) const
{
    const int separator = mDisplayValues.Pos(u';');
    if (separator == 0) {
        return value ? mDisplayValues : UnicodeString();
    }
    return value ? mDisplayValues.SubString(1, separator - 1) : mDisplayValues.SubString(separator + 1);
}

Variant TBooleanField::ToStored(const Variant& value) const
{
    if (IsBlankText(value)) {
        return Variant::Null();
    }
    if (value.IsText()) {
        const UnicodeString text = value.As<UnicodeString>();
        const auto begins = [&](const UnicodeString& whole) {
            return !whole.IsEmpty() && Sysutils::AnsiSameText(whole.SubString(1, text.Length()), text);
        };
        if (begins(DisplayValueOf(true))) {
            return true;
        }
        if (begins(DisplayValueOf(false))) {
            return false;
        }
    }
    try {
        return value.As<bool>();
    } catch (const Sysutils::EVariantError&) {
        RaiseBadValue(value, u"boolean");
    }
}

UnicodeString TBooleanField::GetText(bool) const
{
    return getValue().IsText() ? getAsString() : DisplayValueOf(getAsBoolean());
}

void TDateTimeField::setDisplayFormat(const UnicodeString& format)
{
    mDisplayFormat = format;
    PropertyChanged(false);
}

Variant TDateTimeField::ToStored(const Variant& value) const
{
    if (IsBlankText(value)) {
        return Variant::Null();
    }
    double days = 0;
    try {
        days = value.As<TDateTime>().Val;
    } catch (const Sysutils::EVariantError&) {
        RaiseBadValue(value, u"date and time");
    }
    if (!std::isfinite(days)) {
        RaiseBadValue(value, u"date and time");
    }
    const double day = std::trunc(days);
    return TDateTime(getDataType() == ftDate ? day : getDataType() == ftTime ? std::abs(days - day) : days);
}

UnicodeString TDateTimeField::GetAsString() const
{
    const Variant value = getValue();
    if (value.IsNull() || value.IsText()) {
        return TField::GetAsString();
    }
    return getDataType() == ftDate   ? Sysutils::DateToStr(getAsDateTime())
           : getDataType() == ftTime ? Sysutils::TimeToStr(getAsDateTime())
                                     : Sysutils::DateTimeToStr(getAsDateTime());
}

UnicodeString TDateTimeField::GetText(bool displayText) const
{
    const bool isFormatted = displayText && !mDisplayFormat.IsEmpty() && !getValue().IsText();
    return isFormatted ? Sysutils::FormatDateTime(mDisplayFormat, getAsDateTime()) : getAsString();
}

bool TDateTimeField::Accepts(TFieldType type) const
{
    return type == ftDate || type == ftTime || type == ftDateTime;
}

int TBlobField::getBlobSize() const
{
    return static_cast<int>(BytesOf(getValue()).size());
}

void TBlobField::LoadFromStream(Classes::TStream* stream)
{
    if (stream == nullptr) {
        return Clear();
    }
    std::string bytes;
    char block[16384];
    for (Int64 count = 1; (count = stream->Read(block, sizeof block)) > 0;) {
        bytes.append(block, static_cast<std::size_t>(count));
        if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
            throw EDatabaseError(u"The stream is too long for field \"" + getDisplayName() + u"\".");
        }
    }
    setValue(BytesToVariant(bytes));
}

void TBlobField::SaveToStream(Classes::TStream* stream) const
{
    const std::string bytes = BytesOf(getValue());
    if (stream != nullptr) {
        stream->WriteBuffer(bytes.data(), static_cast<Int64>(bytes.size()));
    }
}

Variant TBlobField::ToStored(const Variant& value) const
{
    const bool isBytes = value.Type() == (System::varArray | System::varByte) && value.ArrayDimCount() == 1;
    if (value.IsArray() && !isBytes) {
        RaiseBadValue(value, u"row of bytes");
    }
    return isBytes ? value : BytesToVariant(BytesOf(value));
}

UnicodeString TBlobField::GetAsString() const
{
    const Variant value = getValue();
    return value.IsArray() ? System::FromUtf8(BytesOf(value)) : TField::GetAsString();
}

UnicodeString TBlobField::GetText(bool displayText) const
{
    if (!displayText) {
        return getAsString();
    }
    return getDataType() == ftBlob ? u"(Blob)" : getDataType() == ftMemo ? u"(Memo)" : u"(WideMemo)";
}

bool TBlobField::Accepts(TFieldType type) const
{
    return type == ftBlob || IsTextType(type);
}

Variant TMemoField::ToStored(const Variant& value) const
{
    return value.IsArray() ? System::FromUtf8(BytesOf(TBlobField::ToStored(value)))
                           : value.As<UnicodeString>();
}

} // namespace Db
