// SPDX-License-Identifier: MIT
// Uses the station's window as its user does, by the keyboard alone, and tells what isn't as it should be.
#include "MainForm.h"

#include <TRS8_BTL/platform/base/Sysutils_Exception.h>
#include <TRS8_BTL/platform/toolkit/headless/HeadlessToolkit.h>
#include <TRS8_BTL/testing/FormDriver.h>

#include <chrono>
#include <functional>
#include <iostream>
#include <memory>
#include <string>

namespace
{

using namespace Station;
using System::UnicodeString;
using Testing::CFormDriver;

int faultCount = 0;

template <class Actual, class Expected>
void Expect(const char* what, const Actual& actual, const Expected& expected)
{
    if (!(actual == expected)) {
        std::cout << what << ": " << actual << ", not " << expected << '\n';
        ++faultCount;
    }
}

void Await(const char* what, const std::function<bool()>& isDone)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!isDone()) {
        if (std::chrono::steady_clock::now() > end) {
            throw Sysutils::Exception(UnicodeString(what) + u" doesn't come");
        }
        Forms::Application->ProcessMessages();
    }
}

std::unique_ptr<TMainForm> OpenWindow(const TOptions& options)
{
    auto form = std::make_unique<TMainForm>();
    form->Open(options);
    form->RestoreState();
    form->Show();
    return form;
}

/// Types a time in place of what stands there, led by the label's key.
void TypeSeconds(CFormDriver& driver, const UnicodeString& seconds)
{
    driver.Focus(u"fGrid");
    driver.Press('R', {Classes::ssAlt});
    Expect("the label's key", driver.Focused(), UnicodeString(u"fEdit_Seconds"));
    driver.Type(seconds);
}

/// The Tab key leads through all that can be used.
void CheckTabOrder(TMainForm& form)
{
    CFormDriver driver(form);
    driver.Focus(u"fGrid");
    for (const auto name : {u"fEdit_Seconds", u"fBtn_Start", u"fGrid"}) {
        driver.Press(VK_TAB);
        Expect("tab order", driver.Focused(), UnicodeString(name));
    }
}

/// A run to its end, by the default button.
void CheckRun(TMainForm& form)
{
    CFormDriver driver(form);
    TypeSeconds(driver, u"0,6");
    driver.Press(VK_RETURN);
    Expect("the default button starts", form.IsRunning(), true);
    Expect("start during a run", form.fBtn_Start->getEnabled(), false);
    Await("a value", [&] { return !form.fGrid->getCells(1, 1).IsEmpty(); });
    Await("the end", [&] { return !form.IsRunning(); });
    Expect("state", form.fLbl_State->getCaption(), UnicodeString(u"Done"));
    Expect("progress", form.fProgress->getPosition(), form.fProgress->getMax());
    Expect("channel", form.fGrid->getCells(0, 1), UnicodeString(u"memory.total"));
    Expect("within limits", form.fGrid->getCells(6, 1), UnicodeString(u"out of limits"));
    Expect("without limits", form.fGrid->getCells(6, 2), UnicodeString(u"ok"));
}

/// A run that its user stops.
void CheckStop(TMainForm& form)
{
    CFormDriver driver(form);
    TypeSeconds(driver, u"600");
    driver.Press(VK_F5);
    Await("a value", [&] { return !form.fGrid->getCells(1, 1).IsEmpty(); });
    driver.Press(VK_ESCAPE);
    Await("the end", [&] { return !form.IsRunning(); });
    Expect("state", form.fLbl_State->getCaption(), UnicodeString(u"Stopped"));
}

/// A time that is none is told, and nothing runs.
void CheckBadTime(TMainForm& form)
{
    std::string told;
    Forms::Application->OnException = [&](System::TObject*, const std::exception& fault) {
        told = System::ToUtf8(Sysutils::MessageOf(fault));
    };
    CFormDriver driver(form);
    TypeSeconds(driver, u"soon");
    driver.Press(VK_RETURN);
    Expect("a bad time", told, "'soon' is not a time above 0 and up to a day");
    Expect("runs at a bad time", form.IsRunning(), false);
    Forms::Application->OnException = nullptr;
}

