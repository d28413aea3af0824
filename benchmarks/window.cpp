// SPDX-License-Identifier: MIT
#ifdef TRS8_BTL_BENCHMARK_QTWIDGETS

#include "forms/validators/BTL_TextValidator.h"
#include "platform/toolkit/InputPlayer.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/grids/Grids_StringGrid.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QDialog>
#include <QDoubleValidator>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

// Windows of the plug-in beside plain Qt widgets with the same content, both on Qt's offscreen platform. The
// plug-in is the one of the build.

namespace
{

constexpr int TextCount = 10'000;
constexpr int ControlCount = 1000;
constexpr int GridSide = 1000;
constexpr QSize ViewSize(1000, 700);

void NeedQt()
{
    static int count = 1;
    static char name[] = "bench_window";
    static char* names[] = {name, nullptr};
    setenv("TRS8_BTL_TOOLKIT", "qt", 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // That platform warns of each thing that it can't do.
    setenv("QT_LOGGING_RULES", "*.warning=false", 1);
    static auto* const application = new QApplication(count, names);
    benchmark::DoNotOptimize(application);
}

/// Brings to the screen what is marked in the window.
void Paint(QWidget& window)
{
    QCoreApplication::sendPostedEvents(&window, QEvent::UpdateRequest);
}

/// False, with the reason told, if the windows of the library aren't Qt's.
bool IsOnQt(benchmark::State& state)
{
    NeedQt();
    if (Toolkits::CurrentToolkit().GetInputPlayer() != nullptr) {
        return true;
    }
    state.SkipWithError("the plug-in of Qt can't be loaded");
    return false;
}

// Texts on a canvas.

QPoint PlaceOf(int index)
{
    return {index % 10 * 100, index / 10 % 40 * 17};
}

std::string TextAt(int index)
{
    return "channel " + std::to_string(index);
}

void DrawTexts(benchmark::State& state, Graphics::TBrushStyle style)
{
    if (!IsOnQt(state)) {
        return;
    }
    std::vector<System::UnicodeString> texts;
    for (int i = 0; i < TextCount; ++i) {
        texts.emplace_back(TextAt(i).c_str());
    }
    Forms::TForm form;
    form.SetBounds(0, 0, ViewSize.width(), ViewSize.height());
    int drawn = 0;
    form.OnPaint = [&](System::TObject*) {
        Graphics::TCanvas& canvas = *form.getCanvas();
        canvas.getBrush()->setStyle(style);
        for (int i = 0; i < TextCount; ++i) {
            const QPoint place = PlaceOf(i);
            canvas.TextOut(place.x(), place.y(), texts[static_cast<std::size_t>(i)]);
        }
        ++drawn;
    };
    form.Show();
    Forms::Application->ProcessMessages();
    for (auto _ : state) {
        form.Invalidate();
        form.Update();
    }
    if (drawn < static_cast<int>(state.iterations())) {
        state.SkipWithError("nothing was painted");
    }
}

void DrawTextsOurs(benchmark::State& state)
{
    DrawTexts(state, Graphics::bsClear);
}
BENCHMARK(DrawTextsOurs)->Name("draw_texts/ours")->Unit(benchmark::kMillisecond);

void DrawOpaqueTextsOurs(benchmark::State& state)
{
    DrawTexts(state, Graphics::bsSolid);
}
BENCHMARK(DrawOpaqueTextsOurs)->Name("draw_opaque_texts/ours")->Unit(benchmark::kMillisecond);

class TextsWidget final : public QWidget
{
public:
    explicit TextsWidget(Qt::BGMode mode) : mMode(mode)
    {
        for (int i = 0; i < TextCount; ++i) {
            mTexts.push_back(QString::fromStdString(TextAt(i)));
        }
        // What forms of the library have at first.
        mFont = font();
        mFont.setFamily(QStringLiteral("Tahoma"));
        mFont.setPixelSize(11);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setFont(mFont);
        painter.setBackgroundMode(mMode);
        const int ascent = painter.fontMetrics().ascent();
        for (int i = 0; i < TextCount; ++i) {
            painter.drawText(PlaceOf(i) + QPoint(0, ascent), mTexts[static_cast<std::size_t>(i)]);
        }
    }

private:
    Qt::BGMode mMode;
    QFont mFont;
    std::vector<QString> mTexts;
};

void DrawTextsQt(benchmark::State& state, Qt::BGMode mode)
{
    NeedQt();
    TextsWidget widget(mode);
    widget.resize(ViewSize);
    widget.show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        widget.update();
        Paint(widget);
    }
}

void DrawTextsQPainter(benchmark::State& state)
{
    DrawTextsQt(state, Qt::TransparentMode);
}
BENCHMARK(DrawTextsQPainter)->Name("draw_texts/QPainter")->Unit(benchmark::kMillisecond);

void DrawOpaqueTextsQPainter(benchmark::State& state)
{
    DrawTextsQt(state, Qt::OpaqueMode);
}
BENCHMARK(DrawOpaqueTextsQPainter)->Name("draw_opaque_texts/QPainter")->Unit(benchmark::kMillisecond);

// A million cells that scroll by one row a frame. Sixty frames a second are 16.6 ms each.

void ScrollGrid(benchmark::State& state)
{
    if (!IsOnQt(state)) {
        return;
    }
    Forms::TForm form;
    form.SetBounds(0, 0, ViewSize.width(), ViewSize.height());
    auto* const grid = new Grids::TStringGrid(&form);
    grid->setColCount(GridSide);
    grid->setRowCount(GridSide);
    grid->setDefaultRowHeight(20);
    for (int row = 0; row < GridSide; ++row) {
        for (int col = 0; col < GridSide; ++col) {
            grid->setCells(col, row, System::UnicodeString(row * GridSide + col));
        }
    }
    grid->setAlign(Controls::alClient);
    grid->setParent(&form);
    form.Show();
    Forms::Application->ProcessMessages();
    for (auto _ : state) {
        grid->setTopRow(1 + grid->getTopRow() % (GridSide / 2));
        grid->Update();
    }
}
BENCHMARK(ScrollGrid)->Name("scroll_grid/ours")->Unit(benchmark::kMillisecond);

class Numbers final : public QAbstractTableModel
{
public:
    int rowCount(const QModelIndex&) const override { return GridSide; }
    int columnCount(const QModelIndex&) const override { return GridSide; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        return role == Qt::DisplayRole ? QString::number(index.row() * GridSide + index.column())
                                       : QVariant();
    }
};

void ScrollTable(benchmark::State& state)
{
    NeedQt();
    Numbers numbers;
    QTableView view;
    view.setModel(&numbers);
    view.resize(ViewSize);
    // As many cells as the grid shows.
    for (QHeaderView* const header : {view.horizontalHeader(), view.verticalHeader()}) {
        header->setMinimumSectionSize(1);
        header->setDefaultSectionSize(header->orientation() == Qt::Horizontal ? 65 : 21);
    }
    view.show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        QScrollBar& bar = *view.verticalScrollBar();
        bar.setValue(1 + bar.value() % (GridSide / 2));
        Paint(view);
    }
}
BENCHMARK(ScrollTable)->Name("scroll_grid/QTableView")->Unit(benchmark::kMillisecond);

