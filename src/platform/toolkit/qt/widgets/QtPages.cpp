// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtPages.h"

#include "platform/toolkit/Pixels.h"
#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/painting/QtPaintDevice.h"

#include <QPainter>
#include <QProxyStyle>
#include <QResizeEvent>
#include <QStyleOptionTabWidgetFrame>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>
#include <utility>

namespace Toolkits
{

namespace
{

QTabBar::Shape ShapeOf(const TTabs& tabs)
{
    // The sides have the same numbers here and there.
    return static_cast<QTabBar::Shape>(std::clamp(tabs.side, 0, 3));
}

/// As the style of all, but with no more space round a tab's text than the control leaves for it.
class CTightStyle final : public QProxyStyle
{
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        switch (metric) {
        case PM_TabBarTabHSpace:
            return 8;
        case PM_TabBarTabVSpace:
            return 2;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }
};

} // namespace

/// Tabs of the sizes that the control gave them.
class CTabBar final : public QTabBar
{
public:
    explicit CTabBar(QWidget* parent) : QTabBar(parent)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        setDrawBase(false);
        setExpanding(false);
        setUsesScrollButtons(false);
        setElideMode(Qt::ElideNone);
        auto* const style = new CTightStyle;
        style->setParent(this);
        setStyle(style);
    }

    void Show(const TTabs& tabs)
    {
        const int count = static_cast<int>(tabs.tabs.size());
        while (this->count() > count) {
            removeTab(this->count() - 1);
        }
        while (this->count() < count) {
            addTab(QString());
        }
        setShape(ShapeOf(tabs));
        mSizes.resize(tabs.tabs.size());
        for (int i = 0; i < count; ++i) {
            ShowTab(i, tabs.tabs[static_cast<std::size_t>(i)]);
        }
        // Qt always has one.
        mHasChosen = tabs.chosen >= 0;
        setCurrentIndex(tabs.chosen);
        Place(tabs);
    }

protected:
    QSize tabSizeHint(int index) const override
    {
        const auto place = static_cast<std::size_t>(index);
        return place < mSizes.size() ? mSizes[place] : QSize(Hidden, Hidden);
    }
    QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }
    void initStyleOption(QStyleOptionTab* option, int index) const override
    {
        QTabBar::initStyleOption(option, index);
        const bool isChosen = mHasChosen && index == currentIndex();
        option->state.setFlag(QStyle::State_Selected, isChosen);
        option->state.setFlag(QStyle::State_HasFocus, isChosen && parentWidget()->hasFocus());
    }

private:
    /// Qt knows no tab without a size; those out of sight stand in front of the left edge.
    static constexpr int Hidden = 1;

    void ShowTab(int index, const TTab& tab)
    {
        const QSize size(tab.rect.Width(), tab.rect.Height());
        mSizes[static_cast<std::size_t>(index)] = size.isEmpty() ? QSize(Hidden, Hidden) : size;
        const QString text = ToQString(tab.text).left(MostLineUnits);
        if (text != tabText(index)) {
            setTabText(index, text);
        }
        if (tab.picture != nullptr) {
            setIconSize({tab.picture->getWidth(), tab.picture->getHeight()});
            setTabIcon(index, QIcon(QPixmap::fromImage(ViewOf(*tab.picture).copy())));
        } else if (!tabIcon(index).isNull()) {
            setTabIcon(index, QIcon());
        }
        setTabTextColor(index, tab.isHighlighted ? palette().color(QPalette::Link) : QColor());
    }

    void Place(const TTabs& tabs)
    {
        const auto first = static_cast<std::size_t>(std::clamp(tabs.first, 0, std::max(count() - 1, 0)));
        int width = 0;
        int height = 0;
        for (const QSize& size : mSizes) {
            width = std::min(width + size.width(), QWIDGETSIZE_MAX);
            height = std::max(height, size.height());
        }
        const Types::TRect rect = tabs.tabs.empty() ? Types::TRect() : tabs.tabs[first].rect;
        setVisible(!tabs.tabs.empty());
        setGeometry(rect.Left - static_cast<int>(first) * Hidden, rect.Top, width, height);
        // It lays its tabs out for another size alone, not for others of theirs.
        QResizeEvent resized(size(), size());
        resizeEvent(&resized);
    }

    std::vector<QSize> mSizes;
    bool mHasChosen = false;
};

