// Error codes returned by the parameter classes and the bitmap image.
#pragma once

enum ErrorCode {
    kOk = 0,
    kErrorGeneral = -1,
    kErrorOutOfMemory = -2,
    kErrorOutOfBounds = -3,
    kErrorInvalidParameter = -4,
    kErrorFileOpen = -5,
    kErrorFileRead = -6,
    kErrorFileWrite = -7,
    kErrorUnsupportedFormat = -8,
    kErrorVersion = -9,
    kErrorMaximumExceeded = -10,
    kErrorNoData = -11,
};

// The user-facing text of a code (UTF-8), or null for 0 and unknown codes.
const char* ErrorMessageText(int code);
