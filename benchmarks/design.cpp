// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_FormText.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "properties/resources/Paso_component.h"
#include "properties/resources/Paso_savecomponent.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace
{

constexpr int ControlCount = 1000;

/// A form whose design fills it with controls.
class TFullForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TFullForm, Forms::TForm)

public:
    explicit TFullForm(Classes::TComponent* owner = nullptr) : TForm(owner) { ReadDesign(); }

    void ControlClick(System::TObject*) {}
};

System::TMetaClass* TFullForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TFullForm>(u"TFullForm")
                                                  .Method(u"ControlClick", &TFullForm::ControlClick)
                                                  .Build();
    return record;
}

/// Derived, with a design that changes some of them.
class TChangedForm : public TFullForm
{
    TRS8_BTL_CLASS(TChangedForm, TFullForm)

public:
    explicit TChangedForm(Classes::TComponent* owner = nullptr) : TFullForm(owner) { ReadDesign(); }
};

System::TMetaClass* TChangedForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TChangedForm>(u"TChangedForm").Build();
    return record;
}

std::string FullText()
{
    std::string text = "object FullForm: TFullForm\n  Caption = 'Limits'\n  ClientWidth = 800\n"
                       "  ClientHeight = 2400\n";
    for (int i = 0; i < ControlCount; ++i) {
        constexpr const char* Classes[] = {"TLabel", "TEdit", "TButton"};
        const char* const type = Classes[i % 3];
        text += "  object Control" + std::to_string(i) + ": " + type +
                "\n    Left = " + std::to_string(i % 10 * 80) + "\n    Top = " + std::to_string(i / 10 * 24) +
                "\n    Width = 75\n    Height = 21\n    Hint = 'Limit'\n    OnClick = ControlClick\n  end\n";
    }
    return text + "end\n";
}

std::string ChangedText()
{
    std::string text = "inherited ChangedForm: TChangedForm\n";
    for (int i = 0; i < ControlCount; i += 30) {
        text += "  inherited Control" + std::to_string(i) + ": TLabel\n    Left = 5\n  end\n";
    }
    return text + "end\n";
}

/// The design of a class while a case runs.
class CDesign
{
public:
    CDesign(const char* className, const std::string& text) : mClass(className)
    {
        Classes::TMemoryStream source;
        source.WriteBuffer(text.data(), static_cast<System::Int64>(text.size()));
        source.setPosition(0);
        Classes::TMemoryStream binary;
        Classes::ObjectTextToBinary(&source, &binary);
        mBytes = binary.AsView();
        Classes::Detail::RegisterForm(mClass, mBytes.data(), mBytes.size());
    }
    CDesign(const CDesign&) = delete;
    CDesign& operator=(const CDesign&) = delete;
    ~CDesign() { Classes::Detail::UnregisterForm(mClass, mBytes.data(), mBytes.size()); }

private:
    const char* mClass;
    std::string mBytes;
};

/// Makes and destroys a form for each turn.
template <class Make>
void RunMaking(benchmark::State& state, Make make)
{
    const CDesign design("TFullForm", FullText());
    for (auto _ : state) {
        const std::unique_ptr<Classes::TComponent> form(make());
        benchmark::DoNotOptimize(form->GetComponentCount());
    }
}

void Build(benchmark::State& state)
{
    RunMaking(state, [] { return PASO::BuildComponent(System::ClassOf<TFullForm>(), false); });
}
BENCHMARK(Build)->Name("build_design/ours")->Unit(benchmark::kMillisecond);

void Construct(benchmark::State& state)
{
    RunMaking(state, [] { return new TFullForm; });
}
BENCHMARK(Construct)->Name("build_design/constructor")->Unit(benchmark::kMillisecond);

/// Writes a form for each turn.
template <class Save>
void RunSaving(benchmark::State& state, Save save)
{
    const CDesign full("TFullForm", FullText());
    const CDesign changed("TChangedForm", ChangedText());
    TChangedForm form;
    for (auto _ : state) {
        Classes::TMemoryStream stream;
        save(form, stream);
        benchmark::DoNotOptimize(stream.AsView().data());
    }
}

void SaveDifference(benchmark::State& state)
{
    RunSaving(state, [](TChangedForm& form, Classes::TMemoryStream& stream) {
        PASO::SaveComponentToStream(&form, &stream, false);
    });
}
BENCHMARK(SaveDifference)->Name("save_difference/ours")->Unit(benchmark::kMillisecond);

void SaveWhole(benchmark::State& state)
{
    RunSaving(state, [](TChangedForm& form, Classes::TMemoryStream& stream) {
        const TFullForm ancestor;
        PASO::SaveComponentToStream(&form, nullptr, &stream, false);
    });
}
BENCHMARK(SaveWhole)->Name("save_difference/constructor_and_whole")->Unit(benchmark::kMillisecond);

} // namespace
