// The image source panel: the picture for image mapping and the image-based
// isoline patterns, from the picture list, a bitmap file or the clipboard,
// with a small preview.
#pragma once

#include <windows.h>

#include <string>

#include "framework/Dialog.h"

class BitmapImage;

class CDlgImageSource : public Dialog {
  public:
    CDlgImageSource();
    ~CDlgImageSource() override;

    // The chosen picture, or null before the first choice. A failed load
    // leaves an image without pixels.
    BitmapImage* GetImage() const { return image; }

  protected:
    BOOL OnInitDialog() override;
    bool OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

  private:
    void OnImageList();
    void OnImageFile();
    void OnClipboard();
    // Replaces the image by the picture at `utf8Path`, in 24-bit color; false
    // (after telling the user) when it cannot be read.
    bool LoadPicture(const std::string& utf8Path);
    void ReplaceImage(BitmapImage* replacement);
    void PaintPreview() const;

    BitmapImage* image;
};
