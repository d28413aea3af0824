// SPDX-License-Identifier: MIT
#include "WindowRun.h"

#include "MainForm.h"

#include <TRS8_BTL/platform/base/Sysutils_Exception.h>
#include <TRS8_BTL/platform/host/Host_Path.h>
#include <TRS8_BTL/platform/runtime/sysutils/Sysutils_File.h>
#include <TRS8_BTL/platform/runtime/sysutils/Sysutils_FileName.h>
#include <TRS8_BTL/platform/runtime/sysutils/Sysutils_Text.h>
#include <TRS8_BTL/platform/toolkit/Window.h>
#include <TRS8_BTL/platform/visual/graphics/Pngimage.h>

#include <cstdlib>
#include <iostream>
#include <utility>

namespace Station
{

namespace
{

/// How much of the run a picture shows.
constexpr double PictureProgress = 0.8;

/// Has windows painted without a display, whatever the session has.
void PaintWithoutDisplay()
{
    setenv("TRS8_BTL_TOOLKIT", "qt", 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
}

/// In front of a run, which would be for nothing.
void CheckPictureFile(const System::UnicodeString& file)
{
    const System::UnicodeString option =
        u"--screenshot: '" + System::FromUtf8(Sysutils::HostPath(file)) + u"' ";
    if (!Sysutils::SameText(Sysutils::ExtractFileExt(file), u".png")) {
        throw XBadSettings(option + u"is no .png file, and there are no other pictures");
    }
    if (!Sysutils::DirectoryExists(Sysutils::ExtractFileDir(Sysutils::ExpandFileName(file)))) {
        throw XBadSettings(option + u"can't be written, since there is no such folder");
    }
}

/// Whether the form has a window that somebody can see, or that can be painted at least.
bool HasWindow(Forms::TForm& form)
{
    form.HandleNeeded();
    return form.GetWindow()->NativeObject() != nullptr;
}

void SavePicture(TMainForm& form, const System::UnicodeString& file)
{
    form.Show();
    form.Start();
    while (form.IsRunning() && form.GetProgress() < PictureProgress) {
        Forms::Application->HandleMessage();
    }
    Toolkits::Pixels pixels;
    if (!form.GetWindow()->Grab(pixels)) {
        throw Sysutils::Exception(u"the window can't be painted into a picture");
    }
    Pngimage::TPngImage picture;
    picture.TakePixels(std::move(pixels));
    picture.SaveToFile(file);
}

} // namespace

bool RunWindow(const TOptions& options, CSingleStation& single)
{
    const bool isPicture = !options.screenshot.IsEmpty();
    if (isPicture) {
        CheckPictureFile(options.screenshot);
        PaintWithoutDisplay();
    }
    TMainForm* form = nullptr;
    Forms::Application->CreateForm(form);
    if (!HasWindow(*form)) {
        delete form;
        std::cerr << "station: there is nothing here to show a window; the run goes on without one\n";
        return false;
    }
    form->Open(options);
    single.Serve([form](const System::UnicodeString& commandLine) { return form->Obey(commandLine); });
    if (isPicture) {
        SavePicture(*form, options.screenshot);
        delete form;
        return true;
    }
    form->RestoreState();
    Forms::Application->Run();
    return true;
}

} // namespace Station
