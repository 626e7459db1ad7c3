// libFuzzer target: the packed-DIB reader over arbitrary bytes, then the conversion and
// copy of whatever it accepted. The bytes are the whole block, as a global memory
// block's size bounds it on Windows, so any read past them is caught.
#include <cstddef>
#include <cstdint>

#include "vellcolor/BitmapImage.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    BitmapImage image;
    if (image.SetFromPackedDIB(data, size) != 0) return 0;
    BitmapImage copy;
    copy.Copy(image);
    copy.ConvertTo24Bit();
    return 0;
}
