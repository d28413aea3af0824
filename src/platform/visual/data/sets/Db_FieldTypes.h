// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/data/sets/Db_Field.h"

namespace Classes
{
class TStream;
} // namespace Classes

namespace Db
{

/// A new field for columns of a type; it belongs to `owner`, or to the caller for null. Null for a type that
/// has none.
TRS8_BTL_API TField* NewField(TFieldType type, Classes::TComponent* owner);

/// Texts of up to `Size` characters. A longer one is no value for it.
class TRS8_BTL_API TStringField : public TField
{
    TRS8_BTL_CLASS(TStringField, TField)

public:
    explicit TStringField(Classes::TComponent* owner = nullptr) : TStringField(owner, ftString) {}
    ~TStringField() override;

protected:
    TStringField(Classes::TComponent* owner, TFieldType type) : TField(owner, type) {}

    System::Variant ToStored(const System::Variant& value) const override;
    int GetDefaultWidth() const override;
    bool Accepts(TFieldType type) const override;
};

/// As `TStringField`; all texts are wide.
class TRS8_BTL_API TWideStringField : public TStringField
{
    TRS8_BTL_CLASS(TWideStringField, TStringField)

public:
    explicit TWideStringField(Classes::TComponent* owner = nullptr) : TStringField(owner, ftWideString) {}
    ~TWideStringField() override;
};

/// Numbers; the formats are pictures of `Sysutils::FormatFloat`.
class TRS8_BTL_API TNumericField : public TField
{
    TRS8_BTL_CLASS(TNumericField, TField)

public:
    explicit TNumericField(Classes::TComponent* owner = nullptr) : TField(owner) {}
    ~TNumericField() override;

    /// How it is shown; empty, as at first, for all digits that count.
    const System::UnicodeString& getDisplayFormat() const noexcept { return mDisplayFormat; }
    void setDisplayFormat(const System::UnicodeString& format);
    /// How it is edited; empty, as at first, for all digits that count.
    const System::UnicodeString& getEditFormat() const noexcept { return mEditFormat; }
    void setEditFormat(const System::UnicodeString& format);
    bool IsValidChar(System::WideChar character) const override;

protected:
    TNumericField(Classes::TComponent* owner, TFieldType type) : TField(owner, type) {}

    System::UnicodeString GetText(bool displayText) const override;

private:
    System::UnicodeString mDisplayFormat;
    System::UnicodeString mEditFormat;
};

/// Whole numbers of 32 bits, perhaps within limits.
class TRS8_BTL_API TIntegerField : public TNumericField
{
    TRS8_BTL_CLASS(TIntegerField, TNumericField)

public:
    explicit TIntegerField(Classes::TComponent* owner = nullptr) : TIntegerField(owner, ftInteger) {}
    ~TIntegerField() override;

    /// The least and the greatest value that it takes; no limits while both are 0, as at first.
    System::Int64 getMinValue() const noexcept { return mMinValue; }
    void setMinValue(System::Int64 value) noexcept { mMinValue = value; }
    System::Int64 getMaxValue() const noexcept { return mMaxValue; }
    void setMaxValue(System::Int64 value) noexcept { mMaxValue = value; }
    bool IsValidChar(System::WideChar character) const override;

protected:
    TIntegerField(Classes::TComponent* owner, TFieldType type) : TNumericField(owner, type) {}

    System::Variant ToStored(const System::Variant& value) const override;
    bool Accepts(TFieldType type) const override;

private:
    System::Int64 mMinValue = 0;
    System::Int64 mMaxValue = 0;
};

/// As `TIntegerField`, with 64 bits.
class TRS8_BTL_API TLargeintField : public TIntegerField
{
    TRS8_BTL_CLASS(TLargeintField, TIntegerField)

public:
    explicit TLargeintField(Classes::TComponent* owner = nullptr) : TIntegerField(owner, ftLargeint) {}
    ~TLargeintField() override;

protected:
    int GetDefaultWidth() const override { return 15; }
};

/// Numbers as a `double`, perhaps within limits.
class TRS8_BTL_API TFloatField : public TNumericField
{
    TRS8_BTL_CLASS(TFloatField, TNumericField)

public:
    explicit TFloatField(Classes::TComponent* owner = nullptr) : TNumericField(owner, ftFloat) {}
    ~TFloatField() override;

