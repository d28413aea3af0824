// SPDX-License-Identifier: MIT
#include "forms/progress/BTL_ProgressForm.h"

#include "forms/labels/CTL_Label.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/sysutils/System_Printf.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/forms/Forms_Application.h"
#include "platform/visual/forms/Forms_Screen.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Memo.h"
#include "platform/visual/stdctrls/panels/Comctrls_ProgressBar.h"
#include "platform/visual/stdctrls/panels/Extctrls_Panel.h"
#include "progress/BTL_HourGlassCursor.h"
#include "progress/model/internal/BTL_ProgressSteps.h"

#include <algorithm>
#include <array>
#include <utility>

using Classes::TComponentWatch;
using System::Int64;
using System::TObject;
using System::UnicodeString;

namespace
{

/// Beyond so many nested calls, each of a handler that itself reported progress, only the dialog's own input
/// is handled: the stack must not grow with what waits.
constexpr int MaxNesting = 64;
int nesting = 0;

class CNesting
{
public:
    CNesting() noexcept { ++nesting; }
    CNesting(const CNesting&) = delete;
    CNesting& operator=(const CNesting&) = delete;
    ~CNesting() { --nesting; }
};

} // namespace

int TProgressForm::smTop = 0;

System::TMetaClass* TProgressForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TProgressForm>(u"TProgressForm")
                                                  .Field(u"fPanel1", &TProgressForm::fPanel1)
                                                  .Field(u"fProgressBar", &TProgressForm::fProgressBar)
                                                  .Field(u"fPanel2", &TProgressForm::fPanel2)
                                                  .Field(u"fLabel1", &TProgressForm::fLabel1)
                                                  .Field(u"fPanel3", &TProgressForm::fPanel3)
                                                  .Field(u"fLabel2", &TProgressForm::fLabel2)
                                                  .Field(u"fPanel4", &TProgressForm::fPanel4)
                                                  .Field(u"fMemo", &TProgressForm::fMemo)
                                                  .Field(u"fPanel5", &TProgressForm::fPanel5)
                                                  .Field(u"fBtn_Cancel", &TProgressForm::fBtn_Cancel)
                                                  .Field(u"fBtn_Ok", &TProgressForm::fBtn_Ok)
                                                  .Method(u"CancelClick", &TProgressForm::CancelClick)
                                                  .Method(u"OkClick", &TProgressForm::OkClick)
                                                  .Method(u"FormClose", &TProgressForm::FormClose)
                                                  .Method(u"FormShow", &TProgressForm::FormShow)
                                                  .Method(u"FormHide", &TProgressForm::FormHide)
                                                  .Method(u"ButtonsResize", &TProgressForm::ButtonsResize)
                                                  .Build();
    return record;
}

TProgressForm::TProgressForm(Classes::TComponent* owner) : TForm(owner)
{
    ReadDesign();
}

TProgressForm::~TProgressForm()
{
    // It may go while it is shown.
    SwitchHourglass(true);
}

void TProgressForm::Prepare(Int64 max, bool throwOnCancel, bool showCancel, const UnicodeString& caption,
                            const UnicodeString& text1, const UnicodeString& text2,
                            const UnicodeString& lines, int width)
{
    getLines()->setText(lines);
    DoPrepare(max, throwOnCancel, showCancel, caption, text1, text2, !lines.IsEmpty(), width);
}

void TProgressForm::Prepare(Int64 max, bool throwOnCancel, bool showCancel, const UnicodeString& caption,
                            const UnicodeString& text1, const UnicodeString& text2, Classes::TStrings* lines,
                            int width)
{
    getLines()->setText(lines == nullptr ? UnicodeString() : lines->getText());
    DoPrepare(max, throwOnCancel, showCancel, caption, text1, text2, lines != nullptr, width);
}

