// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/base/System_SharedBlock.h"
#include "platform/base/System_String.h"
#include "platform/toolkit/Input.h"

namespace Classes
{
class TComponentWatch;
} // namespace Classes

namespace System
{
class TObject;
} // namespace System

namespace BTL
{

class ATextVerifier;

/// Binds the test of a text to an edit: what the test refuses is taken back, caret and selection with it. An
/// edit's events call the validator, which may serve several edits in turn.
///
///     edit->OnKeyDown = [](TObject* sender, Word& key, TShiftState shift) {
///         BTL::CNumberTextValidator::StdValidator.KeyDown(sender, key, shift);
///     };
///     edit->OnChange = [](TObject* sender) { BTL::CNumberTextValidator::StdValidator.Change(sender); };
///     edit->OnExit = [](TObject* sender) { BTL::CNumberTextValidator::StdValidator.Exit(sender); };
class TRS8_BTL_API ATextValidator
{
public:
    ATextValidator();
    ATextValidator(const ATextValidator&) = delete;
    ATextValidator& operator=(const ATextValidator&) = delete;

    /// The edit is left: tidies the text.
    virtual void Exit(System::TObject* sender);
    /// Whether the text is acceptable while it is typed.
    virtual bool Validate(const System::UnicodeString& text);
    /// Corrects a refused text; false if the former one is to come back.
    virtual bool GetValidText(System::UnicodeString& text);
    virtual ~ATextValidator();

    /// A key goes down in the edit: remembers its text and selection.
    void KeyDown(System::TObject* sender, System::Word& key, Classes::TShiftState shift);
    /// The text of the edit changed. A refused one gives way to the corrected or the remembered one, or to
    /// the empty one if none is remembered or that was no better.
    void Change(System::TObject* sender);

    /// Binds the validator; nothing is remembered of another object.
    void SetObject(System::TObject* sender);
    void SetOldText();
    /// The text of the edit; empty for any other object.
    System::UnicodeString GetObjectText() const;
    /// Nothing for an object that is no edit.
    void SetObjectText(const System::UnicodeString& text);
    void DoObjectUndo();
    void DoExit(System::TObject* sender, ATextVerifier& verifier);

private:
    struct TActivity;

    System::TObject* mObject = nullptr;
    bool mIsOldTextValid = true;
    int mSelStart = 0;
    int mSelLength = 0;
    System::UnicodeString mOldText;
    /// Apart, since what hears of a text may destroy the validator.
    System::GSharedBlock<TActivity> mActivity;
    /// Whether the object is still the one that it was; another one may come to its address.
    System::GOwner<Classes::TComponentWatch> mWatch;
};

/// Tests by any verifier.
class TRS8_BTL_API CTextValidator : public ATextValidator
{
public:
    /// Takes the verifier over; with null, each text is refused.
    explicit CTextValidator(ATextVerifier* verifier);
    ~CTextValidator() override;

    void Exit(System::TObject* sender) override;
    bool Validate(const System::UnicodeString& text) override;

private:
    System::GOwner<ATextVerifier> mVerifier;
};

/// Of whole numbers, as `CNumberTextVerifier`.
class TRS8_BTL_API CNumberTextValidator : public ATextValidator
{
public:
    /// Equal limits are none. They count when the edit is left.
    CNumberTextValidator(double min, double max) noexcept : mMin(min), mMax(max) {}
    ~CNumberTextValidator() override;

    /// As `CFloatTextVerifier` with the limits.
    void Exit(System::TObject* sender) override;
    bool Validate(const System::UnicodeString& text) override;

    double getMin() const noexcept { return mMin; }
    void setMin(double min) noexcept { mMin = min; }
    double getMax() const noexcept { return mMax; }
    void setMax(double max) noexcept { mMax = max; }
    /// Whether an empty text is tested, and so refused, rather than accepted; on at first.
    bool getTestsEmpty() const noexcept { return mTestsEmpty; }
    void setTestsEmpty(bool isOn) noexcept { mTestsEmpty = isOn; }

    /// The one without limits, for all edits.
    static CNumberTextValidator& StdValidator;

protected:
    /// Whether `verifier` accepts the text, or that needs no test.
    bool Test(ATextVerifier&& verifier, const System::UnicodeString& text) const;

private:
    bool mTestsEmpty = true;
    double mMin;
    double mMax;
};

/// Of numbers, as `CFloatTextVerifier`.
class TRS8_BTL_API CFloatTextValidator : public CNumberTextValidator
{
public:
    using CNumberTextValidator::CNumberTextValidator;
    ~CFloatTextValidator() override;

    bool Validate(const System::UnicodeString& text) override;
};

/// Of numbers with a unit, as `CUnitTextVerifier`.
class TRS8_BTL_API CUnitTextValidator : public CFloatTextValidator
{
public:
    /// Without limits.
    explicit CUnitTextValidator(const System::UnicodeString& unit) : CFloatTextValidator(0, 0), mUnit(unit) {}
    ~CUnitTextValidator() override;

    bool Validate(const System::UnicodeString& text) override;

private:
    System::UnicodeString mUnit;
};

/// Of amounts of money, as `CCurrencyTextVerifier`.
class TRS8_BTL_API CCurrencyTextValidator : public CUnitTextValidator
{
public:
    CCurrencyTextValidator() : CUnitTextValidator(System::UnicodeString()) {}
    ~CCurrencyTextValidator() override;

    bool Validate(const System::UnicodeString& text) override;
};

/// Of times, as `CTimeTextVerifier`.
class TRS8_BTL_API CTimeTextValidator : public ATextValidator
{
public:
    ~CTimeTextValidator() override;

    bool Validate(const System::UnicodeString& text) override;
};

/// Of dates, as `CDateTextVerifier`.
class TRS8_BTL_API CDateTextValidator : public CTimeTextValidator
{
public:
    ~CDateTextValidator() override;

    void Exit(System::TObject* sender) override;
    bool Validate(const System::UnicodeString& text) override;
};

} // namespace BTL
