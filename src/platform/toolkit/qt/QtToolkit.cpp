// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtToolkit.h"

#include "platform/toolkit/LoopFaults.h"
#include "platform/toolkit/qt/QtBoxes.h"
#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/QtDesktop.h"
#include "platform/toolkit/qt/QtDisplay.h"
#include "platform/toolkit/qt/QtForm.h"
#include "platform/toolkit/qt/painting/QtColors.h"
#include "platform/toolkit/qt/painting/QtFonts.h"
#include "platform/toolkit/qt/painting/QtPaintDevice.h"
#include "platform/toolkit/qt/painting/QtPictures.h"
#include "platform/toolkit/qt/widgets/QtButtons.h"
#include "platform/toolkit/qt/widgets/QtCombo.h"
#include "platform/toolkit/qt/widgets/QtEdits.h"
#include "platform/toolkit/qt/widgets/QtList.h"
#include "platform/toolkit/qt/widgets/QtPages.h"
#include "platform/toolkit/qt/widgets/QtProgress.h"
#include "platform/toolkit/qt/widgets/QtRichEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QImageReader>
#include <QThread>

#include <cerrno>
#include <cstdlib>
#include <utility>

namespace Toolkits
{

namespace
{

/// So many actions are as quick as one look at the screen.
constexpr int MostTurns = 16;

/// Another value for the life of the object.
class Restored
{
public:
    Restored(int& place, int value) : mPlace(place), mFormer(std::exchange(place, value)) {}
    Restored(const Restored&) = delete;
    Restored& operator=(const Restored&) = delete;
    ~Restored() { mPlace = mFormer; }

private:
    int& mPlace;
    int mFormer;
};

/// Qt itself ends a program that loses its display, by `exit` in the midst of its work. All objects are still
/// there, since those of the stack stay as they are and the global ones come later.
void LookAtTheEnd()
{
    if (HasLostDisplay()) {
        TellScreenLoss();
    }
}

/// Qt refers to them as long as the process lives.
struct TArguments
{
    int count = 1;
    char* texts[2] = {program_invocation_name, nullptr};
};

void MakeApplication()
{
    if (QCoreApplication::instance() != nullptr) {
        return;
    }
    auto& arguments = *new TArguments;
    // Never destroyed: forms and boxes may be shown up to the last global object of the program.
    auto* const application = new QApplication(arguments.count, arguments.texts);
    // When the program ends is up to it.
    application->setQuitOnLastWindowClosed(false);
    // In megabytes: as many pixels as a picture of the library can have.
    QImageReader::setAllocationLimit(static_cast<int>(Pixels::MaximumCount * 4 / (1 << 20)));
}

} // namespace

CQtToolkit::CQtToolkit()
    : mDesktop(std::make_shared<CQtDesktop>([this](std::exception_ptr fault) {
          mMessages.Post([fault = std::move(fault)] { std::rethrow_exception(fault); });
      }))
{
}

CQtToolkit::~CQtToolkit()
{
    // Windows that are left tell their faults to nobody.
    mDesktop->setRaise({});
}

void CQtToolkit::NeedApplication() const
{
    if (mApplication == nullptr) {
        MakeApplication();
        WatchDisplay();
        static const int registered = std::atexit(&LookAtTheEnd);
        static_cast<void>(registered);
        QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
        mMessages.setDispatcher(dispatcher);
        auto* const self = const_cast<CQtToolkit*>(this);
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &mContext,
                         [self] { self->ServeForeignLoop(); });
        mApplication = QCoreApplication::instance();
    }
}

int CQtToolkit::ShowBox(const TBox& box)
{
    NeedApplication();
    return ShowQtBox(*this, box);
}

bool CQtToolkit::AskInput(const TInput& input, System::UnicodeString& value)
{
    NeedApplication();
    return AskByQt(*this, input, value);
}

TFileAnswer CQtToolkit::AskFiles(const TFileQuestion& question)
{
    NeedApplication();
    return AskFilesByQt(*this, question);
}

bool CQtToolkit::SetClipboardText(const System::UnicodeString& text)
{
    NeedApplication();
    if (text.Length() > MaxClipboardText) {
        return false;
    }
    QGuiApplication::clipboard()->setText(ToQString(text));
    return true;
}

System::UnicodeString CQtToolkit::GetClipboardText()
{
    NeedApplication();
    try {
        const QString text = QGuiApplication::clipboard()->text();
        return text.size() <= MaxClipboardText ? FromQString(text) : System::UnicodeString();
    } catch (const std::bad_alloc&) {
        // Other programs offer what they like, and it comes over whole.
        return {};
    }
}

bool CQtToolkit::SetClipboardPixels(const Pixels& pixels)
{
    NeedApplication();
    // The clipboard keeps a copy, since the pixels may go.
    QGuiApplication::clipboard()->setImage(ViewOf(pixels).copy());
    return true;
}

Pixels CQtToolkit::GetClipboardPixels()
{
    NeedApplication();
    const QImage image = QGuiApplication::clipboard()->image();
    return image.isNull() ? Pixels() : PixelsOf(image);
}

Types::TRect CQtToolkit::DesktopRect() const
{
    NeedApplication();
    return FromQRect(DesktopGeometry());
}

Types::TRect CQtToolkit::FirstScreenRect() const
{
    NeedApplication();
    return FromQRect(FirstScreenGeometry());
}