// A form with labels, edits and buttons by turns, made, shown, painted and destroyed.

QRect BoundsOf(int index)
{
    return {index % 10 * 80, index / 10 * 24, 75, 21};
}

template <class Control>
void Place(Forms::TForm& form, int index)
{
    const QRect bounds = BoundsOf(index);
    auto* const control = new Control(&form);
    control->SetBounds(bounds.x(), bounds.y(), bounds.width(), bounds.height());
    control->setText(u"Limit");
    control->setParent(&form);
}

void ShowForm(benchmark::State& state)
{
    if (!IsOnQt(state)) {
        return;
    }
    for (auto _ : state) {
        Forms::TForm form;
        form.SetBounds(0, 0, ViewSize.width(), ViewSize.height());
        for (int i = 0; i < ControlCount; i += 3) {
            Place<Stdctrls::TLabel>(form, i);
            Place<Stdctrls::TEdit>(form, i + 1);
            Place<Stdctrls::TButton>(form, i + 2);
        }
        form.Show();
        Forms::Application->ProcessMessages();
    }
}
BENCHMARK(ShowForm)->Name("show_window/ours")->Unit(benchmark::kMillisecond);

template <class Widget>
void PlaceQt(QDialog& dialog, int index)
{
    auto* const widget = new Widget(QStringLiteral("Limit"), &dialog);
    widget->setGeometry(BoundsOf(index));
}

