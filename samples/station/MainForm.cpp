// SPDX-License-Identifier: MIT
#include "MainForm.h"

#include "Settings.h"

#include <TRS8_BTL/environment/BTL_ENV_ApplicationIni.h>
#include <TRS8_BTL/environment/folders/BTL_ENV_Folders.h>
#include <TRS8_BTL/foundation/logs/UTL_LOG_Log.h>
#include <TRS8_BTL/platform/base/dates/Sysutils_Calendar.h>
#include <TRS8_BTL/platform/base/numbers/Sysutils_Integer.h>
#include <TRS8_BTL/platform/runtime/classes/Classes_StringList.h>
#include <TRS8_BTL/platform/runtime/typinfo/System_ClassBuilder.h>
#include <TRS8_BTL/platform/toolkit/Dialogs.h>
#include <TRS8_BTL/platform/visual/controls/Controls_Handle.h>
#include <TRS8_BTL/platform/visual/forms/Forms_Foreground.h>
#include <TRS8_BTL/platform/visual/graphics/Graphics.h>
#include <TRS8_BTL/text/numbers/BTL_NUM_Floats.h>
#include <TRS8_BTL/text/numbers/BTL_NUM_Limits.h>

#include <algorithm>
#include <utility>

namespace Station
{

namespace
{

using System::UnicodeString;

/// The columns of the grid.
enum EColumn : int
{
    ecName,
    ecValue,
    ecUnit,
    ecLowest,
    ecHighest,
    ecLimits,
    ecState
};

// Behind the words of the run's states, those of a channel.
constexpr int OkWord = 4;
constexpr int OutWord = 5;
constexpr int NoValueWord = 6;

constexpr Graphics::TColor GoodColor = RGB(223, 240, 216);
constexpr Graphics::TColor BadColor = RGB(248, 205, 205);

UnicodeString Part(const UnicodeString& commaText, int index)
{
    Classes::TStringList parts;
    parts.setStrictDelimiter(true);
    parts.setDelimitedText(commaText);
    return index < parts.getCount() ? parts.getStrings(index) : UnicodeString();
}

UnicodeString ValueText(double value)
{
    return BTL::MeasureFloatToStrW(value, -1, 2);
}

/// Of a column that the user made wider; one beyond that is a damaged file.
constexpr int MostWidth = 10'000;

bool IsNumber(int col)
{
    return col == ecValue || col == ecLowest || col == ecHighest;
}

} // namespace

System::TMetaClass* TMainForm::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TMainForm>(u"TMainForm")
            .Property(u"Heads", &TMainForm::getHeads, &TMainForm::setHeads)
            .Property(u"Widths", &TMainForm::getWidths, &TMainForm::setWidths)
            .Property(u"Words", &TMainForm::getWords, &TMainForm::setWords)
            .Field(u"fGrid", &TMainForm::fGrid)
            .Field(u"fChart", &TMainForm::fChart)
            .Field(u"fEdit_Seconds", &TMainForm::fEdit_Seconds)
            .Field(u"fProgress", &TMainForm::fProgress)
            .Field(u"fBtn_Start", &TMainForm::fBtn_Start)
            .Field(u"fBtn_Stop", &TMainForm::fBtn_Stop)
            .Field(u"fLbl_State", &TMainForm::fLbl_State)
            .Field(u"fItem_Start", &TMainForm::fItem_Start)
            .Field(u"fItem_Stop", &TMainForm::fItem_Stop)
            .Field(u"fItem_English", &TMainForm::fItem_English)
            .Field(u"fItem_German", &TMainForm::fItem_German)
            .Method(u"FormClose", &TMainForm::FormClose)
            .Method(u"StartClick", &TMainForm::StartClick)
            .Method(u"StopClick", &TMainForm::StopClick)
            .Method(u"ExitClick", &TMainForm::ExitClick)
            .Method(u"SettingsClick", &TMainForm::SettingsClick)
            .Method(u"LanguageClick", &TMainForm::LanguageClick)
            .Method(u"GridDrawCell", &TMainForm::GridDrawCell)
            .Build();
    return record;
}

TMainForm::TMainForm(Classes::TComponent* owner) : TForm(owner)
{
    ReadDesign();
    mTexts.emplace(this);
    mPlaces.emplace(this);
}

void TMainForm::Open(const TOptions& options)
{
    mOptions = options;
    mSettingsFile = SettingsFile(options);
    mSettings = OpenSettings(options.store, mSettingsFile);
    mChannels = MakePlan().channels;
    fEdit_Seconds->setText(UnicodeString(options.seconds.value_or(DefaultSeconds)));
    ChooseLanguage(options.language.IsEmpty() ? LoadLanguage(*mSettings) : options.language);
}

// The run.

double TMainForm::ReadSeconds() const
{
    return ReadRunSeconds(fEdit_Seconds->getText());
}

