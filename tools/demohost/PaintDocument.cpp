#include "PaintDocument.h"

#include <cstring>
#include <utility>

#include "PictureFiles.h"
#include "SampleScene.h"

namespace demohost {

namespace {

// The box of every nonzero byte of a width x height mask.
Box BoxOf(const std::vector<unsigned char>& coverage, int width, int height) {
    const vellrender::Part part = vellrender::Part::OfMask(coverage.data(), width, height, width);
    Box box;
    box.left = part.left;
    box.bottom = part.bottom;
    box.right = part.right;
    box.top = part.top;
    return box;
}

}  // namespace

std::vector<Segment> OutlineOf(const DocumentPart& part, int width, int height) {
    auto inside = [&](int x, int y) {
        return x >= 0 && y >= 0 && x < width && y < height &&
               part.coverage[static_cast<std::size_t>(y) * width + x] >= 128;
    };
    std::vector<Segment> outline;
    const Box& b = part.box;
    // Along each row boundary y, the runs where the rows below and above differ;
    // then the same along each column boundary.
    for (int y = b.bottom; y <= b.top; ++y) {
        for (int x = b.left; x < b.right;) {
            if (inside(x, y - 1) == inside(x, y)) {
                ++x;
                continue;
            }
            const int start = x;
            while (x < b.right && inside(x, y - 1) != inside(x, y)) ++x;
            outline.push_back({start, y, x, y});
        }
    }
    for (int x = b.left; x <= b.right; ++x) {
        for (int y = b.bottom; y < b.top;) {
            if (inside(x - 1, y) == inside(x, y)) {
                ++y;
                continue;
            }
            const int start = y;
            while (y < b.top && inside(x - 1, y) != inside(x, y)) ++y;
            outline.push_back({x, start, x, y});
        }
    }
    return outline;
}

void PaintDocument::Adopt(std::unique_ptr<BitmapImage>& image, std::vector<DocumentPart>& parts) {
    image_.swap(image);
    parts_.swap(parts);
    for (DocumentPart& part : parts_)
        part.box = BoxOf(part.coverage, image_->width, image_->height);
    selected_ = -1;
    history_.clear();
    position_ = savedAt_ = 0;
}

int PaintDocument::NewScene(int width, int height) {
    std::unique_ptr<BitmapImage> image(new BitmapImage);
    std::vector<vellscene::ScenePart> scene;
    const int made = vellscene::MakeSampleScene(width, height, image.get(), &scene);
    if (made != 0) return made;
    std::vector<DocumentPart> parts(scene.size());
    for (std::size_t i = 0; i < scene.size(); ++i) {
        parts[i].name = scene[i].name;
        parts[i].coverage.swap(scene[i].coverage);
    }
    Adopt(image, parts);
    return 0;
}

int PaintDocument::Open(const char* path) {
    std::unique_ptr<BitmapImage> image(new BitmapImage);
    int result = image->LoadFile(path);
    if (result == 0) result = image->ConvertTo24Bit();
    if (result != 0) return result;
    std::vector<DocumentPart> parts(1);
    parts[0].name = "picture";
    parts[0].coverage.assign(static_cast<std::size_t>(image->width) * image->height, 255);
    Adopt(image, parts);
    return 0;
}

std::string PaintDocument::Encode(bool png) const {
    return png ? vellscene::EncodePng(*image_) : vellscene::EncodeBmp(*image_);
}

int PaintDocument::AddPart(const std::string& name, std::vector<unsigned char> coverage) {
    DocumentPart part;
    part.name = name;
    part.coverage.swap(coverage);
    part.box = BoxOf(part.coverage, image_->width, image_->height);
    parts_.push_back(std::move(part));
    return PartCount() - 1;
}

vellrender::Part PaintDocument::RenderPart(int index) const {
    const DocumentPart& p = parts_[index];
    vellrender::Part part;
    part.coverage = p.coverage.data();
    part.stride = image_->width;
    part.left = p.box.left;
    part.bottom = p.box.bottom;
    part.right = p.box.right;
    part.top = p.box.top;
    return part;
}

int PaintDocument::PartAt(int x, int y) const {
    if (x < 0 || y < 0 || x >= image_->width || y >= image_->height) return -1;
    const std::size_t at = static_cast<std::size_t>(y) * image_->width + x;
    int best = -1;
    for (int i = 0; i < PartCount(); ++i) {
        if (best < 0 || parts_[i].coverage[at] > parts_[best].coverage[at]) best = i;
    }
    return best;
}

void PaintDocument::Step(int direction) {
    const int count = PartCount();
    if (count == 0) return;
    if (selected_ < 0) {
        selected_ = direction > 0 ? 0 : count - 1;
    } else {
        selected_ = (selected_ + (direction > 0 ? 1 : count - 1)) % count;
    }
}

void PaintDocument::CopyBox(const Box& box, std::vector<unsigned char>* out) const {
    const std::size_t row = static_cast<std::size_t>(box.right - box.left) * 3;
    out->resize(row * (box.top - box.bottom));
    for (int y = box.bottom; y < box.top; ++y)
        std::memcpy(&(*out)[row * (y - box.bottom)], image_->PixelAt(box.left, y), row);
}

void PaintDocument::PasteBox(const Box& box, const std::vector<unsigned char>& in) {
    const std::size_t row = static_cast<std::size_t>(box.right - box.left) * 3;
    for (int y = box.bottom; y < box.top; ++y)
        std::memcpy(image_->PixelAt(box.left, y), &in[row * (y - box.bottom)], row);
}

int PaintDocument::PaintSelected(const Painter& paint) {
    if (selected_ < 0) return -4;
    Change change;
    change.box = parts_[selected_].box;
    CopyBox(change.box, &change.before);
    const int result = paint(Picture(), RenderPart(selected_));
    if (result != 0) return result;
    // The box as painted is copied only when the step is undone (see Undo):
    // a second copy of a large box here would slow every paint.
    // A new paint ends the redo branch; the oldest paint leaves a full history.
    history_.resize(position_);
    if (savedAt_ > position_) savedAt_ = -1;
    if (static_cast<int>(history_.size()) == kHistoryDepth) {
        history_.erase(history_.begin());
        --position_;
        if (savedAt_ >= 0) --savedAt_;
    }
    history_.push_back(std::move(change));
    ++position_;
    return 0;
}

Box PaintDocument::Undo() {
    if (!CanUndo()) return Box();
    Change& change = history_[--position_];
    // Every later step is undone, so the box holds what this step painted:
    // that is what Redo puts back.
    CopyBox(change.box, &change.after);
    PasteBox(change.box, change.before);
    return change.box;
}

Box PaintDocument::Redo() {
    if (!CanRedo()) return Box();
    const Change& change = history_[position_++];
    PasteBox(change.box, change.after);
    return change.box;
}

}  // namespace demohost