void ShowQt(benchmark::State& state)
{
    NeedQt();
    for (auto _ : state) {
        QDialog dialog;
        dialog.resize(ViewSize);
        for (int i = 0; i < ControlCount; i += 3) {
            PlaceQt<QLabel>(dialog, i);
            PlaceQt<QLineEdit>(dialog, i + 1);
            PlaceQt<QPushButton>(dialog, i + 2);
        }
        dialog.show();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(ShowQt)->Name("show_window/Qt")->Unit(benchmark::kMillisecond);

// From a key to what it changed on the screen, in an edit with a validator for numbers: digits, then as many
// deletions.

constexpr int DigitCount = 8;

/// Calls `press` with keys by turns, and tells what the one in the middle took.
template <class Press>
void TypeKeys(benchmark::State& state, Press press)
{
    std::vector<double> times;
    int turn = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        press(turn < DigitCount);
        const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
        times.push_back(time.count());
        turn = (turn + 1) % (2 * DigitCount);
    }
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    state.SetLabel("median " + std::to_string(static_cast<int>(*middle)) + " us");
}

void TypeOurs(benchmark::State& state)
{
    if (!IsOnQt(state)) {
        return;
    }
    BTL::CFloatTextValidator validator(0, 0);
    validator.setTestsEmpty(false);
    Forms::TForm form;
    auto* const edit = new Stdctrls::TEdit(&form);
    edit->setParent(&form);
    edit->setText({});
    edit->OnKeyDown = [&](System::TObject* sender, System::Word& key, Classes::TShiftState shift) {
        validator.KeyDown(sender, key, shift);
    };
    edit->OnChange = [&](System::TObject* sender) { validator.Change(sender); };
    form.Show();
    edit->SetFocus();
    Forms::Application->ProcessMessages();
    Toolkits::Window& window = *edit->GetWindow();
    Toolkits::InputPlayer& player = *Toolkits::CurrentToolkit().GetInputPlayer();
    TypeKeys(state, [&](bool isDigit) {
        player.PressKey(window, isDigit ? 0 : VK_BACK, isDigit ? u'7' : u'\b', {});
        edit->Update();
    });
}
BENCHMARK(TypeOurs)->Name("type_key/ours")->Unit(benchmark::kMicrosecond);

void TypeQt(benchmark::State& state)
{
    NeedQt();
    QWidget window;
    window.resize(320, 240);
    QDoubleValidator validator;
    QLineEdit edit(&window);
    edit.setValidator(&validator);
    window.show();
    edit.setFocus();
    QCoreApplication::processEvents();
    TypeKeys(state, [&](bool isDigit) {
        const int key = isDigit ? Qt::Key_7 : Qt::Key_Backspace;
        const QString text = isDigit ? QStringLiteral("7") : QStringLiteral("\b");
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, {}, text);
            QCoreApplication::sendEvent(&edit, &event);
        }
        Paint(window);
    });
}
BENCHMARK(TypeQt)->Name("type_key/Qt")->Unit(benchmark::kMicrosecond);

} // namespace

#endif