TPlan TMainForm::MakePlan() const
{
    const std::optional<int> port = mOptions.serial ? mOptions.serial : LoadPort(*mSettings);
    auto serial = port ? std::make_unique<CSerialReader>(*port) : nullptr;
    const auto maker = serial ? serial->GetSourceMaker() : TSourceMaker();
    auto channels = mOptions.channels ? LoadChannels(*mOptions.channels, HostSources(), maker)
                                      : LoadChannels(*mSettings, HostSources(), maker);
    return {std::move(channels), std::move(serial),     LoadInterval(*mSettings),
            DefaultSeconds,      SamplesFile(mOptions), BTL::CApplicationIni::Get()->Title};
}

void TMainForm::Start()
{
    if (IsRunning()) {
        return;
    }
    TPlan plan = MakePlan();
    plan.seconds = ReadSeconds();
    fChart->setChart(nullptr);
    // The file of the former run may be the one of this.
    mSampling.reset();
    mSampling = std::make_unique<CSampling>(
        std::move(plan), [this] { ShowValues(); },
        [this] { Finish(mSampling->IsStopped() ? EState::Stopped : EState::Done); });
    fChart->setSeconds(mSampling->getSeconds());
    fChart->setChart(&mSampling->getChart());
    ShowChannels();
    ShowState(EState::Running);
    mSampling->Start();
}

void TMainForm::Stop()
{
    if (IsRunning()) {
        mSampling->Stop();
    }
}

double TMainForm::GetProgress() const
{
    return mSampling ? std::min(mSampling->getPassed() / mSampling->getSeconds(), 1.0) : 0;
}

void TMainForm::Finish(EState state)
{
    ShowState(state);
    if (state == EState::Done) {
        fProgress->setPosition(fProgress->getMax());
    }
    Forms::Application->RunHandled([this] { KeepRun(); });
}

void TMainForm::KeepRun()
{
    SaveChart(mSampling->getChart(), BTL::GetRootPath() + u"Charts\\", mSampling->getStart());
    SaveSettings(*mSettings, mSettingsFile, Sysutils::Now());
}

// Later stations.

std::optional<int> TMainForm::Obey(const UnicodeString& commandLine)
{
    const UnicodeString asked =
        u"A station in " + BTL::CStartOnce::GetSenderFolder() + u" asks: " + commandLine;
    BTL::Log(asked);
    try {
        const TOptions options = ReadHandedOver(commandLine, EStationKind::Window);
        if (!options.window) {
            return GoOn(options.seconds.value_or(DefaultSeconds));
        }
        ShowInFront();
        return Done;
    } catch (const BTL::XCommandLine& fault) {
        BTL::Log(fault.getMessage());
        return BadInput;
    } catch (const Sysutils::Exception& fault) {
        BTL::Log(fault.getMessage());
        return Failed;
    }
}

void TMainForm::ShowInFront()
{
    if (getWindowState() == Forms::wsMinimized) {
        setWindowState(Forms::wsNormal);
    }
    SetForegroundWindow(Controls::GetHandle(*this));
}

std::optional<int> TMainForm::GoOn(double seconds)
{
    if (!IsRunning()) {
        fEdit_Seconds->setText(UnicodeString(seconds));
        Start();
        return Done;
    }
    if (!mSampling->PutOff(seconds)) {
        return std::nullopt;
    }
    fChart->setSeconds(mSampling->getSeconds());
    return Done;
}

// What the design names.

void TMainForm::FormClose(System::TObject*, Forms::TCloseAction&)
{
    Forms::Application->RunHandled([this] { KeepState(); });
    if (IsRunning()) {
        Finish(EState::Stopped);
    }
    fChart->setChart(nullptr);
    mSampling.reset();
}

void TMainForm::KeepState()
{
    mPlaces->Keep();
    StoreLanguage(*mSettings, mLanguage);
    mSettings->Save();
}

void TMainForm::StartClick(System::TObject*)
{
    Start();
}

void TMainForm::StopClick(System::TObject*)
{
    Stop();
}

void TMainForm::ExitClick(System::TObject*)
{
    Close();
}

void TMainForm::SettingsClick(System::TObject*)
{
    if (EditSettings() && !IsRunning()) {
        fChart->setChart(nullptr);
        mSampling.reset();
        mChannels = MakePlan().channels;
        ShowChannels();
        ShowState(EState::Ready);
    }
}

bool TMainForm::EditSettings()
{
    mSettingsCreator.CreateForm();
    CPlaces places(mSettingsForm);
    Translate(*mSettingsForm, mLanguage);
    places.ReadAndApply();
    mSettingsForm->Load(*mSettings);
    bool isChanged = false;
    while (!isChanged && mSettingsCreator.ShowModal(nullptr) == mrOk) {
        // What makes no sense is told, and stays to be put right.
        Forms::Application->RunHandled([&] {
            mSettingsForm->Store(*mSettings);
            mSettings->Save();
            isChanged = true;
        });
    }
    if (mSettingsForm != nullptr) {
        places.Keep();
    }
    mSettingsCreator.Free();
    return isChanged;
}

void TMainForm::LanguageClick(System::TObject* sender)
{
    ChooseLanguage(sender == fItem_German ? u"German" : u"English");
    // Whatever ends the program later.
    KeepState();
}

