// Resource ids of the picture chooser; the tests find its controls by them.
#pragma once

#define IDD_IMAGE_PANEL 100
#define IDC_PICTURE_LIST 1001
#define IDC_PICTURE_MESSAGE 1002