/// The second form: its fields are those of the settings, and what is changed there counts.
void CheckSettings(TMainForm& form)
{
    auto& toolkit = dynamic_cast<Toolkits::HeadlessToolkit&>(Toolkits::CurrentToolkit());
    toolkit.AnswerForm([](Toolkits::ModalWindow&) {
        CFormDriver settings(*Forms::Screen->getActiveCustomForm());
        Expect("form", Forms::Screen->getActiveCustomForm()->getName(), UnicodeString(u"InstrumentForm"));
        settings.Press('I', {Classes::ssAlt});
        settings.Type(u"0.125");
        settings.Press(VK_RETURN);
    });
    CFormDriver(form).Press(VK_F2);
}

/// What later stations ask for: a run, more of it, the window; nothing else.
void CheckLaterStations(TMainForm& form)
{
    Expect("a run for a later one", form.Obey(u"station --seconds 600").value_or(-1), int{Done});
    Expect("runs for a later one", form.IsRunning(), true);
    Await("a value", [&] { return form.GetProgress() > 0; });
    const double progress = form.GetProgress();
    Expect("more of the run", form.Obey(u"station --seconds 60000").value_or(-1), int{Done});
    Expect("less of it is done", form.GetProgress() < progress, true);
    Expect("no less of the run", form.Obey(u"station --seconds 1").value_or(-1), int{Done});
    Expect("the window", form.Obey(u"station --window").value_or(-1), int{Done});
    Expect("another output", form.Obey(u"station --sql").value_or(-1), int{BadInput});
    Expect("a picture", form.Obey(u"station --window --screenshot a.png").value_or(-1), int{BadInput});
    Expect("runs on", form.IsRunning(), true);
    form.Stop();
    Await("the end", [&] { return !form.IsRunning(); });
}

/// Closing ends a run that is under way.
void CheckClose(TMainForm& form)
{
    CFormDriver(form).Press(VK_F5);
    Await("a value", [&] { return form.GetProgress() > 0; });
    form.Close();
    Expect("runs behind its window", form.IsRunning(), false);
}

void CheckLanguage(TMainForm& form, const UnicodeString& item, const UnicodeString& caption,
                   const UnicodeString& head)
{
    CFormDriver(form).ChooseMenu(item);
    Expect("caption", form.getCaption(), caption);
    Expect("head", form.fGrid->getCells(0, 0), head);
}

void Use(const TOptions& options)
{
    {
        const auto form = OpenWindow(options);
        Expect("hints are shown", form->fEdit_Seconds->getShowHint(), true);
        CheckTabOrder(*form);
        CheckBadTime(*form);
        CheckRun(*form);
        CheckStop(*form);
        CheckLaterStations(*form);
        CheckSettings(*form);
        CheckLanguage(*form, u"Options|Language|Deutsch", u"Messstation", u"Kanal");
        CheckLanguage(*form, u"Optionen|Sprache|English", u"Measuring station", u"Channel");
        CheckLanguage(*form, u"Options|Language|Deutsch", u"Messstation", u"Kanal");
        // Kept already, whatever ends the program.
        Expect("kept language", LoadLanguage(*OpenSettings(options.store, SettingsFile(options))),
               UnicodeString(u"German"));
        form->SetBounds(20, 30, 900, 640);
        form->fGrid->setColWidths(1, 123);
        CFormDriver(*form).ChooseMenu(u"Messen|Beenden");
        Expect("interval", LoadInterval(*OpenSettings(options.store, SettingsFile(options))), 0.125);
        Expect("closed", form->getVisible(), false);
    }
    const auto form = OpenWindow(options);
    Expect("left", form->getLeft(), 20);
    Expect("width", form->getWidth(), 900);
    Expect("widths", form->getWidths(), UnicodeString(u"160,123,50,90,90,150,125"));
    form->setWidths(u"0,x,-5,99999999999,100001,7");
    Expect("widths of a damaged file", form->getWidths(), UnicodeString(u"160,123,50,90,90,7,125"));
    form->setWidths(u"160,123,50,90,90,150,125");
    Expect("language", form->getCaption(), UnicodeString(u"Messstation"));
    std::cout << CFormDriver(*form).Print();
    CheckClose(*form);
}

} // namespace

int main(int argc, char* argv[])
{
    try {
        Use(ReadOptions(argc, argv));
    } catch (const std::exception& fault) {
        std::cout << System::ToUtf8(Sysutils::MessageOf(fault)) << '\n';
        ++faultCount;
    }
    return faultCount == 0 ? 0 : 1;
}