/// The frame of the pages.
class CPagesWidget final : public QWidget
{
public:
    TTabs tabs;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        QStyleOptionTabWidgetFrame option;
        option.initFrom(this);
        option.shape = ShapeOf(tabs);
        option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
        option.rect = ToQRect(tabs.pages);
        style()->drawPrimitive(QStyle::PE_FrameTabWidget, &option, &painter, this);
    }
    void focusInEvent(QFocusEvent*) override { UpdateBar(); }
    void focusOutEvent(QFocusEvent*) override { UpdateBar(); }

private:
    void UpdateBar()
    {
        if (auto* const bar = findChild<QTabBar*>(QString(), Qt::FindDirectChildrenOnly)) {
            bar->update();
        }
    }
};

CQtPages::CQtPages(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings)
    : CQtWindow(std::move(desktop), settings, new CPagesWidget),
      mPages(static_cast<CPagesWidget*>(&Widget())),
      mBar(new CTabBar(mPages)),
      mArrows{new QToolButton(mPages), new QToolButton(mPages)}
{
    mPages->setAutoFillBackground(true);
    mPages->setAcceptDrops(true);
    QObject::connect(mBar, &QTabBar::currentChanged, Context(), [this](int index) { TellChosen(index); });
    for (int i = 0; i < 2; ++i) {
        mArrows[i]->setArrowType(i == 0 ? Qt::LeftArrow : Qt::RightArrow);
        mArrows[i]->setFocusPolicy(Qt::NoFocus);
        mArrows[i]->setAttribute(Qt::WA_NoMousePropagation);
        mArrows[i]->hide();
        QObject::connect(mArrows[i], &QToolButton::clicked, Context(),
                         [this, i] { ScrollTabs(i == 0 ? -1 : 1); });
    }
}

CQtPages::~CQtPages() = default;

bool CQtPages::HandleEvent(QEvent& event)
{
    return event.type() != QEvent::Paint && CQtWindow::HandleEvent(event);
}

void CQtPages::TellChosen(int index)
{
    if (mIsShowing || index < 0) {
        return;
    }
    if (CanBeUsed()) {
        Tell([index](WindowEvents& events) { events.Chosen(index); });
        return;
    }
    // A reader of screens doesn't ask whether the user may.
    mIsShowing = true;
    mBar->setCurrentIndex(mChosen);
    mIsShowing = false;
}

void CQtPages::SetTabs(const TTabs& tabs)
{
    mFirst = tabs.first;
    mChosen = tabs.chosen;
    mPages->tabs = tabs;
    // The pictures are there for now alone.
    mPages->tabs.tabs.clear();
    const bool wasShowing = std::exchange(mIsShowing, true);
    mBar->Show(tabs);
    mIsShowing = wasShowing;
    PlaceArrows(tabs);
    mPages->update();
}

void CQtPages::PlaceArrows(const TTabs& tabs)
{
    const Types::TRect last = tabs.tabs.empty() ? Types::TRect() : tabs.tabs.back().rect;
    const int room = Bounds().Right - Bounds().Left;
    const bool isCut = tabs.first > 0 || last.Right > room;
    const int width = last.Height();
    for (int i = 0; i < 2; ++i) {
        mArrows[i]->setGeometry(room - (2 - i) * width, last.Top, width, last.Height());
        mArrows[i]->setVisible(isCut);
        mArrows[i]->raise();
    }
    mArrows[0]->setEnabled(tabs.first > 0);
    mArrows[1]->setEnabled(last.Right > room && tabs.first + 1 < static_cast<int>(tabs.tabs.size()));
}

void CQtPages::ScrollTabs(int delta)
{
    const int first = mFirst + delta;
    Tell([first](WindowEvents& events) { events.Scrolled(first); });
}

} // namespace Toolkits
