// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_FormResource.h"
#include "platform/runtime/filer/Classes_FormText.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#ifdef TRS8_BTL_BENCHMARK_QTWIDGETS
#include <QApplication>
#include <QBuffer>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#ifdef TRS8_BTL_BENCHMARK_QTUITOOLS
#include <QUiLoader>
#endif
#endif

namespace
{

constexpr int ControlCount = 1000;
constexpr int LargeCount = 10'000;
constexpr int PostCount = 100'000;

/// Labels, edits and buttons by turns.
enum class EControl
{
    Label,
    Edit,
    Button
};

constexpr EControl ControlAt(int index)
{
    return static_cast<EControl>(index % 3);
}

template <class Control>
void Place(Forms::TForm& form, int index)
{
    auto* const control = new Control(&form);
    control->SetBounds(index % 10 * 80, index / 10 * 24, 75, 21);
    control->setText(u"Limit");
    control->setParent(&form);
}

void FillForm(Forms::TForm& form, int count = ControlCount)
{
    for (int i = 0; i < count; ++i) {
        switch (ControlAt(i)) {
        case EControl::Label:
            Place<Stdctrls::TLabel>(form, i);
            break;
        case EControl::Edit:
            Place<Stdctrls::TEdit>(form, i);
            break;
        case EControl::Button:
            Place<Stdctrls::TButton>(form, i);
            break;
        }
    }
}

void MakeForm(benchmark::State& state)
{
    for (auto _ : state) {
        Forms::TForm form;
        FillForm(form, static_cast<int>(state.range(0)));
        benchmark::DoNotOptimize(form.GetControlCount());
    }
}
BENCHMARK(MakeForm)
    ->Name("make_form/ours")
    ->Arg(ControlCount)
    ->Arg(LargeCount)
    ->Unit(benchmark::kMillisecond);

/// As `MakeForm`, with one control at an edge, which the others don't move.
void MakeFormWithBar(benchmark::State& state)
{
    for (auto _ : state) {
        Forms::TForm form;
        auto* const bar = new Stdctrls::TLabel(&form);
        bar->setAlign(Controls::alBottom);
        bar->setParent(&form);
        FillForm(form, static_cast<int>(state.range(0)));
        benchmark::DoNotOptimize(form.GetControlCount());
    }
}
BENCHMARK(MakeFormWithBar)->Name("make_form/with_bar")->Arg(LargeCount)->Unit(benchmark::kMillisecond);

void ShowForm(benchmark::State& state)
{
    for (auto _ : state) {
        Forms::TForm form;
        FillForm(form);
        form.Show();
        Forms::Application->ProcessMessages();
    }
}
BENCHMARK(ShowForm)->Name("show_form/ours")->Unit(benchmark::kMillisecond);

std::string DesignOf(const char* formClass)
{
    std::string text = std::string("object Sheet: ") + formClass + "\n";
    for (int i = 0; i < ControlCount; ++i) {
        const char* const names[] = {"TLabel", "TEdit", "TButton"};
        const auto kind = static_cast<std::size_t>(ControlAt(i));
        text += "  object C" + std::to_string(i) + ": " + names[kind] +
                "\n    Left = " + std::to_string(i % 10 * 80) + "\n    Top = " + std::to_string(i / 10 * 24) +
                "\n    Width = 75\n    Height = 21\n    " + (kind == 1 ? "Text" : "Caption") +
                " = 'Limit'\n  end\n";
    }
    return text + "end\n";
}

void LoadForm(benchmark::State& state)
{
    Classes::TMemoryStream binary;
    {
        const std::string design = DesignOf("TForm");
        Classes::TMemoryStream text;
        text.WriteBuffer(design.data(), static_cast<System::Int64>(design.size()));
        text.setPosition(0);
        Classes::ObjectTextToBinary(&text, &binary);
    }
    const std::string bytes(binary.AsView());
    Classes::Detail::RegisterForm("BENCHMARK_SHEET", bytes.data(), bytes.size());
    for (auto _ : state) {
        Forms::TForm form;
        Classes::ReadComponentRes(u"BENCHMARK_SHEET", &form);
        benchmark::DoNotOptimize(form.GetControlCount());
    }
    Classes::Detail::UnregisterForm("BENCHMARK_SHEET", bytes.data(), bytes.size());
}
BENCHMARK(LoadForm)->Name("load_form/ours")->Unit(benchmark::kMillisecond);

void Post(benchmark::State& state)
{
    int count = 0;
    for (auto _ : state) {
        for (int i = 0; i < PostCount; ++i) {
            Toolkits::CurrentToolkit().Post([&count] { ++count; });
        }
        Forms::Application->ProcessMessages();
    }
    benchmark::DoNotOptimize(count);
}
BENCHMARK(Post)->Name("post/ours")->Unit(benchmark::kMillisecond);

void Idle(benchmark::State& state)
{
    for (auto _ : state) {
        Forms::Application->ProcessMessages();
    }
}
BENCHMARK(Idle)->Name("idle/ours");

#ifdef TRS8_BTL_BENCHMARK_QTWIDGETS

void NeedQt()
{
    static int count = 1;
    static char name[] = "bench_controls";
    static char* names[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static auto* const application = new QApplication(count, names);
    benchmark::DoNotOptimize(application);
}

template <class Widget>
void PlaceQt(QDialog& dialog, int index)
{
    auto* const widget = new Widget(QStringLiteral("Limit"), &dialog);
    widget->setGeometry(index % 10 * 80, index / 10 * 24, 75, 21);
}

void FillQt(QDialog& dialog, int count = ControlCount)
{
    for (int i = 0; i < count; ++i) {
        switch (ControlAt(i)) {
        case EControl::Label:
            PlaceQt<QLabel>(dialog, i);
            break;
        case EControl::Edit:
            PlaceQt<QLineEdit>(dialog, i);
            break;
        case EControl::Button:
            PlaceQt<QPushButton>(dialog, i);
            break;
        }
    }
}

void MakeQt(benchmark::State& state)
{
    NeedQt();
    for (auto _ : state) {
        QDialog dialog;
        FillQt(dialog, static_cast<int>(state.range(0)));
        benchmark::DoNotOptimize(&dialog);
    }
}
BENCHMARK(MakeQt)->Name("make_form/Qt")->Arg(ControlCount)->Arg(LargeCount)->Unit(benchmark::kMillisecond);

void ShowQt(benchmark::State& state)
{
    NeedQt();
    for (auto _ : state) {
        QDialog dialog;
        FillQt(dialog);
        dialog.show();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(ShowQt)->Name("show_form/Qt")->Unit(benchmark::kMillisecond);

void PostQt(benchmark::State& state)
{
    NeedQt();
    QObject receiver;
    int count = 0;
    for (auto _ : state) {
        for (int i = 0; i < PostCount; ++i) {
            QMetaObject::invokeMethod(
                &receiver, [&count] { ++count; }, Qt::QueuedConnection);
        }
        QCoreApplication::processEvents();
    }
    benchmark::DoNotOptimize(count);
}
BENCHMARK(PostQt)->Name("post/Qt")->Unit(benchmark::kMillisecond);

void IdleQt(benchmark::State& state)
{
    NeedQt();
    for (auto _ : state) {
        QCoreApplication::processEvents();
    }
}
BENCHMARK(IdleQt)->Name("idle/Qt");

#ifdef TRS8_BTL_BENCHMARK_QTUITOOLS

std::string UiOf()
{
    std::string text = "<?xml version=\"1.0\"?><ui version=\"4.0\"><class>Sheet</class><widget "
                       "class=\"QDialog\" name=\"Sheet\">";
    for (int i = 0; i < ControlCount; ++i) {
        const char* const names[] = {"QLabel", "QLineEdit", "QPushButton"};
        text += std::string("<widget class=\"") + names[static_cast<std::size_t>(ControlAt(i))] +
                "\" name=\"c" + std::to_string(i) + "\"><property name=\"geometry\"><rect><x>" +
                std::to_string(i % 10 * 80) + "</x><y>" + std::to_string(i / 10 * 24) +
                "</y><width>75</width><height>21</height></rect></property><property name=\"text\">"
                "<string>Limit</string></property></widget>";
    }
    return text + "</widget></ui>";
}

void LoadQt(benchmark::State& state)
{
    NeedQt();
    QByteArray text = QByteArray::fromStdString(UiOf());
    for (auto _ : state) {
        QBuffer buffer(&text);
        buffer.open(QIODevice::ReadOnly);
        QUiLoader loader;
        const std::unique_ptr<QWidget> widget(loader.load(&buffer));
        if (widget == nullptr) {
            state.SkipWithError("the form can't be loaded");
        }
    }
}
BENCHMARK(LoadQt)->Name("load_form/QUiLoader")->Unit(benchmark::kMillisecond);

#endif
#endif

} // namespace