std::unique_ptr<Window> CQtToolkit::MakeWindow(const TWindowSettings& settings)
{
    NeedApplication();
    switch (settings.kind) {
    case EWindowKind::Form:
        return std::make_unique<CQtForm>(mDesktop, settings);
    case EWindowKind::Edit:
        return std::make_unique<CQtEdit>(mDesktop, settings);
    case EWindowKind::Memo:
        return std::make_unique<CQtMemo>(mDesktop, settings);
    case EWindowKind::RichEdit:
        return std::make_unique<CQtRichEdit>(mDesktop, settings);
    case EWindowKind::Button:
    case EWindowKind::CheckBox:
    case EWindowKind::RadioButton:
        return std::make_unique<CQtButton>(mDesktop, settings);
    case EWindowKind::ComboBox:
        return std::make_unique<CQtCombo>(mDesktop, settings);
    case EWindowKind::ListBox:
    case EWindowKind::CheckListBox:
        return std::make_unique<CQtList>(mDesktop, settings);
    case EWindowKind::ProgressBar:
        return std::make_unique<CQtProgress>(mDesktop, settings);
    case EWindowKind::Pages:
        return std::make_unique<CQtPages>(mDesktop, settings);
    default:
        // What the controls paint and do by themselves, with all their styles.
        return std::make_unique<CQtCanvas>(mDesktop, settings);
    }
}

int CQtToolkit::ShowMenu(const std::vector<TMenuEntry>& entries, Types::TPoint place)
{
    NeedApplication();
    return ShowQtMenu(*this, entries, place);
}

TFrameMargins CQtToolkit::FrameMargins(EFrame frame) const
{
    return UsualFrameMargins(frame);
}

TTimerId CQtToolkit::StartTimer(unsigned milliseconds, std::function<void()> tick)
{
    NeedApplication();
    return mMessages.StartTimer(milliseconds, std::move(tick));
}

void CQtToolkit::StopTimer(TTimerId timer)
{
    mMessages.StopTimer(timer);
}

TTextMetrics CQtToolkit::FontMetrics(const TFontData& font) const
{
    NeedApplication();
    return MetricsOf(font);
}

Types::TSize CQtToolkit::TextExtent(const TFontData& font, const System::UnicodeString& text) const
{
    NeedApplication();
    return ExtentOf(font, text);
}

TPixel CQtToolkit::SystemColor(int index) const
{
    NeedApplication();
    return PaletteColor(index);
}

std::unique_ptr<PaintDevice> CQtToolkit::NewPixelDevice(Pixels& pixels)
{
    NeedApplication();
    return std::make_unique<CQtPaintDevice>(pixels);
}

void CQtToolkit::SetCursor(int cursor)
{
    NeedApplication();
    QGuiApplication::restoreOverrideCursor();
    if (cursor != 0) {
        QGuiApplication::setOverrideCursor(ToQtCursor(cursor));
    }
}

void CQtToolkit::Post(std::function<void()> action)
{
    mMessages.Post(std::move(action));
}

void CQtToolkit::Watch(int descriptor, std::function<void()> action)
{
    NeedApplication();
    mMessages.Watch(descriptor, std::move(action));
}

void CQtToolkit::Unwatch(int descriptor)
{
    mMessages.Unwatch(descriptor);
}

void CQtToolkit::SetActivationToken(const System::UnicodeString& token)
{
    // The next window that asks to be activated finds it here.
    setenv("XDG_ACTIVATION_TOKEN", System::ToUtf8(token).c_str(), 1);
}

bool CQtToolkit::ProcessQtEvents(bool canWait)
{
    mTurns = 0;
    const Restored below(mLoopsBelow, QThread::currentThread()->loopLevel());
    const bool isDone = QAbstractEventDispatcher::instance()->processEvents(
        canWait ? QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents : QEventLoop::AllEvents);
    mDesktop->EmptyGraves();
    return isDone;
}

void CQtToolkit::ServeForeignLoop()
{
    if (QThread::currentThread()->loopLevel() <= mLoopsBelow) {
        return;
    }
    for (int i = 0; i < MostTurns; ++i) {
        try {
            if (!mMessages.RunOne() && !mDesktop->Inputs().RunOne(nullptr)) {
                break;
            }
        } catch (...) {
            if (HandleLoopException == nullptr) {
                throw;
            }
            HandleLoopException();
        }
    }
    mDesktop->EmptyGraves();
    if (!mMessages.IsEmpty() || !mDesktop->Inputs().IsEmpty()) {
        QAbstractEventDispatcher::instance()->wakeUp();
    }
}

bool CQtToolkit::ProcessMessage()
{
    NeedApplication();
    if (mTurns >= MostTurns && ProcessQtEvents(false)) {
        return true;
    }
    if (mMessages.RunOne() || mDesktop->Inputs().RunOne(nullptr)) {
        ++mTurns;
        return true;
    }
    return ProcessQtEvents(false);
}

bool CQtToolkit::ProcessInput(Window& window)
{
    NeedApplication();
    const auto* const only = dynamic_cast<const CQtWindow*>(&window);
    if (mDesktop->Inputs().RunOne(only)) {
        return true;
    }
    const CQtWindow* const former = mDesktop->ExchangeOnly(only);
    const bool isDone = ProcessQtEvents(false);
    mDesktop->ExchangeOnly(former);
    return isDone;
}

void CQtToolkit::PostInput(Window& window, std::function<void()> input)
{
    mDesktop->Inputs().Post(dynamic_cast<CQtWindow&>(window), std::move(input));
}

void CQtToolkit::WaitMessage()
{
    NeedApplication();
    if (mMessages.IsEmpty() && mDesktop->Inputs().IsEmpty()) {
        ProcessQtEvents(true);
    }
}

} // namespace Toolkits