void TProgressForm::DoPrepare(Int64 max, bool throwOnCancel, bool showCancel, const UnicodeString& caption,
                              const UnicodeString& text1, const UnicodeString& text2, bool showLines,
                              int width)
{
    const TComponentWatch watch(this);
    mUserCancel = false;
    mThrowOnCancel = false;
    setMax(max);
    setPosition(0);
    if (!watch.IsAlive()) {
        return;
    }
    // What waited may have been a click that was meant for the work before.
    mUserCancel = false;
    mThrowOnCancel = throwOnCancel;
    setCaption(caption.IsEmpty() ? Forms::Application->getTitle() : caption);
    fLabel1->setCaption(text1);
    fLabel2->setCaption(text2);
    setProgressBar(max != 0);
    setShowText1(!text1.IsEmpty());
    setShowText2(!text2.IsEmpty());
    setShowLines(showLines);
    setShowCancel(showCancel);
    if (width != 0) {
        setWidth(width);
    }
    AlignPanels();
    PlaceOnScreen();
}

void TProgressForm::PlaceOnScreen()
{
    if (smTop == 0) {
        return setPosition(Forms::poScreenCenter);
    }
    setPosition(Forms::poDesigned);
    setTop(smTop);
    setLeft((Forms::Screen->getWidth() - getWidth()) / 2);
}

void TProgressForm::Start(Int64 max)
{
    const TComponentWatch watch(this);
    KeepPosition(0);
    SetProgressBarPosition(0);
    if (max != 0) {
        setMax(max);
        setProgressBar(true);
    }
    mUserCancel = false;
    Show();
    if (watch.IsAlive()) {
        InitControls();
        ProcessMessages();
    }
}

void TProgressForm::Stop()
{
    const TComponentWatch watch(this);
    const auto hide = [&] {
        if (watch.IsAlive()) {
            Hide();
        }
    };
    SetProgressBarPosition(getMax());
    try {
        ProcessMessages();
    } catch (...) {
        hide();
        throw;
    }
    hide();
}

void TProgressForm::ThrowIfUserCancel() const
{
    if (mThrowOnCancel && mUserCancel) {
        throw epeUserCancel;
    }
}

void TProgressForm::ProcessMessages()
{
    if (nesting < MaxNesting) {
        const CNesting nested;
        Forms::Application->ProcessMessages();
        return;
    }
    const TComponentWatch watch(this);
    while (watch.IsAlive() && HandleAllocated() && Toolkits::CurrentToolkit().ProcessInput(*GetWindow())) {
    }
}

void TProgressForm::PositionChanged()
{
    const TComponentWatch watch(this);
    ProcessMessages();
    if (!watch.IsAlive()) {
        return;
    }
    ThrowIfUserCancel();
    if (OnEndPosition && getProgressPosition() >= getMax()) {
        OnEndPosition(this);
    }
}

void TProgressForm::setPosition(Int64 position)
{
    KeepPosition(position);
    SetProgressBarPosition(position);
    PositionChanged();
}

void TProgressForm::IncPosition(int step)
{
    const TComponentWatch watch(this);
    setPosition(BTL::AddSteps(getProgressPosition(), step));
    if (watch.IsAlive()) {
        PositionChanged();
    }
}

bool TProgressForm::IncPositionModulo(int modulo)
{
    const Int64 step = std::max(modulo, 1);
    if (step * 10 > getMax()) {
        IncPosition(1);
        return true;
    }
    KeepPosition(BTL::AddSteps(getProgressPosition(), 1));
    if (getProgressPosition() % step != 0) {
        return false;
    }
    SetProgressBarPosition(getProgressPosition());
    PositionChanged();
    return true;
}

void TProgressForm::IncPositionExt(int step, int textIndex, const UnicodeString& text)
{
    const TComponentWatch watch(this);
    IncPosition(step);
    if (watch.IsAlive()) {
        setText(textIndex, text);
    }
}

void TProgressForm::UserCancelClick()
{
    CancelClick(fBtn_Cancel);
}

void TProgressForm::CancelClick(TObject* sender)
{
    Cancelled();
    if (OnCancel) {
        OnCancel(sender);
    }
}

void TProgressForm::OkClick(TObject* sender)
{
    Cancelled();
    if (OnOk) {
        OnOk(sender);
    }
}

void TProgressForm::FormClose(TObject*, Forms::TCloseAction& action)
{
    if (action == Forms::caHide || action == Forms::caFree) {
        Cancelled();
    }
}

void TProgressForm::FormShow(TObject*)
{
    SwitchHourglass(false);
}

void TProgressForm::FormHide(TObject*)
{
    SwitchHourglass(true);
}

