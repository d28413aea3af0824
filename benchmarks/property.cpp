// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/Buttons.h"
#include "platform/visual/Grids.h"
#include "platform/visual/Stdctrls.h"
#include "platform/visual/stdctrls/Extctrls_Timer.h"
#include "platform/visual/stdctrls/buttons/Extctrls_RadioGroup.h"
#include "platform/visual/stdctrls/panels/Comctrls_PageControl.h"
#include "platform/visual/stdctrls/panels/Comctrls_ProgressBar.h"
#include "platform/visual/stdctrls/panels/Extctrls_Bevel.h"
#include "platform/visual/stdctrls/panels/Extctrls_Panel.h"
#include "platform/visual/stdctrls/pictures/Extctrls_Image.h"
#include "platform/visual/stdctrls/pictures/Extctrls_Shape.h"
#include "properties/values/PROP_Typinfo.h"

#include <benchmark/benchmark.h>

#include <array>
#include <memory>
#include <vector>

#ifdef TRS8_BTL_BENCHMARK_QTWIDGETS
#include <QtWidgets>
#endif

namespace
{

using System::TObject;
using System::UnicodeString;

/// What is read and written: a number, a text, and one more of itself.
class TGauge : public TObject
{
    TRS8_BTL_CLASS(TGauge, TObject)

public:
    int getValue() const { return mValue; }
    void setValue(int value) { mValue = value; }
    UnicodeString getTitle() const { return mTitle; }
    void setTitle(const UnicodeString& title) { mTitle = title; }
    TGauge* getInner() const { return mInner.get(); }
    TGauge* AddInner()
    {
        mInner = std::make_unique<TGauge>();
        return mInner.get();
    }

private:
    int mValue = 7;
    UnicodeString mTitle = u"Pressure";
    std::unique_ptr<TGauge> mInner;
};

System::TMetaClass* TGauge::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TGauge>(u"TGauge")
                                                  .Property(u"Value", &TGauge::getValue, &TGauge::setValue)
                                                  .Property(u"Title", &TGauge::getTitle, &TGauge::setTitle)
                                                  .Property(u"Inner", &TGauge::getInner)
                                                  .Build();
    return record;
}

template <class Act>
void Run(benchmark::State& state, Act act)
{
    TGauge gauge;
    gauge.AddInner()->AddInner();
    for (auto _ : state) {
        act(gauge);
    }
}

void GetNumber(benchmark::State& state)
{
    const UnicodeString name = u"Value";
    Run(state, [&](TGauge& gauge) { benchmark::DoNotOptimize(PROP::GetPropValueAsVariant(&gauge, name)); });
}
BENCHMARK(GetNumber)->Name("property_get_number/ours");

void SetNumber(benchmark::State& state)
{
    const UnicodeString name = u"Value";
    int value = 0;
    Run(state, [&](TGauge& gauge) { Typinfo::SetOrdProp(&gauge, name, ++value); });
}
BENCHMARK(SetNumber)->Name("property_set_number/ours");

void GetText(benchmark::State& state)
{
    const UnicodeString name = u"Title";
    Run(state,
        [&](TGauge& gauge) { benchmark::DoNotOptimize(PROP::GetPropValueAsString(&gauge, name, false)); });
}
BENCHMARK(GetText)->Name("property_get_text/ours");

void SetText(benchmark::State& state)
{
    const UnicodeString name = u"Title";
    const UnicodeString value = u"Temperature";
    Run(state, [&](TGauge& gauge) { PROP::SetPropValueFromString(&gauge, name, value); });
}
BENCHMARK(SetText)->Name("property_set_text/ours");

void SetNumberText(benchmark::State& state)
{
    const UnicodeString name = u"Value";
    const UnicodeString value = u"1234";
    Run(state, [&](TGauge& gauge) { PROP::SetPropValueFromString(&gauge, name, value); });
}
BENCHMARK(SetNumberText)->Name("property_set_number_text/ours");

/// The goal is 3.5 of one name.
void GetPath(benchmark::State& state)
{
    const UnicodeString path = u"Inner.Inner.Title";
    Run(state, [&](TGauge& gauge) {
        benchmark::DoNotOptimize(PROP::GetPropPathValueAsString(&gauge, path, false));
    });
}
BENCHMARK(GetPath)->Name("property_path_of_three/ours");
BENCHMARK(GetText)->Name("property_path_of_three/one_name");

// A name looked up in objects of many classes.

constexpr std::size_t ComponentCount = 1000;

template <class... Controls>
struct GClasses
{
    static constexpr std::size_t Count = sizeof...(Controls);
};

