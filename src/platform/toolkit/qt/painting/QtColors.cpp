// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/painting/QtColors.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>

#include <array>

namespace Toolkits
{

namespace
{

struct TRole
{
    QPalette::ColorRole role;
    QPalette::ColorGroup group = QPalette::Active;
};

/// By the numbers of the colours: scroll bar, desktop, captions, menus, windows, frames, selections, buttons,
/// hints.
constexpr std::array<TRole, 31> Roles = {{{QPalette::Window},
                                          {QPalette::Dark},
                                          {QPalette::Highlight},
                                          {QPalette::Window, QPalette::Inactive},
                                          {QPalette::Window},
                                          {QPalette::Base},
                                          {QPalette::Shadow},
                                          {QPalette::WindowText},
                                          {QPalette::Text},
                                          {QPalette::HighlightedText},
                                          {QPalette::Window},
                                          {QPalette::Window, QPalette::Inactive},
                                          {QPalette::Mid},
                                          {QPalette::Highlight},
                                          {QPalette::HighlightedText},
                                          {QPalette::Window},
                                          {QPalette::Dark},
                                          {QPalette::Text, QPalette::Disabled},
                                          {QPalette::ButtonText},
                                          {QPalette::WindowText, QPalette::Inactive},
                                          {QPalette::Light},
                                          {QPalette::Shadow},
                                          {QPalette::Midlight},
                                          {QPalette::ToolTipText},
                                          {QPalette::ToolTipBase},
                                          {QPalette::Window},
                                          {QPalette::Link},
                                          {QPalette::Highlight},
                                          {QPalette::Window, QPalette::Inactive},
                                          {QPalette::Highlight},
                                          {QPalette::Window}}};

/// By the numbers of the shapes, -1 first.
constexpr std::array Shapes = {
    Qt::BlankCursor,        Qt::ArrowCursor,    Qt::CrossCursor,     Qt::IBeamCursor,   Qt::ArrowCursor,
    Qt::SizeBDiagCursor,    Qt::SizeVerCursor,  Qt::SizeFDiagCursor, Qt::SizeHorCursor, Qt::UpArrowCursor,
    Qt::WaitCursor,         Qt::DragMoveCursor, Qt::ForbiddenCursor, Qt::SplitHCursor,  Qt::SplitVCursor,
    Qt::DragCopyCursor,     Qt::WaitCursor,     Qt::ForbiddenCursor, Qt::BusyCursor,    Qt::WhatsThisCursor,
    Qt::PointingHandCursor, Qt::SizeAllCursor};

} // namespace

TPixel PaletteColor(int index)
{
    const auto place = static_cast<std::size_t>(index);
    if (place >= Roles.size()) {
        return OpaquePixel(0, 0, 0);
    }
    const TRole& row = Roles[place];
    return QGuiApplication::palette().color(row.group, row.role).rgb() | OpaquePixel(0, 0, 0);
}

Qt::CursorShape ToQtCursor(int cursor)
{
    const auto place = static_cast<std::size_t>(-1LL - cursor);
    return place < Shapes.size() ? Shapes[place] : Qt::ArrowCursor;
}

} // namespace Toolkits
