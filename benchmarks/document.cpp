// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "properties/documents/PROP_RsrcDoc.h"
#include "properties/values/PROP_Filter.h"
#include "support/BenchmarkFile.h"

#include <benchmark/benchmark.h>

#ifdef TRS8_BTL_BENCHMARK_QTWIDGETS
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMetaProperty>
#include <QPushButton>
#include <map>
#include <memory>
#include <vector>
#endif

namespace
{

// A snapshot of a form of labels, edits and buttons by turns, and what differs from its design. The goals are
// linear growth and 1.5 of a walk through the same properties.

template <class Control>
void Place(Forms::TForm& form, int index)
{
    auto* const control = new Control(&form);
    control->setName(u"Control" + System::UnicodeString(index));
    control->SetBounds(index % 10 * 80, index / 10 * 24, 75, 21);
    control->setText(u"Limit");
    control->setParent(&form);
}

void Fill(Forms::TForm& form, int count)
{
    form.setName(u"FormMain");
    for (int i = 0; i < count; ++i) {
        i % 3 == 0   ? Place<Stdctrls::TLabel>(form, i)
        : i % 3 == 1 ? Place<Stdctrls::TEdit>(form, i)
                     : Place<Stdctrls::TButton>(form, i);
    }
}

void Snapshot(benchmark::State& state)
{
    Forms::TForm form;
    Fill(form, static_cast<int>(state.range()));
    PROP::CRsrcDoc document(&form, false);
    for (auto _ : state) {
        document.SetCurrent();
        benchmark::DoNotOptimize(document.getObjects().size());
    }
}
BENCHMARK(Snapshot)->Name("form_snapshot/ours")->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMicrosecond);

void Difference(benchmark::State& state)
{
    Forms::TForm form;
    Fill(form, static_cast<int>(state.range()));
    PROP::CRsrcDoc document(&form, true);
    static_cast<Controls::TControl*>(form.GetComponent(7))->setLeft(1);
    for (auto _ : state) {
        document.SetChanges();
        benchmark::DoNotOptimize(document.getObjects().size());
    }
}
BENCHMARK(Difference)->Name("form_difference/ours")->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMicrosecond);

void WriteAndRead(benchmark::State& state)
{
    Forms::TForm form;
    Fill(form, static_cast<int>(state.range()));
    const BenchmarkFile target;
    const System::UnicodeString file = target.Name();
    PROP::CRsrcDoc document(&form, PROP::ERsrcDocSetMode::Current);
    for (auto _ : state) {
        Sysutils::DeleteFile(file);
        document.SaveToFile(file);
        PROP::CRsrcDoc read(&form, false);
        read.LoadFromFile(file);
        benchmark::DoNotOptimize(read.getObjects().size());
    }
}
BENCHMARK(WriteAndRead)
    ->Name("form_document_file/ours")
    ->Arg(1'000)
    ->Arg(10'000)
    ->Unit(benchmark::kMillisecond);

#ifdef TRS8_BTL_BENCHMARK_QTWIDGETS

QApplication& Application()
{
    static int count = 3;
    static char program[] = "bench";
    static char platform[] = "-platform";
    static char offscreen[] = "offscreen";
    static char* arguments[] = {program, platform, offscreen, nullptr};
    // Never destroyed: windows of Qt don't outlive it.
    static auto* const application = new QApplication(count, arguments);
    return *application;
}

using CPairs = std::vector<std::pair<QString, QString>>;
using CSnapshot = std::map<QString, CPairs>;

void FillQt(QDialog& form, int count)
{
    form.setObjectName("FormMain");
    for (int i = 0; i < count; ++i) {
        QWidget* const control = i % 3 == 0   ? static_cast<QWidget*>(new QLabel("Limit", &form))
                                 : i % 3 == 1 ? static_cast<QWidget*>(new QLineEdit("Limit", &form))
                                              : static_cast<QWidget*>(new QPushButton("Limit", &form));
        control->setObjectName("Control" + QString::number(i));
        control->setGeometry(i % 10 * 80, i / 10 * 24, 75, 21);
    }
}

/// As many properties as ours has of each control, sought once for each class.
class CWalk
{
public:
    CSnapshot Take(const QDialog& form)
    {
        CSnapshot snapshot;
        for (const QObject* const control : form.children()) {
            CPairs pairs;
            for (const QMetaProperty& property : PropertiesOf(*control->metaObject())) {
                pairs.emplace_back(QString::fromLatin1(property.name()), property.read(control).toString());
            }
            snapshot.emplace(control->objectName(), std::move(pairs));
        }
        return snapshot;
    }

private:
    const std::vector<QMetaProperty>& PropertiesOf(const QMetaObject& meta)
    {
        auto& properties = mProperties[&meta];
        if (properties.empty()) {
            for (const char* const name : {"text", "x", "y", "width", "height", "toolTip", "visible"}) {
                properties.push_back(meta.property(meta.indexOfProperty(name)));
            }
        }
        return properties;
    }

    std::map<const QMetaObject*, std::vector<QMetaProperty>> mProperties;
};

void SnapshotQt(benchmark::State& state)
{
    Application();
    QDialog form;
    FillQt(form, static_cast<int>(state.range()));
    for (auto _ : state) {
        benchmark::DoNotOptimize(CWalk().Take(form).size());
    }
}
BENCHMARK(SnapshotQt)
    ->Name("form_snapshot/QMetaObject")
    ->Arg(1'000)
    ->Arg(10'000)
    ->Unit(benchmark::kMicrosecond);
/// The walk alone: the goal of both is told by it.
BENCHMARK(SnapshotQt)
    ->Name("form_difference/QMetaObject")
    ->Arg(1'000)
    ->Arg(10'000)
    ->Unit(benchmark::kMicrosecond);

#endif

} // namespace
