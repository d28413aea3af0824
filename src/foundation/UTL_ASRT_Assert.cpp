// SPDX-License-Identifier: MIT
#include "foundation/UTL_ASRT_Assert.h"

#include "foundation/UTL_I18N_Texts.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/visual/controls/Controls_Thread.h"
#include "platform/visual/forms/Forms_Application.h"

#include <deque>
#include <mutex>

namespace UTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

UnicodeString BuildMessage(const AnsiString& expression, const char* file, int line)
{
    return AnsiString(Ci18n::GetString(EXStrings::InternalError)) + expression + "\n" + file + "\nLine " +
           AnsiString(line);
}

/// The fault must be told also while the program starts or ends and has no application object.
int ShowBox(const UnicodeString& text, const WideChar* caption, unsigned flags)
{
    if (Forms::Application == nullptr) {
        return MessageBoxW(nullptr, text.c_str(), caption, flags);
    }
    return Forms::Application->MessageBox(text.c_str(), caption, static_cast<int>(flags));
}

/// The last text of an overload of `Msg`. Each thread has its own, so that a fault in a second thread can't
/// pull the text from under the first.
struct TThreadText
{
    ~TThreadText() { gone = true; }

    UnicodeString text;
    static thread_local constinit bool gone;
};

thread_local constinit bool TThreadText::gone = false;

/// Keeps the text for a thread that has begun to end. These few stay until the process is gone.
const WideChar* KeepLateText(const UnicodeString& text)
{
    struct TLateTexts
    {
        std::mutex gate;
        std::deque<UnicodeString> texts;
    };
    static auto& late = *new TLateTexts;
    const std::lock_guard lock(late.gate);
    return late.texts.emplace_back(text).c_str();
}

/// In the buffer of the overload for `Char`.
template <class Char>
const WideChar* KeepText(const UnicodeString& text)
{
    if (TThreadText::gone) {
        return KeepLateText(text);
    }
    thread_local TThreadText last;
    last.text = text;
    return last.text.c_str();
}

template <class Char>
void AskAndThrow(const Char* expression, const char* file, int line)
{
    const UnicodeString text =
        UnicodeString(XAssert(expression, file, line).what()) + u"\n\n Throw Assertion ?";
    if (ShowBox(text, u"Internal error", MB_YESNO) == IDYES) {
        throw XAssert(expression, file, line);
    }
}

template <class Char>
void ShowWarning(const Char* expression, const char* file, int line)
{
    ShowBox(XAssert(expression, file, line).what(), u"Warning", MB_OK);
}

/// Lets controls report that another thread than theirs touched them.
struct TLinkToControls
{
    TLinkToControls()
    {
        Controls::ForeignThread = [] { THROW_XAssert("the main thread", "Controls_Thread.cpp", 1); };
    }
};

const TLinkToControls linkToControls;

} // namespace

XAssert::XAssert(const char* expression, const char* file, int line)
    : Exception(Msg(expression, file, line)), mExpression(expression), mFile(file), mLine(line)
{
}

XAssert::XAssert(const WideChar* expression, const char* file, int line)
    : Exception(Msg(expression, file, line)), mExpression(expression), mFile(file), mLine(line)
{
}

XAssert::~XAssert() = default;

const WideChar* XAssert::what(EWide) const
{
    return Msg(mExpression.c_str(), mFile.c_str(), mLine);
}

const WideChar* XAssert::Msg(const char* expression, const char* file, int line)
{
    return KeepText<char>(BuildMessage(expression, file, line));
}

const WideChar* XAssert::Msg(const WideChar* expression, const char* file, int line)
{
    return KeepText<WideChar>(BuildMessage(AnsiString(expression), file, line));
}

void THROW_XAssert(const char* expression, const char* file, int line)
{
    AskAndThrow(expression, file, line);
}

void THROW_XAssert(const WideChar* expression, const char* file, int line)
{
    AskAndThrow(expression, file, line);
}

void THROW_XAssert(const CFaultPlace& place, const char* expression)
{
    AskAndThrow(expression, place.source, place.line);
}

void Warn(const char* expression, const char* file, int line)
{
    ShowWarning(expression, file, line);
}

void Warn(const WideChar* expression, const char* file, int line)
{
    ShowWarning(expression, file, line);
}

void Warn(const CFaultPlace& place, const char* expression)
{
    ShowWarning(expression, place.source, place.line);
}

} // namespace UTL