void TProgressForm::ButtonsResize(TObject*)
{
    InitControls();
}

void TProgressForm::SwitchHourglass(bool isOn)
{
    if (std::exchange(mIsHourglassOn, isOn) != isOn) {
        isOn ? BTL::AHourGlassCursor::Enable() : BTL::AHourGlassCursor::Disable();
    }
}

bool TProgressForm::getShowOk() const
{
    return fBtn_Ok->getVisible();
}

void TProgressForm::setShowOk(bool isShown)
{
    ShowButton(*fBtn_Ok, isShown);
}

bool TProgressForm::getShowCancel() const
{
    return fBtn_Cancel->getVisible();
}

void TProgressForm::setShowCancel(bool isShown)
{
    ShowButton(*fBtn_Cancel, isShown);
    Forms::TBorderIcons icons = getBorderIcons();
    isShown ? icons << Forms::biSystemMenu : icons >> Forms::biSystemMenu;
    setBorderIcons(icons);
}

void TProgressForm::ShowButton(Stdctrls::TButton& button, bool isShown)
{
    button.setVisible(isShown);
    ShowPanel(*fPanel5, getShowOk() || getShowCancel());
}

void TProgressForm::InitControls()
{
    const auto center = [](Stdctrls::TButton& button, int place) {
        button.setLeft(place - button.getWidth() / 2);
    };
    const int width = fPanel5->getWidth();
    const bool areBoth = getShowOk() && getShowCancel();
    center(*fBtn_Cancel, areBoth ? width / 4 : width / 2);
    center(*fBtn_Ok, areBoth ? width * 3 / 4 : width / 2);
}

void TProgressForm::ShowPanel(Extctrls::TPanel& panel, bool isShown)
{
    panel.setVisible(isShown);
    AlignPanels();
}

void TProgressForm::AlignPanels()
{
    int top = 0;
    for (Extctrls::TPanel* const panel : std::array{fPanel1, fPanel2, fPanel3, fPanel4, fPanel5}) {
        if (panel->getVisible()) {
            panel->SetBounds(0, top, getClientWidth(), panel->getHeight());
            top += panel->getHeight();
        }
    }
    setClientHeight(top);
    InitControls();
}

void TProgressForm::setLinesHeight(int height)
{
    fPanel4->setHeight(std::max(height, 0));
    AlignPanels();
}

UnicodeString TProgressForm::getText(int index) const
{
    switch (index) {
    case 1:
        return getText1();
    case 2:
        return getText2();
    default:
        return {};
    }
}

void TProgressForm::setText(int index, const UnicodeString& text)
{
    switch (index) {
    case 1:
        return setText1(text);
    case 2:
        return setText2(text);
    default:
        return;
    }
}

UnicodeString TProgressForm::getText1() const
{
    return fLabel1->getCaption();
}

void TProgressForm::setText1(const UnicodeString& text)
{
    ChangeText(*fLabel1, text);
}

UnicodeString TProgressForm::getText2() const
{
    return fLabel2->getCaption();
}

void TProgressForm::setText2(const UnicodeString& text)
{
    ChangeText(*fLabel2, text);
}

void TProgressForm::ChangeText(TCTL_Label& label, const UnicodeString& text)
{
    if (label.getCaption() != text) {
        label.setCaption(text);
        ProcessMessages();
    }
}

void TProgressForm::SetText_V(int index, const char* format, System::TVarArgs arguments)
{
    setText(index, System::PrintfA(format, arguments));
}

void TProgressForm::SetText_V(int index, const System::WideChar* format, System::TVarArgs arguments)
{
    setText(index, System::Printf(format, arguments));
}

Classes::TStrings* TProgressForm::getLines() const
{
    return fMemo->getLines();
}

void TProgressForm::setProgressBar(bool isShown)
{
    ShowPanel(*fPanel1, isShown);
}

void TProgressForm::setShowText1(bool isShown)
{
    ShowPanel(*fPanel2, isShown);
}

void TProgressForm::setShowText2(bool isShown)
{
    ShowPanel(*fPanel3, isShown);
}

void TProgressForm::setShowLines(bool isShown)
{
    ShowPanel(*fPanel4, isShown);
}
