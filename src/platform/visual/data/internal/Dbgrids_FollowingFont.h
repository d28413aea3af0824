// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/Graphics_Font.h"

#include <memory>

namespace Dbgrids
{

/// A font that is another one until somebody changes it.
class CFollowingFont
{
public:
    CFollowingFont() = default;
    CFollowingFont(const CFollowingFont&) = delete;
    CFollowingFont& operator=(const CFollowingFont&) = delete;

    /// Called after a change by whoever has the font.
    Classes::TNotifyEvent OnChange;

    bool IsOwn() const noexcept { return mIsOwn; }
    /// The font to change.
    Graphics::TFont* Get(const Graphics::TFont& followed)
    {
        if (mFont == nullptr) {
            mFont = std::make_unique<Graphics::TFont>();
            mFont->setOnChange({this, &CFollowingFont::Changed});
        }
        if (!mIsOwn) {
            mIsFollowing = true;
            mFont->Assign(const_cast<Graphics::TFont*>(&followed));
            mIsFollowing = false;
        }
        return mFont.get();
    }
    /// The font to show.
    const Graphics::TFont& Shown(const Graphics::TFont& followed) const noexcept
    {
        return mIsOwn ? *mFont : followed;
    }
    /// Null has it follow again.
    void Set(Graphics::TFont* font, const Graphics::TFont& followed)
    {
        if (font == nullptr) {
            mIsOwn = false;
        } else {
            Get(followed)->Assign(font);
        }
    }

private:
    void Changed(System::TObject* sender)
    {
        if (!mIsFollowing) {
            mIsOwn = true;
            if (OnChange) {
                OnChange(sender);
            }
        }
    }

    std::unique_ptr<Graphics::TFont> mFont;
    bool mIsOwn = false;
    bool mIsFollowing = false;
};

} // namespace Dbgrids
