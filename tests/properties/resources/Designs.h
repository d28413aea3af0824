// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/visual/Forms.h"
#include "platform/visual/Stdctrls.h"
#include "platform/visual/stdctrls/Extctrls_Timer.h"
#include "support/RegisteredDesign.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

// Classes with designs, which count what of them runs.

namespace Designs
{

enum EShape
{
    shRound,
    shFlat,
    shTall,
    /// Has no name in the description.
    shNameless
};

using TShapes = System::Set<EShape, shRound, shTall>;

/// A part of a form.
class TLimits : public Classes::TPersistent
{
    TRS8_BTL_CLASS(TLimits, Classes::TPersistent)

public:
    void Assign(Classes::TPersistent* source) override;

    int Low = 0;
    int High = 100;
};

/// An item of the rows of a form.
class TRow : public Classes::TCollectionItem
{
    TRS8_BTL_CLASS(TRow, Classes::TCollectionItem)

public:
    System::UnicodeString Title;
};

/// A collection that can't be made without arguments.
class TRows : public Classes::TOwnedCollection
{
    TRS8_BTL_CLASS(TRows, Classes::TOwnedCollection)

public:
    explicit TRows(Classes::TPersistent* owner) : TOwnedCollection(owner, System::ClassOf<TRow>()) {}
};

/// A form with a published property of each kind.
class TBenchForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TBenchForm, Forms::TForm)

public:
    explicit TBenchForm(Classes::TComponent* owner = nullptr);
    ~TBenchForm() override;

    void StartButtonClick(System::TObject*) { ++Calls; }
    void Alarm(System::TObject*) { ++Calls; }
    Classes::TStrings* getLines() const { return mLines.get(); }
    TLimits* getLimits() const { return mLimits.get(); }
    TRows* getRows() const { return mRows.get(); }
    /// Refuses what is negative.
    int getLevel() const { return mLevel; }
    void setLevel(int level);

    double Ratio = 0;
    System::UnicodeString Title;
    System::Variant Extra;
    EShape Shape = shFlat;
    TShapes Shapes;
    Stdctrls::TEdit* Target = nullptr;
    Classes::TNotifyEvent OnAlarm;
    Stdctrls::TButton* StartButton = nullptr;

    /// How often constructors, destructors and methods of this class and those derived from it ran.
    static int Calls;

private:
    std::unique_ptr<Classes::TStringList> mLines = std::make_unique<Classes::TStringList>();
    std::unique_ptr<TLimits> mLimits = std::make_unique<TLimits>();
    std::unique_ptr<TRows> mRows = std::make_unique<TRows>(this);
    int mLevel = 3;
};

/// Derived in a second step; larger, and with a property of its own.
class TFineForm : public TBenchForm
{
    TRS8_BTL_CLASS(TFineForm, TBenchForm)

public:
    explicit TFineForm(Classes::TComponent* owner = nullptr);
    ~TFineForm() override;

    void FineClick(System::TObject*) { ++Calls; }

    int Digits = 2;
    char Filling[1000] = {};
};

/// A frame with a timer and an edit.
class TLampFrame : public Forms::TFrame
{
    TRS8_BTL_CLASS(TLampFrame, Forms::TFrame)

public:
    explicit TLampFrame(Classes::TComponent* owner = nullptr) : TFrame(owner) { ReadDesign(); }
};

class TStoreModule : public Classes::TDataModule
{
    TRS8_BTL_CLASS(TStoreModule, Classes::TDataModule)

public:
    explicit TStoreModule(Classes::TComponent* owner = nullptr) : TDataModule(owner) { ReadDesign(); }

    int Depth = 5;
};

/// The designs of the classes, and boxes that a script answers.
class DesignTest : public testing::Test
{
protected:
    DesignTest();
    ~DesignTest() override;

    Support::ScriptedBoxes mToolkit;
    Support::CRegisteredDesign mBench;
    Support::CRegisteredDesign mFine;
    Support::CRegisteredDesign mLamp;
    Support::CRegisteredDesign mStore;
};

} // namespace Designs

template <>
struct Typinfo::GEnumType<Designs::EShape>
{
    static TTypeInfo Make() { return EnumType(u"EShape", {u"shRound", u"shFlat", u"shTall"}); }
};
