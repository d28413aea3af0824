// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtRichEdit.h"

#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/painting/QtFonts.h"

#include <QTextBlock>
#include <QTextEdit>
#include <QTextList>

#include <utility>

namespace Toolkits
{

namespace
{

/// Between a bullet's begin and the text, in pixels.
constexpr int BulletRoom = 16;

QTextCharFormat FormatOf(const TTextRun& run)
{
    QTextCharFormat format;
    format.setFont(ToQFont(run.font));
    format.setForeground(QColor::fromRgba(run.color));
    return format;
}

QTextBlockFormat FormatOf(const TParagraphRun& run)
{
    QTextBlockFormat format;
    format.setAlignment(ToQtAlignment(run.alignment));
    format.setLeftMargin(run.leftIndent);
    format.setRightMargin(run.rightIndent);
    format.setTextIndent(run.firstIndent);
    return format;
}

void SetBullets(QTextCursor& cursor, bool hasBullets)
{
    const int end = cursor.selectionEnd();
    QTextBlock block = cursor.document()->findBlock(cursor.selectionStart());
    for (; block.isValid() && block.position() <= end; block = block.next()) {
        if ((block.textList() != nullptr) == hasBullets) {
            continue;
        }
        if (hasBullets) {
            QTextListFormat list;
            list.setStyle(QTextListFormat::ListDisc);
            QTextCursor(block).createList(list);
        } else {
            block.textList()->remove(block);
        }
    }
}

} // namespace

CQtRichEdit::CQtRichEdit(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings)
    : GQtMemo(std::move(desktop), settings)
{
    // What comes from elsewhere comes without its looks, which the control couldn't know.
    Memo().setAcceptRichText(false);
    Memo().document()->setIndentWidth(BulletRoom);
    // Qt would take looks back, too, of which the control wouldn't know.
    Memo().setUndoRedoEnabled(false);
}

CQtRichEdit::~CQtRichEdit() = default;

template <class Run, class Format>
void CQtRichEdit::ForEach(QTextCursor& cursor, int start, const std::vector<Run>& runs, Format format)
{
    for (const Run& run : runs) {
        cursor.setPosition(ToWidget(start));
        cursor.setPosition(ToWidget(start + run.length), QTextCursor::KeepAnchor);
        format(cursor, run);
        start += run.length;
    }
}

void CQtRichEdit::ShowFormats(const TTextFormats& formats)
{
    if (!ActsByItself()) {
        return;
    }
    Quietly([&] {
        QTextCursor cursor(Memo().document());
        cursor.beginEditBlock();
        ForEach(cursor, formats.start, formats.chars,
                [](QTextCursor& part, const TTextRun& run) { part.setCharFormat(FormatOf(run)); });
        ForEach(cursor, formats.start, formats.paragraphs, [](QTextCursor& part, const TParagraphRun& run) {
            // The last paragraph of the run ends where the next one begins.
            if (part.selectionEnd() > part.selectionStart() && part.atBlockStart()) {
                part.setPosition(part.selectionEnd() - 1, QTextCursor::KeepAnchor);
            }
            SetBullets(part, false);
            part.setBlockFormat(FormatOf(run));
            SetBullets(part, run.hasBullet);
        });
        cursor.endEditBlock();
    });
}

} // namespace Toolkits
