// SPDX-License-Identifier: MIT
#include "os/Win_sys_windows.h"

#include "platform/host/Host_Error.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/visual/Forms.h"
#include "platform/visual/controls/Controls_DropFiles.h"
#include "platform/visual/controls/Controls_Handle.h"
#include "platform/visual/forms/Forms_Foreground.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace
{

using System::UnicodeString;

TEST(ForegroundTest, AFormComesToTheFront)
{
    const Support::ScriptedBoxes boxes;
    Forms::TForm first;
    Forms::TForm second;
    first.Show();
    second.Show();
    const HWND former = GetForegroundWindow();
    EXPECT_EQ(Controls::FindControl(former), &second);
    const HWND window = Controls::GetHandle(first);
    EXPECT_TRUE(WIN::SetForegroundWindowEx(window));
    EXPECT_TRUE(first.getActive());
    EXPECT_EQ(GetForegroundWindow(), window);
    EXPECT_TRUE(WIN::SetForegroundWindowEx(former));

    first.Hide();
    EXPECT_FALSE(WIN::SetForegroundWindowEx(window));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(WIN::SetForegroundWindowEx(nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);
}

TEST(ForegroundTest, AFormThatTheUserIsKeptFromStaysBehind)
{
    const Support::ScriptedBoxes boxes;
    Forms::TForm first;
    Forms::TForm second;
    first.Show();
    second.Show();
    // As behind a modal form.
    first.GetWindow()->SetEnabled(false);
    SetLastError(0);
    EXPECT_FALSE(WIN::SetForegroundWindowEx(Controls::GetHandle(first)));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(second.getActive());
}

TEST(ForegroundTest, AFormMayGoOnTheWay)
{
    const Support::ScriptedBoxes boxes;
    auto* form = new Forms::TForm;
    Forms::TForm other;
    form->Show();
    other.Show();
    other.OnDeactivate = [&](System::TObject*) { delete std::exchange(form, nullptr); };
    EXPECT_FALSE(WIN::SetForegroundWindowEx(Controls::GetHandle(*form)));
    EXPECT_EQ(form, nullptr);
    EXPECT_TRUE(other.getActive());
    other.OnDeactivate = nullptr;
}

/// Tells what it is sent.
class TProbeForm : public Forms::TForm
{
public:
    void Dispatch(void* message) override
    {
        auto& sent = *static_cast<Messages::TMessage*>(message);
        if (sent.Msg == WM_USER + 1) {
            sent.Result = static_cast<std::intptr_t>(sent.WParam) + sent.LParam;
            return;
        }
        TForm::Dispatch(message);
    }
};

TEST(HandleTest, AMessageGoesThroughDispatch)
{
    const Support::ScriptedBoxes boxes;
    auto form = std::make_unique<TProbeForm>();
    const HWND window = Controls::GetHandle(*form);
    EXPECT_EQ(SendMessageA(window, WM_USER + 1, 40, 2), 42);
    form.reset();
    EXPECT_EQ(Controls::FindControl(window), nullptr);
    EXPECT_EQ(SendMessageA(window, WM_USER + 1, 40, 2), 0);
}

TEST(DropTest, DroppedFilesAreTakenOnce)
{
    Controls::TDroppedFiles dropped{{u"\\a\\one.txt", u"\\b\\zwei ä.txt"}, {3, 4}};
    Classes::TStringList list;
    list.Add(u"former");
    WIN::DragQueryFiles(&dropped, &list);
    ASSERT_EQ(list.getCount(), 2);
    EXPECT_EQ(list.getStrings(0), u"\\a\\one.txt");
    EXPECT_EQ(list.getStrings(1), u"\\b\\zwei ä.txt");
    WIN::DragQueryFiles(&dropped, &list);
    EXPECT_EQ(list.getCount(), 0) << "the handle has none any more";
    WIN::DragQueryFiles(nullptr, &list);
    WIN::DragQueryFiles(&dropped, nullptr);
}

TEST(DropTest, AHandleIsGoneThoughTheListRaises)
{
    Controls::TDroppedFiles dropped{{u"\\a", u"\\a"}, {}};
    Classes::TStringList list;
    list.setSorted(true);
    list.setDuplicates(Classes::dupError);
    EXPECT_THROW(WIN::DragQueryFiles(&dropped, &list), Classes::EStringListError);
    EXPECT_EQ(DragQueryFileW(&dropped, 0xFFFFFFFF, nullptr, 0), 0u);
}

TEST(DropTest, AHandleTellsItsFiles)
{
    Controls::TDroppedFiles dropped{{u"\\a\\one.txt", u"\\b"}, {}};
    System::WideChar buffer[5] = u"????";
    EXPECT_EQ(DragQueryFileW(&dropped, 0xFFFFFFFF, nullptr, 0), 2u);
    EXPECT_EQ(DragQueryFileW(&dropped, 0, nullptr, 0), 10u);
    EXPECT_EQ(DragQueryFileW(&dropped, 0, buffer, 5), 4u);
    EXPECT_EQ(UnicodeString(buffer), u"\\a\\o");
    EXPECT_EQ(DragQueryFileW(&dropped, 1, buffer, 5), 2u);
    EXPECT_EQ(UnicodeString(buffer), u"\\b");
    EXPECT_EQ(DragQueryFileW(&dropped, 1, buffer, 0), 0u);
    EXPECT_EQ(DragQueryFileW(&dropped, 2, buffer, 5), 0u);
    EXPECT_EQ(DragQueryFileW(nullptr, 0, buffer, 5), 0u);
    DragFinish(nullptr);
}

} // namespace
