// The in-memory picture: 1 byte per pixel with a palette, or 3 bytes per pixel
// (blue, green, red). Rows are stored bottom-up as in a Windows DIB, each row
// padded with zeros to a multiple of 4 bytes. Every buffer comes from malloc.
#pragma once

#include <cstddef>

#ifdef _WIN32
// The handle types of <windows.h>, without including it here.
struct HDC__;
struct HBITMAP__;
struct HWND__;
#endif

class BitmapImage {
  public:
    BitmapImage();
    ~BitmapImage();
    BitmapImage(const BitmapImage&) = delete;
    BitmapImage& operator=(const BitmapImage&) = delete;

    // An empty image on the C runtime heap, and its counterpart.
    static BitmapImage* NewEmpty();
    static void Delete(BitmapImage* image);

    void Clear();
    int Create(int width, int height, int bytesPerPixel, int paletteCount);

    int GetWidth() const { return width; }
    int GetHeight() const { return height; }
    int GetBytesPerPixel() const { return bytesPerPixel; }
    int GetPaletteCount() const { return paletteCount; }

    void SetPaletteEntry(int index, unsigned char r, unsigned char g, unsigned char b);
    // No bounds checks: the caller keeps x and y inside the image.
    unsigned char* PixelAt(int x, int y) const { return pixels + y * stride + x * bytesPerPixel; }
    void SetBits(unsigned int byteCount, const unsigned char* rows, int sourceStride,
                 int sourceBitsPerPixel);
    int Copy(const BitmapImage& source);
    int ConvertTo24Bit();

    // Loads a .bmp file; the path is UTF-8.
    int LoadFile(const char* path);
    // Reads a packed DIB (information header, color table, pixels) that
    // occupies `size` bytes at `dib`. Nothing outside that range is read.
    int SetFromPackedDIB(const unsigned char* dib, std::size_t size);

#ifdef _WIN32
    // Drawing on Windows. Only 3-byte images draw correctly; every path that
    // shows an image converts it first.
    // A device-dependent bitmap of the pixels, for `dc`; the caller deletes it.
    HBITMAP__* CreateDeviceBitmap(HDC__* dc) const;
    // Copies the image rectangle (x0, y0)-(x1, y1), y counted from the
    // bottom row, to the same place of `dc`.
    void DrawRegion(HDC__* dc, int x0, int y0, int x1, int y1) const;
    // Stretches the whole picture into a box of that size at the origin,
    // keeping its proportions and centring it.
    void DrawFit(HDC__* dc, int boxWidth, int boxHeight) const;

    // Reads the packed DIB in the movable global memory block `block`; the
    // block's size bounds every read. -2 when the block cannot be locked.
    // Unless `keepBlock`, the block is the image's to free, and it is freed
    // on every path, a failed lock included.
    int SetFromDIB(void* block, bool keepBlock);
    // Reads the clipboard's DIB (the clipboard keeps its block). A clipboard
    // with only a device-dependent bitmap gives 0 and leaves the image as it
    // was; -11 when neither is offered, -1 when the clipboard cannot be
    // opened or its data fetched.
    int ReadClipboard(HWND__* owner);
#endif

  private:
    int Allocate(int width, int height, int bytesPerPixel, int paletteCount, bool zeroPixels);

  public:
    char* name;
    int width;
    int height;
    int bytesPerPixel;
    int stride;
    int paletteCount;
    unsigned char* palette;  // paletteCount entries of red, green, blue
    unsigned int pixelBytes;
    unsigned char* pixels;
};
