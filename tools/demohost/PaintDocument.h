// The demo host's document: a 24-bit picture cut into parts, the part the
// user picked, and the history of paints for undo and redo. Portable; the
// window shows it and the notifications paint it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "vellcolor/BitmapImage.h"
#include "vellcolor/VellRender.h"

namespace demohost {

// A rectangle of the picture: left <= x < right, bottom <= y < top, row 0 at
// the bottom as in the picture.
struct Box {
    int left = 0, bottom = 0, right = 0, top = 0;
    bool Empty() const { return right <= left || top <= bottom; }
};

struct DocumentPart {
    std::string name;
    std::vector<unsigned char> coverage;  // one byte per pixel, rows as the picture's
    Box box;                              // holds every nonzero byte
};

// A line between pixel corners: (x0, y0) to (x1, y1), y counted up from the
// bottom edge of the picture.
struct Segment {
    int x0, y0, x1, y1;
};

// Where a part's pixels (those it owns at least half of) meet the rest of
// the picture or its border, as horizontal and vertical runs.
std::vector<Segment> OutlineOf(const DocumentPart& part, int width, int height);

class PaintDocument {
  public:
    // Paints kept for undo; the oldest goes first.
    static const int kHistoryDepth = 32;

    // The sample scene, its shapes the parts. -2 without memory; the
    // document stays as it was.
    int NewScene(int width, int height);
    // The .bmp at `path` (UTF-8) as the picture, one part covering it all,
    // with a new history. On failure returns the reader's error code and
    // nothing changes.
    int Open(const char* path);
    // The picture as a .bmp or a .png file's bytes; "" when the encoder fails.
    std::string Encode(bool png) const;
    // The picture as it stands now is what the file holds.
    void MarkSaved() { savedAt_ = position_; }
    bool Modified() const { return savedAt_ != position_; }

    BitmapImage& image() { return *image_; }
    const BitmapImage& image() const { return *image_; }
    vellrender::Picture Picture() { return vellrender::Picture::Of(*image_); }
    int PartCount() const { return static_cast<int>(parts_.size()); }
    const DocumentPart& Part(int index) const { return parts_[index]; }
    vellrender::Part RenderPart(int index) const;
    // Adds a part in front of the others (its coverage one byte per pixel of
    // the picture) and returns its index.
    int AddPart(const std::string& name, std::vector<unsigned char> coverage);

    // -1 when nothing is selected.
    int selected() const { return selected_; }
    void Select(int index) { selected_ = index >= 0 && index < PartCount() ? index : -1; }
    // The part that owns most of pixel (x, y), or -1 outside the picture.
    int PartAt(int x, int y) const;
    // The next part (+1) or the previous one (-1), round the list.
    void Step(int direction);

    // Lets `paint` draw into the selected part and keeps what its box held
    // before and after for undo. Returns paint's result; a failed paint
    // (nonzero) changes nothing and is not kept. Needs a selected part.
    using Painter = std::function<int(const vellrender::Picture&, const vellrender::Part&)>;
    int PaintSelected(const Painter& paint);

    // Each returns the box it changed, empty when there was nothing to do.
    Box Undo();
    Box Redo();
    bool CanUndo() const { return position_ > 0; }
    bool CanRedo() const { return position_ < static_cast<int>(history_.size()); }

  private:
    struct Change {
        Box box;
        std::vector<unsigned char> before, after;  // the box's pixels, row after row
    };
    void Adopt(std::unique_ptr<BitmapImage>& image, std::vector<DocumentPart>& parts);
    void CopyBox(const Box& box, std::vector<unsigned char>* out) const;
    void PasteBox(const Box& box, const std::vector<unsigned char>& in);

    std::unique_ptr<BitmapImage> image_{new BitmapImage};
    std::vector<DocumentPart> parts_;
    int selected_ = -1;
    std::vector<Change> history_;
    int position_ = 0;  // steps in force: undo takes history_[position_ - 1] back
    int savedAt_ = 0;   // position_ when saved; -1 once that state left the history
};

}  // namespace demohost
