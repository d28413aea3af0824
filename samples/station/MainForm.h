// SPDX-License-Identifier: MIT
#pragma once

#include "ChartView.h"
#include "InstrumentForm.h"
#include "Language.h"
#include "Options.h"
#include "Sampling.h"

#include <TRS8_BTL/forms/BTL_AFC_AAuto_FormCreatorStd.h>
#include <TRS8_BTL/platform/visual/Grids.h>
#include <TRS8_BTL/platform/visual/menus/Menus.h>
#include <TRS8_BTL/platform/visual/stdctrls/panels/Comctrls_ProgressBar.h>

namespace Station
{

/// The window of the station: its channels in a grid, the run as a chart, start and stop.
///
///     Forms::Application->CreateForm(mainForm);                   // TMainForm* mainForm
///     mainForm->Open(options);
///     mainForm->RestoreState();
///     Forms::Application->Run();
class TMainForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TMainForm, Forms::TForm)

public:
    explicit TMainForm(Classes::TComponent* owner = nullptr);

    /// Shows the channels of the settings, and the language that is asked for or was chosen. To be called
    /// once, in front of all else. `XBadSettings` if the settings make no sense.
    void Open(const TOptions& options);
    /// Puts the form where its user left it, as far as the desktop reaches there now.
    void RestoreState();

    /// Begins a run of so many seconds as the form shows; nothing happens during one. `XBadSettings` for a
    /// time or settings that make no sense, `Sysutils::Exception` if a file or the instrument can't be
    /// opened.
    void Start();
    /// Asks for the end of the run, if there is one.
    void Stop();
    /// What a later station asks of this one, by its command line: to be seen, or a run of so many seconds
    /// more. The answer is its exit code; none if a run is just ending.
    std::optional<int> Obey(const System::UnicodeString& commandLine);
    bool IsRunning() const noexcept { return mState == EState::Running; }
    /// How much of the run is done, from 0 to 1.
    double GetProgress() const;

    /// The titles of the grid's columns, comma separated; a text of the design, to be translated.
    const System::UnicodeString& getHeads() const noexcept { return mHeads; }
    void setHeads(const System::UnicodeString& heads);
    /// How wide they are, comma separated, to be kept as a place. What is no width leaves that column.
    System::UnicodeString getWidths() const;
    void setWidths(const System::UnicodeString& widths);
    /// What the states of a run and of a channel are called, comma separated; as the titles.
    const System::UnicodeString& getWords() const noexcept { return mWords; }
    void setWords(const System::UnicodeString& words);

    Grids::TStringGrid* fGrid = nullptr;
    TChartView* fChart = nullptr;
    Stdctrls::TEdit* fEdit_Seconds = nullptr;
    Comctrls::TProgressBar* fProgress = nullptr;
    Stdctrls::TButton* fBtn_Start = nullptr;
    Stdctrls::TButton* fBtn_Stop = nullptr;
    Stdctrls::TLabel* fLbl_State = nullptr;
    Menus::TMenuItem* fItem_Start = nullptr;
    Menus::TMenuItem* fItem_Stop = nullptr;
    Menus::TMenuItem* fItem_English = nullptr;
    Menus::TMenuItem* fItem_German = nullptr;

private:
    /// In the order of the words.
    enum class EState
    {
        Ready,
        Running,
        Done,
        Stopped
    };

    // What the design names.

    void FormClose(System::TObject* sender, Forms::TCloseAction& action);
    void StartClick(System::TObject* sender);
    void StopClick(System::TObject* sender);
    void ExitClick(System::TObject* sender);
    void SettingsClick(System::TObject* sender);
    void LanguageClick(System::TObject* sender);
    void GridDrawCell(System::TObject* sender, int col, int row, Types::TRect rect,
                      Grids::TGridDrawState state);

    TPlan MakePlan() const;
    double ReadSeconds() const;
    /// Behind the last turn, or where the form closes in front of it.
    void Finish(EState state);
    void KeepRun();
    void KeepState();
    void ShowInFront();
    std::optional<int> GoOn(double seconds);
    /// Shows the settings until they are sound or left alone; true if they changed.
    bool EditSettings();
    void ChooseLanguage(const System::UnicodeString& language);

    void ShowState(EState state);
    void ShowHeads();
    void ShowChannels();
    void ShowValues();
    void ShowChannel(int row, const CChannel& channel);
    System::UnicodeString Word(int index) const;
    System::UnicodeString StateWord(const CChannel& channel) const;
    /// The channels of the run, or else those that the next one samples.
    const std::vector<CChannel>& GetChannels() const;

    TOptions mOptions;
    System::UnicodeString mSettingsFile;
    std::unique_ptr<BTL::AIni> mSettings;
    System::UnicodeString mLanguage;
    System::UnicodeString mHeads;
    System::UnicodeString mWords;
    EState mState = EState::Ready;
    /// Before the first run.
    std::vector<CChannel> mChannels;
    std::unique_ptr<CSampling> mSampling;
    TInstrumentForm* mSettingsForm = nullptr;
    BTL::GAuto_FormCreator<TInstrumentForm> mSettingsCreator{mSettingsForm, false, true};
    // Of the form as it was designed.
    std::optional<CDesignTexts> mTexts;
    std::optional<CPlaces> mPlaces;
};

} // namespace Station