    /// The digits that are shown at most, 15 at first.
    int getPrecision() const noexcept { return mPrecision; }
    void setPrecision(int digits);
    /// Whether it is shown as money; off at first.
    bool getCurrency() const noexcept { return mCurrency; }
    void setCurrency(bool isOn);
    /// The least and the greatest value that it takes; no limits while both are 0, as at first.
    double getMinValue() const noexcept { return mMinValue; }
    void setMinValue(double value) noexcept { mMinValue = value; }
    double getMaxValue() const noexcept { return mMaxValue; }
    void setMaxValue(double value) noexcept { mMaxValue = value; }

protected:
    System::Variant ToStored(const System::Variant& value) const override;
    System::UnicodeString GetText(bool displayText) const override;
    bool Accepts(TFieldType type) const override;

private:
    double mMinValue = 0;
    double mMaxValue = 0;
    int mPrecision = 15;
    bool mCurrency = false;
};

/// Yes and no.
class TRS8_BTL_API TBooleanField : public TField
{
    TRS8_BTL_CLASS(TBooleanField, TField)

public:
    explicit TBooleanField(Classes::TComponent* owner = nullptr) : TField(owner, ftBoolean) {}
    ~TBooleanField() override;

    /// The texts for true and for false with `;` between them; "True;False" at first.
    const System::UnicodeString& getDisplayValues() const noexcept { return mDisplayValues; }
    void setDisplayValues(const System::UnicodeString& texts);

protected:
    /// A text is one of the two, or the begin of one, case aside, or what a variant reads as a boolean.
    System::Variant ToStored(const System::Variant& value) const override;
    System::UnicodeString GetText(bool displayText) const override;
    int GetDefaultWidth() const override { return 5; }

private:
    System::UnicodeString DisplayValueOf(bool value) const;

    System::UnicodeString mDisplayValues = u"True;False";
};

/// Points in time.
class TRS8_BTL_API TDateTimeField : public TField
{
    TRS8_BTL_CLASS(TDateTimeField, TField)

public:
    explicit TDateTimeField(Classes::TComponent* owner = nullptr) : TDateTimeField(owner, ftDateTime) {}
    ~TDateTimeField() override;

    /// A format of `Sysutils::FormatDateTime`; empty, as at first, for the settings' own.
    const System::UnicodeString& getDisplayFormat() const noexcept { return mDisplayFormat; }
    void setDisplayFormat(const System::UnicodeString& format);

protected:
    TDateTimeField(Classes::TComponent* owner, TFieldType type) : TField(owner, type) {}

    System::Variant ToStored(const System::Variant& value) const override;
    System::UnicodeString GetAsString() const override;
    System::UnicodeString GetText(bool displayText) const override;
    int GetDefaultWidth() const override { return 18; }
    bool Accepts(TFieldType type) const override;

private:
    System::UnicodeString mDisplayFormat;
};

/// Days; a time of day is left out.
class TRS8_BTL_API TDateField : public TDateTimeField
{
    TRS8_BTL_CLASS(TDateField, TDateTimeField)

public:
    explicit TDateField(Classes::TComponent* owner = nullptr) : TDateTimeField(owner, ftDate) {}
    ~TDateField() override;

protected:
    int GetDefaultWidth() const override { return 10; }
};

/// Times of day; a day is left out.
class TRS8_BTL_API TTimeField : public TDateTimeField
{
    TRS8_BTL_CLASS(TTimeField, TDateTimeField)

public:
    explicit TTimeField(Classes::TComponent* owner = nullptr) : TDateTimeField(owner, ftTime) {}
    ~TTimeField() override;

protected:
    int GetDefaultWidth() const override { return 10; }
};

/// Bytes of any number.
class TRS8_BTL_API TBlobField : public TField
{
    TRS8_BTL_CLASS(TBlobField, TField)

public:
    explicit TBlobField(Classes::TComponent* owner = nullptr) : TBlobField(owner, ftBlob) {}
    ~TBlobField() override;

    /// The count of bytes.
    int getBlobSize() const;
    /// Takes all that the stream has from its place on.
    void LoadFromStream(Classes::TStream* stream);
    void SaveToStream(Classes::TStream* stream) const;

protected:
    TBlobField(Classes::TComponent* owner, TFieldType type) : TField(owner, type) {}

    System::Variant ToStored(const System::Variant& value) const override;
    /// The bytes as text in UTF-8.
    System::UnicodeString GetAsString() const override;
    /// What stands for it where it is only shown, as in a grid.
    System::UnicodeString GetText(bool displayText) const override;
    bool Accepts(TFieldType type) const override;
};

/// Texts of any length.
class TRS8_BTL_API TMemoField : public TBlobField
{
    TRS8_BTL_CLASS(TMemoField, TBlobField)

public:
    explicit TMemoField(Classes::TComponent* owner = nullptr) : TMemoField(owner, ftMemo) {}
    ~TMemoField() override;

protected:
    TMemoField(Classes::TComponent* owner, TFieldType type) : TBlobField(owner, type) {}

    System::Variant ToStored(const System::Variant& value) const override;
};

/// As `TMemoField`; all texts are wide.
class TRS8_BTL_API TWideMemoField : public TMemoField
{
    TRS8_BTL_CLASS(TWideMemoField, TMemoField)

public:
    explicit TWideMemoField(Classes::TComponent* owner = nullptr) : TMemoField(owner, ftWideMemo) {}
    ~TWideMemoField() override;
};

} // namespace Db
