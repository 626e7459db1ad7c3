// The modal picture chooser: the .bmp pictures of one folder as thumbnails
// with their names.
#pragma once

#include <windows.h>

#include <string>

// Shows the chooser over `owner`. Returns true and the chosen file's full
// path when the user confirms a picture.
bool ChoosePicture(HINSTANCE instance, HWND owner, const std::wstring& directory,
                   std::wstring* chosen);