void TMainForm::ChooseLanguage(const UnicodeString& language)
{
    mLanguage = language;
    UseLanguage(language);
    mTexts->Apply();
    Translate(*this, language);
    (language == u"German" ? fItem_German : fItem_English)->setChecked(true);
    ShowChannels();
    ShowState(mState);
}

// What is shown.

void TMainForm::RestoreState()
{
    mPlaces->ReadAndApply();
    MakeFullyVisible();
}

UnicodeString TMainForm::getWidths() const
{
    UnicodeString widths;
    for (int col = 0; fGrid != nullptr && col < fGrid->getColCount(); ++col) {
        widths += (col > 0 ? u"," : u"") + UnicodeString(fGrid->getColWidths(col));
    }
    return widths;
}

void TMainForm::setWidths(const UnicodeString& widths)
{
    for (int col = 0; fGrid != nullptr && col < fGrid->getColCount(); ++col) {
        int width = 0;
        if (Sysutils::TryStrToInt(Part(widths, col), width) && width > 0 && width <= MostWidth) {
            fGrid->setColWidths(col, width);
        }
    }
}

void TMainForm::setHeads(const UnicodeString& heads)
{
    mHeads = heads;
}

void TMainForm::setWords(const UnicodeString& words)
{
    mWords = words;
}

UnicodeString TMainForm::Word(int index) const
{
    return Part(mWords, index);
}

void TMainForm::ShowState(EState state)
{
    mState = state;
    UnicodeString text = Word(static_cast<int>(state));
    const UnicodeString fault = mSampling && !IsRunning() ? mSampling->GetFault() : UnicodeString();
    fLbl_State->setCaption(fault.IsEmpty() ? text : text + u": " + fault);
    fBtn_Start->setEnabled(!IsRunning());
    fItem_Start->setEnabled(!IsRunning());
    fBtn_Stop->setEnabled(IsRunning());
    fItem_Stop->setEnabled(IsRunning());
    fProgress->setPosition(static_cast<int>(GetProgress() * fProgress->getMax()));
}

void TMainForm::ShowHeads()
{
    for (int col = 0; col < fGrid->getColCount(); ++col) {
        fGrid->setCells(col, 0, Part(mHeads, col));
    }
}

const std::vector<CChannel>& TMainForm::GetChannels() const
{
    return mSampling ? mSampling->getChannels() : mChannels;
}

void TMainForm::ShowChannels()
{
    fGrid->setRowCount(std::max(static_cast<int>(GetChannels().size()), 1) + 1);
    ShowHeads();
    int row = 0;
    for (const CChannel& channel : GetChannels()) {
        ShowChannel(++row, channel);
    }
}

void TMainForm::ShowValues()
{
    ShowChannels();
    fProgress->setPosition(static_cast<int>(GetProgress() * fProgress->getMax()));
    fChart->Invalidate();
}

void TMainForm::ShowChannel(int row, const CChannel& channel)
{
    const UTL::CDoubleVector& samples = channel.getSamples();
    const bool isEmpty = samples.empty();
    fGrid->setCells(ecName, row, channel.getName());
    fGrid->setCells(ecUnit, row, channel.getUnit());
    fGrid->setCells(ecLimits, row, channel.getLimitText());
    fGrid->setCells(ecValue, row, isEmpty ? UnicodeString() : ValueText(samples.at(samples.size() - 1)));
    fGrid->setCells(ecLowest, row, isEmpty ? UnicodeString() : ValueText(samples.GetMinValue()));
    fGrid->setCells(ecHighest, row, isEmpty ? UnicodeString() : ValueText(samples.GetMaxValue()));
    fGrid->setCells(ecState, row, StateWord(channel));
}

UnicodeString TMainForm::StateWord(const CChannel& channel) const
{
    if (channel.getSamples().empty()) {
        return channel.getMissCount() > 0 ? Word(NoValueWord) : UnicodeString();
    }
    return Word(channel.IsWithinLimits() ? OkWord : OutWord);
}

void TMainForm::GridDrawCell(System::TObject*, int col, int row, Types::TRect rect, Grids::TGridDrawState)
{
    constexpr int margin = 6;
    Graphics::TCanvas& canvas = *fGrid->getCanvas();
    const auto index = static_cast<std::size_t>(row) - 1;
    const bool isColored = (col == ecValue || col == ecState) && row > 0 && index < GetChannels().size() &&
                           !GetChannels()[index].getSamples().empty();
    if (row == 0) {
        // Over the text as the grid draws it by itself, closer to the edge.
        canvas.getBrush()->setStyle(Graphics::bsSolid);
        canvas.getBrush()->setColor(fGrid->getFixedColor());
    }
    if (isColored) {
        canvas.getBrush()->setColor(GetChannels()[index].IsWithinLimits() ? GoodColor : BadColor);
        canvas.getFont()->setColor(Graphics::clBlack);
    }
    const UnicodeString text = fGrid->getCells(col, row);
    const int left = IsNumber(col) ? rect.Right - canvas.TextWidth(text) - margin : rect.Left + margin;
    canvas.TextRect(rect, left, rect.Top + (rect.Height() - canvas.TextHeight(text)) / 2, text);
}

} // namespace Station
