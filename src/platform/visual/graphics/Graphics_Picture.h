// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/visual/graphics/Graphics_Graphic.h"

namespace Graphics
{

class TBitmap;
class TIcon;
class TMetafile;

/// A place for a picture of any class.
///
///     picture->LoadFromFile(u"logo.png");                         // the extension tells the class
///     if (picture->getGraphic() != nullptr) { ... }
class TRS8_BTL_API TPicture : public Classes::TPersistent
{
    TRS8_BTL_CLASS(TPicture, Classes::TPersistent)

public:
    TPicture() = default;
    ~TPicture() override;

    /// Takes a copy of another one's graphic, or of a graphic; null makes it empty.
    void Assign(TPersistent* source) override;
    /// Hands the graphic to a graphic as target.
    void AssignTo(TPersistent* target) const override;

    /// The graphic, null if there is none; the picture owns it. Writing copies.
    TGraphic* getGraphic() const noexcept { return mGraphic.get(); }
    void setGraphic(TGraphic* graphic);
    /// The graphic as one of that class. A graphic of another class, or none, gives way to a new, empty one.
    TBitmap* getBitmap();
    void setBitmap(TBitmap* bitmap);
    TIcon* getIcon();
    void setIcon(TIcon* icon);
    TMetafile* getMetafile();
    void setMetafile(TMetafile* metafile);
    /// 0 without a graphic.
    int getWidth() const;
    int getHeight() const;

    /// Makes a graphic of the class that the extension is registered for and loads it. `EInvalidGraphic` for
    /// an unknown extension or a damaged file, `EFOpenError` if it can't be opened; the picture stays as it
    /// was then.
    void LoadFromFile(const System::UnicodeString& path);
    /// Nothing happens without a graphic.
    void SaveToFile(const System::UnicodeString& path);
    /// The form in which a property is stored: the name of the graphic's class, then what that stores itself.
    /// `EInvalidGraphic` for a class that is no registered one, and for what it can't read; the picture stays
    /// as it was then.
    void ReadData(Classes::TStream* stream);
    void WriteData(Classes::TStream* stream) const;

    const Classes::TNotifyEvent& getOnChange() const noexcept { return mOnChange; }
    /// Called after each change, of the graphic too.
    void setOnChange(const Classes::TNotifyEvent& event) { mOnChange = event; }

    /// Lets files of the extension, without a point, be loaded as graphics of the class, in place of a class
    /// that was registered before. A class that makes no instances, or none of graphics, raises
    /// `EInvalidGraphicOperation`.
    static void RegisterFileFormat(const System::UnicodeString& extension,
                                   const System::UnicodeString& description, System::TMetaClass* type);
    static void UnregisterGraphicClass(System::TMetaClass* type);

protected:
    /// Class and graphic as a binary property "Data", unless there is none or it is as that of the ancestor.
    void DefineProperties(Classes::TFiler& filer) override;
    virtual void Changed(System::TObject* sender);

private:
    template <class Graphic>
    Graphic* Forced();
    void TakeGraphic(System::GOwner<TGraphic> graphic);

    System::GOwner<TGraphic> mGraphic;
    Classes::TNotifyEvent mOnChange;
};

/// A filter for a file dialog with the registered formats of the class and of those derived from it.
TRS8_BTL_API System::UnicodeString GraphicFilter(const System::TMetaClass* type);
/// The extensions of these formats as "*.bmp;*.ico".
TRS8_BTL_API System::UnicodeString GraphicFileMask(const System::TMetaClass* type);
/// The first registered extension of the class; empty if it has none.
TRS8_BTL_API System::UnicodeString GraphicExtension(const System::TMetaClass* type);

} // namespace Graphics