using COurClasses =
    GClasses<Stdctrls::TLabel, Stdctrls::TEdit, Stdctrls::TMemo, Stdctrls::TButton, Stdctrls::TCheckBox,
             Stdctrls::TRadioButton, Stdctrls::TGroupBox, Stdctrls::TListBox, Stdctrls::TComboBox,
             Extctrls::TPanel, Extctrls::TShape, Extctrls::TBevel, Extctrls::TImage, Extctrls::TTimer,
             Extctrls::TRadioGroup, Buttons::TBitBtn, Buttons::TSpeedButton, Comctrls::TPageControl,
             Comctrls::TProgressBar, Grids::TStringGrid>;

template <class... Controls>
std::vector<std::unique_ptr<Classes::TComponent>> MakeComponents(GClasses<Controls...>)
{
    std::vector<std::unique_ptr<Classes::TComponent>> components;
    while (components.size() < ComponentCount) {
        (components.push_back(std::make_unique<Controls>(nullptr)), ...);
    }
    return components;
}

constexpr std::array Names = {u"Name", u"Hint", u"Visible", u"Left", u"OnClick", u"Nothing"};

void Find(benchmark::State& state)
{
    const auto components = MakeComponents(COurClasses());
    const std::vector<UnicodeString> names(Names.begin(), Names.end());
    for (auto _ : state) {
        for (const auto& component : components) {
            for (const UnicodeString& name : names) {
                benchmark::DoNotOptimize(PROP::GetPropInfo(component.get(), name));
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(components.size() * names.size()));
}
BENCHMARK(Find)->Name("property_find/ours")->Unit(benchmark::kMicrosecond);

#ifdef TRS8_BTL_BENCHMARK_QTWIDGETS

class QGauge : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int value READ value WRITE setValue)
    Q_PROPERTY(QString title READ title WRITE setTitle)

public:
    int value() const { return mValue; }
    void setValue(int value) { mValue = value; }
    QString title() const { return mTitle; }
    void setTitle(const QString& title) { mTitle = title; }

private:
    int mValue = 7;
    QString mTitle = QStringLiteral("Pressure");
};

template <class Act>
void RunQt(benchmark::State& state, Act act)
{
    QGauge gauge;
    for (auto _ : state) {
        act(gauge);
    }
}

void GetNumberQt(benchmark::State& state)
{
    RunQt(state, [](QGauge& gauge) { benchmark::DoNotOptimize(gauge.property("value")); });
}
BENCHMARK(GetNumberQt)->Name("property_get_number/QMetaObject");

void SetNumberQt(benchmark::State& state)
{
    int value = 0;
    RunQt(state, [&](QGauge& gauge) { gauge.setProperty("value", ++value); });
}
BENCHMARK(SetNumberQt)->Name("property_set_number/QMetaObject");

void GetTextQt(benchmark::State& state)
{
    RunQt(state, [](QGauge& gauge) { benchmark::DoNotOptimize(gauge.property("title").toString()); });
}
BENCHMARK(GetTextQt)->Name("property_get_text/QMetaObject");

void SetTextQt(benchmark::State& state)
{
    const QString value = QStringLiteral("Temperature");
    RunQt(state, [&](QGauge& gauge) { gauge.setProperty("title", value); });
}
BENCHMARK(SetTextQt)->Name("property_set_text/QMetaObject");

void SetNumberTextQt(benchmark::State& state)
{
    const QString value = QStringLiteral("1234");
    RunQt(state, [&](QGauge& gauge) { gauge.setProperty("value", value); });
}
BENCHMARK(SetNumberTextQt)->Name("property_set_number_text/QMetaObject");

using CQtClasses = GClasses<QLabel, QLineEdit, QTextEdit, QPushButton, QCheckBox, QRadioButton, QGroupBox,
                            QListWidget, QComboBox, QFrame, QWidget, QSpinBox, QSlider, QDial, QDateEdit,
                            QToolButton, QLCDNumber, QTabWidget, QProgressBar, QTableWidget>;
static_assert(CQtClasses::Count == COurClasses::Count);

template <class... Widgets>
std::vector<std::unique_ptr<QObject>> MakeWidgets(GClasses<Widgets...>)
{
    std::vector<std::unique_ptr<QObject>> widgets;
    while (widgets.size() < ComponentCount) {
        (widgets.push_back(std::make_unique<Widgets>()), ...);
    }
    return widgets;
}

void FindQt(benchmark::State& state)
{
    static int count = 1;
    static char program[] = "bench_property";
    static char* arguments[] = {program, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, arguments);
    const auto widgets = MakeWidgets(CQtClasses());
    constexpr std::array names = {"objectName", "toolTip", "visible", "geometry", "styleSheet", "nothing"};
    for (auto _ : state) {
        for (const auto& widget : widgets) {
            for (const char* const name : names) {
                benchmark::DoNotOptimize(widget->metaObject()->indexOfProperty(name));
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(widgets.size() * names.size()));
}
BENCHMARK(FindQt)->Name("property_find/QMetaObject")->Unit(benchmark::kMicrosecond);

#endif

} // namespace

#ifdef TRS8_BTL_BENCHMARK_QTWIDGETS
#include "property.moc"
#endif
