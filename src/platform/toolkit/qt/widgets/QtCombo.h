// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/qt/widgets/QtLine.h"

namespace Toolkits
{

class CQtItems;
class CQtPainterDevice;
class CComboWidget;
class DrawnItems;

/// A line with a list that opens below it.
class CQtCombo final : public AQtLine
{
public:
    CQtCombo(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings);
    ~CQtCombo() override;

    void SetText(const System::UnicodeString& text) override;
    void ShowItems(const WindowItems& items) override;
    void ShowItem(int index) override;
    void SelectItem(int index) override;
    void SetComboTraits(const TComboTraits& traits) override;
    void SetDropped(bool isOpen) override;
    /// The control chooses by keys as it does on each toolkit; the line is edited here.
    bool ActsOnKeys() const override;

    /// Has Qt choose the item that the control has chosen.
    void ShowIndex();
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
    bool IsToldOtherwise() const override;

private:
    void SetEditable(bool isEditable);
    /// Does what Qt may take for a reason to put a text into the line.
    template <class Action>
    void ChangeItems(Action action);

    CComboWidget* mCombo;
    CQtItems* mItems;
    /// The item that the control has chosen, and the one that Qt was given.
    int mIndex = -1;
    int mShownIndex = -1;
    /// Whether the key that is pressed is the control's.
    bool mIsListKey = false;
    /// Whether the list opens or closes because the control says so.
    bool mIsToldSo = false;
};

} // namespace Toolkits
