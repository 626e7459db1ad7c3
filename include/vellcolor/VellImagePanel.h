// The picture-list module VellImagePanel.dll: a modal chooser of the .bmp
// pictures in one folder. Five exported functions with undecorated __stdcall
// names; link with libVellImagePanel.dll.a. Strings are in the ANSI code page.
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

// Open forgets the folder and the last choice; Close does the same at the end.
void __stdcall PXImagePanel_Open(void);
void __stdcall PXImagePanel_Close(void);
// The folder whose pictures the chooser lists.
void __stdcall PXImagePanel_SetDirectory(const char* directory);
// Shows the chooser; 1 when the user confirmed a picture, else 0.
int __stdcall PXImagePanel_DoModal(void);
// Writes the chosen file's full path into a buffer of 260 characters.
// Returns 0, leaving the buffer as it was, when nothing was chosen or the
// path does not fit or cannot be spelled in the ANSI code page.
int __stdcall PXImagePanel_GetSelectedImage(char* buffer);

#ifdef __cplusplus
}
#endif
