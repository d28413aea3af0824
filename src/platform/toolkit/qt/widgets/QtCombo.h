// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/qt/QtWindow.h"

namespace Toolkits
{

class CQtItems;
class CQtPainterDevice;
class CComboWidget;
class DrawnItems;

/// A line with a list that opens below it. A text that is too long for Qt is edited and painted by the
/// control.
class CQtCombo final : public CQtWindow
{
public:
    CQtCombo(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings);
    ~CQtCombo() override;

    void SetText(const System::UnicodeString& text) override;
    void SetSelection(int start, int length) override;
    void ShowItems(const WindowItems& items) override;
    void ShowItem(int index) override;
    void SelectItem(int index) override;
    void SetComboTraits(const TComboTraits& traits) override;
    void SetDropped(bool isOpen) override;
    bool ActsByItself() const override { return !mIsTooLong; }

    /// The list opens or closes.
    void TellDrop(bool isOpen);
    /// The items that the control draws; null if it doesn't.
    const DrawnItems* Drawn() const;
    /// Lets the control draw the field, or an item of the list, on a device for that; false if the window is
    /// gone then.
    bool DrawField(CQtPainterDevice& device, const Types::TRect& bounds);
    bool DrawRow(CQtPainterDevice& device, int row, const Types::TRect& bounds, bool isChosen);

protected:
    bool HandleEvent(QEvent& event) override;

private:
    void SetEditable(bool isEditable);
    void TellText(const QString& text);
    void TellSelection();

    CComboWidget* mCombo;
    CQtItems* mItems;
    System::UnicodeString mText;
    /// Whether the list opens or closes because the control says so.
    bool mIsToldSo = false;
    bool mIsTooLong = false;
};

} // namespace Toolkits
