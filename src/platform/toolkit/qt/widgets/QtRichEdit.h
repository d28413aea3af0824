// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/qt/widgets/QtEdits.h"

class QTextCursor;
class QTextEdit;

namespace Toolkits
{

/// Lines whose characters and paragraphs have formats, which the control tells. It also takes edits back.
class CQtRichEdit final : public GQtMemo<QTextEdit>
{
public:
    CQtRichEdit(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings);
    ~CQtRichEdit() override;

    void ShowFormats(const TTextFormats& formats) override;

private:
    /// Calls `format` with what each run covers.
    template <class Run, class Format>
    void ForEach(QTextCursor& cursor, int start, const std::vector<Run>& runs, Format format);
};

} // namespace Toolkits
