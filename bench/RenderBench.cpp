// The reference renderer at 4096 x 4096, 24 bits, into a disc-shaped part
// covering most of the picture, against yardsticks measured in the same
// run: memset of the same bytes (the floor), cairo's (pixman's) linear and
// radial gradient fills of the same size, GEGL's distance transform,
// pixelize (20 px) and cell noise, and cairo painting a 256 x 256 picture
// repeated, turned and scaled, all on one thread. Every effect type is timed
// on one thread; the targeted ones on both cores too. The closing table
// gives the ratios. Yardsticks only: nothing of cairo or GEGL is in the
// product.
#include <benchmark/benchmark.h>
#include <cairo.h>
#include <gegl.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "RatioReporter.h"
#include "vellcolor/VellRender.h"

using namespace vellrender;

namespace {

const int kSize = 4096;

struct Scene {
    BitmapImage image;
    std::vector<unsigned char> mask;
    Picture picture;
    Part part;

    Scene() {
        image.Create(kSize, kSize, 3, 0);
        mask.resize(static_cast<std::size_t>(kSize) * kSize);
        const float c = kSize / 2.0f, r = kSize * 0.48f;
        for (int y = 0; y < kSize; ++y) {
            for (int x = 0; x < kSize; ++x) {
                // One pixel of anti-aliased rim.
                const float d = r - std::hypot(x + 0.5f - c, y + 0.5f - c);
                mask[static_cast<std::size_t>(y) * kSize + x] =
                    static_cast<unsigned char>(255 * std::min(1.0f, std::max(0.0f, d + 0.5f)));
            }
        }
        std::memset(image.pixels, 90, image.pixelBytes);
        picture = Picture::Of(image);
        part = Part::OfMask(mask.data(), kSize, kSize, kSize);
    }
};

Scene& TheScene() {
    static Scene scene;
    return scene;
}

const ColorRGB kColors[4] = {ColorRGB(230, 40, 40), ColorRGB(40, 200, 90), ColorRGB(40, 60, 230),
                             ColorRGB(250, 220, 60)};

// The picture that the mapping places and the image patterns cut up: 256 x
// 256, a blend across with a grid of darker lines, nothing uniform.
const BitmapImage& TheImage() {
    static BitmapImage image;
    if (image.pixels != nullptr) return image;
    const int side = 256;
    image.Create(side, side, 3, 0);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const bool line = x % 32 < 3 || y % 32 < 3;
            unsigned char* p = image.PixelAt(x, y);
            p[0] = static_cast<unsigned char>(line ? 40 : 255 - x);
            p[1] = static_cast<unsigned char>(line ? 40 : y);
            p[2] = static_cast<unsigned char>(line ? 60 : (x + y) / 2);
        }
    }
    return image;
}

void Report(benchmark::State& state, int result) {
    if (result != 0) state.SkipWithError("the renderer refused");
}

// Times render(picture, part, options) on the scene with `threads` threads.
template <class Render>
void Time(benchmark::State& state, int threads, Render&& render) {
    Options options;
    options.threads = threads;
    Scene& s = TheScene();
    for (auto _ : state) Report(state, render(s.picture, s.part, options));
}

void Gradation(benchmark::State& state, int type, int threads) {
    KTEffectGradation g;
    g.SetType(type);
    g.SetAngle(30);
    g.SetMix(1.0f);
    g.SetColors(type == 7 ? 4 : 3, kColors);
    Time(state, threads, [&](const Picture& picture, const Part& part, const Options& options) {
        return RenderGradation(g, picture, part, options);
    });
}

void Tile(benchmark::State& state, int shape, int coloring, float seam, int threads) {
    KTEffectTile t;
    t.SetShape(shape);
    t.SetTileSize(20.0f, shape == 2 ? 34.64f : shape == 3 ? 23.09f : 20.0f);
    t.SetSeamWidth(seam);
    t.SetColoring(coloring);
    t.SetColors(3, kColors);
    Time(state, threads, [&](const Picture& picture, const Part& part, const Options& options) {
        return RenderTile(t, picture, part, options);
    });
}

void Stripe(benchmark::State& state, int direction, int texture, int threads) {
    KTEffectStripe e;
    e.SetDirection(direction);
    e.SetTexture(texture);
    e.SetColors(3, kColors);
    Time(state, threads, [&](const Picture& picture, const Part& part, const Options& options) {
        return RenderStripe(e, picture, part, options);
    });
}

void Operation(benchmark::State& state, int which, int threads) {
    Options options;
    options.threads = threads;
    Scene& s = TheScene();
    for (auto _ : state) {
        switch (which) {
            case 0: Report(state, FillUniform(kColors[0], s.picture, s.part, options)); break;
            case 1: Report(state, Blur(kDefaultBlurRadius, s.picture, s.part, options)); break;
            case 2: Report(state, Invert(s.picture, s.part, options)); break;
            default:
                Report(state, DrawEdge(kColors[0], kDefaultEdgeWidth, s.picture, s.part, options));
        }
    }
}

// The panel's defaults, 4 colors, `points` reference points; only the image
// types read the image.
void Pattern(benchmark::State& state, int type, int points, int threads) {
    KTEffectDensityPattern e;
    e.SetPatternType(type);
    e.SetReferencePoints(points);
    e.SetIsolineWidth(12.0f);
    e.SetRadialLines(30);
    e.SetImageSize(50);
    if (e.SetColors(4, kColors) != 0 || e.SetImage(TheImage()) != 0) {
        state.SkipWithError("no memory for the pattern");
        return;
    }
    Time(state, threads, [&](const Picture& picture, const Part& part, const Options& options) {
        return RenderDensityPattern(e, picture, part, options);
    });
}

// Repeated, turned 30 degrees, at 80 %, as the cairo yardstick paints it.
void Mapping(benchmark::State& state, int threads) {
    KTMapping m;
    m.SetRepeat(1);
    m.SetAngle(30.0f);
    m.SetScale(0.8f);
    if (m.SetImage(TheImage()) != 0) {
        state.SkipWithError("no memory for the mapping");
        return;
    }
    Time(state, threads, [&](const Picture& picture, const Part& part, const Options& options) {
        return RenderMapping(m, 0.0f, picture, part, options);
    });
}

void Memset(benchmark::State& state) {
    Scene& s = TheScene();
    int value = 0;
    for (auto _ : state) {
        std::memset(s.image.pixels, ++value, s.image.pixelBytes);
        benchmark::ClobberMemory();
    }
}

// Times cairo painting `pattern` over a picture of the benchmark's size;
// takes the pattern.
void CairoPaint(benchmark::State& state, cairo_pattern_t* pattern) {
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, kSize, kSize);
    cairo_t* cr = cairo_create(surface);
    cairo_set_source(cr, pattern);
    for (auto _ : state) {
        cairo_paint(cr);
        cairo_surface_flush(surface);
    }
    cairo_pattern_destroy(pattern);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
}

void CairoGradient(benchmark::State& state, bool radial) {
    const double c = kSize / 2.0, a = 30 * M_PI / 180, reach = kSize * 0.68;
    cairo_pattern_t* pattern =
        radial ? cairo_pattern_create_radial(c, c, 0, c, c, kSize * 0.7071)
               : cairo_pattern_create_linear(c - reach * std::cos(a), c - reach * std::sin(a),
                                             c + reach * std::cos(a), c + reach * std::sin(a));
    for (int i = 0; i < 3; ++i)
        cairo_pattern_add_color_stop_rgb(pattern, i / 2.0, kColors[i].red / 255.0,
                                         kColors[i].green / 255.0, kColors[i].blue / 255.0);
    CairoPaint(state, pattern);
}

// TheImage() repeated over the whole picture, turned 30 degrees and scaled
// to 80 %, sampled bilinearly.
void CairoImage(benchmark::State& state) {
    const BitmapImage& image = TheImage();
    cairo_surface_t* source =
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, image.width, image.height);
    unsigned char* rows = cairo_image_surface_get_data(source);
    const int stride = cairo_image_surface_get_stride(source);
    for (int y = 0; y < image.height; ++y) {
        // Cairo's rows run top down, four bytes a pixel.
        unsigned char* out = rows + static_cast<std::size_t>(image.height - 1 - y) * stride;
        for (int x = 0; x < image.width; ++x) {
            std::memcpy(out + 4 * x, image.PixelAt(x, y), 3);
            out[4 * x + 3] = 255;
        }
    }
    cairo_surface_mark_dirty(source);
    cairo_pattern_t* pattern = cairo_pattern_create_for_surface(source);
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_REPEAT);
    cairo_pattern_set_filter(pattern, CAIRO_FILTER_BILINEAR);
    // The pattern's matrix maps the picture to the image: the inverse of
    // placing the image.
    cairo_matrix_t matrix;
    cairo_matrix_init_rotate(&matrix, 30 * M_PI / 180);
    cairo_matrix_scale(&matrix, 0.8, 0.8);
    cairo_matrix_invert(&matrix);
    cairo_pattern_set_matrix(pattern, &matrix);
    CairoPaint(state, pattern);
    cairo_surface_destroy(source);
}

void StartGegl() {
    static bool started = false;
    if (started) return;
    gegl_init(nullptr, nullptr);
    g_object_set(gegl_config(), "threads", 1, nullptr);
    started = true;
}

// GEGL's cell noise rendered into a buffer of the picture's size. Scale 1/64
// puts about 16 to 24 cells on it, about as many as the pattern's 16 points;
// the node is made anew each time so that nothing comes from GEGL's cache.
void GeglCellNoise(benchmark::State& state) {
    StartGegl();
    const GeglRectangle rect = {0, 0, kSize, kSize};
    GeglBuffer* output = gegl_buffer_new(&rect, babl_format("Y float"));
    for (auto _ : state) {
        GeglNode* graph = gegl_node_new();
        GeglNode* noise = gegl_node_new_child(graph, "operation", "gegl:cell-noise", "scale",
                                              1.0 / 64, "seed", 1, nullptr);
        gegl_node_blit_buffer(noise, output, &rect, 0, GEGL_ABYSS_NONE);
        g_object_unref(graph);
    }
    g_object_unref(output);
}

// One GEGL operation over the whole picture; the graph is made anew each
// time so that nothing comes from GEGL's cache.
void GeglOperation(benchmark::State& state, const char* format, const char* operation,
                   std::function<void(GeglNode*)> configure) {
    StartGegl();
    const GeglRectangle rect = {0, 0, kSize, kSize};
    GeglBuffer* input = gegl_buffer_new(&rect, babl_format(format));
    GeglBuffer* output = gegl_buffer_new(&rect, babl_format(format));
    Scene& s = TheScene();
    if (std::strcmp(format, "Y float") == 0) {
        // The operation's own format, so that no conversion is timed.
        std::vector<float> mask(s.mask.begin(), s.mask.end());
        for (float& v : mask) v /= 255.0f;
        gegl_buffer_set(input, &rect, 0, babl_format(format), mask.data(), kSize * 4);
    } else {
        gegl_buffer_set(input, &rect, 0, babl_format(format), s.image.pixels, s.image.stride);
    }
    for (auto _ : state) {
        GeglNode* graph = gegl_node_new();
        GeglNode* source =
            gegl_node_new_child(graph, "operation", "gegl:buffer-source", "buffer", input, nullptr);
        GeglNode* op = gegl_node_new_child(graph, "operation", operation, nullptr);
        configure(op);
        GeglNode* sink =
            gegl_node_new_child(graph, "operation", "gegl:write-buffer", "buffer", output, nullptr);
        gegl_node_link_many(source, op, sink, nullptr);
        gegl_node_process(sink);
        g_object_unref(graph);
    }
    g_object_unref(input);
    g_object_unref(output);
}

template <class F>
void Add(const std::string& name, F f) {
    // A warm-up first: GEGL's first runs are slower than its later ones.
    benchmark::RegisterBenchmark(name.c_str(), f)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->MinWarmUpTime(0.5);
}

void RegisterAll() {
    Add("floor/memset", Memset);
    Add("yardstick/cairo_linear_30deg", [](benchmark::State& s) { CairoGradient(s, false); });
    Add("yardstick/cairo_radial", [](benchmark::State& s) { CairoGradient(s, true); });
    Add("yardstick/gegl_distance_transform", [](benchmark::State& s) {
        GeglOperation(s, "Y float", "gegl:distance-transform", [](GeglNode*) {});
    });
    Add("yardstick/gegl_pixelize_20", [](benchmark::State& s) {
        GeglOperation(s, "R'G'B' u8", "gegl:pixelize",
                      [](GeglNode* op) { gegl_node_set(op, "size-x", 20, "size-y", 20, nullptr); });
    });
    Add("yardstick/gegl_cell_noise", GeglCellNoise);
    Add("yardstick/cairo_image_repeat_30deg_0.8", CairoImage);
    for (int threads : {1, 2}) {
        const std::string t = "/threads:" + std::to_string(threads);
        for (int type : {0, 1, 3, 4, 5, 6, 7, 8, 101, 104, 105, 106, 107, 108}) {
            if (threads == 2 && type != 0 && type != 4 && type != 3) continue;
            Add("gradation/" + std::to_string(type) + t,
                [=](benchmark::State& s) { Gradation(s, type, threads); });
        }
        // The mosaic without seams is what pixelize makes; the others have a
        // seam of 1, as the tile panel starts.
        Add("tile/mosaic_no_seam" + t, [=](benchmark::State& s) { Tile(s, 0, 4, 0.0f, threads); });
        for (int shape = 0; shape < 4; ++shape) {
            for (int coloring : {0, 1, 4}) {
                if (threads == 2 && (shape != 0 || coloring != 4)) continue;
                Add("tile/shape:" + std::to_string(shape) +
                        "/coloring:" + std::to_string(coloring) + t,
                    [=](benchmark::State& s) { Tile(s, shape, coloring, 1.0f, threads); });
            }
        }
        for (int direction = 1; direction <= 6; ++direction) {
            for (int texture : {0, 2}) {
                if (threads == 2 && (direction != 1 || texture != 2)) continue;
                Add("stripe/direction:" + std::to_string(direction) +
                        "/texture:" + std::to_string(texture) + t,
                    [=](benchmark::State& s) { Stripe(s, direction, texture, threads); });
            }
        }
        for (int type = 1; type <= 15; ++type) {
            if (threads == 2 && type != 2) continue;
            Add("pattern/type:" + std::to_string(type) + "/points:16" + t,
                [=](benchmark::State& s) { Pattern(s, type, 16, threads); });
        }
        if (threads == 1) {
            Add("pattern/type:2/points:256" + t,
                [=](benchmark::State& s) { Pattern(s, 2, 256, threads); });
        }
        Add("mapping/repeat_30deg_0.8" + t, [=](benchmark::State& s) { Mapping(s, threads); });
        const char* operations[] = {"uniform", "blur", "invert", "edge"};
        for (int which = 0; which < 4; ++which) {
            if (threads == 2) continue;
            Add(std::string("operation/") + operations[which] + t,
                [=](benchmark::State& s) { Operation(s, which, threads); });
        }
    }
}

struct Target {
    const char* what;
    const char* ours;
    const char* yardstick;
    double limit;  // ours / yardstick at most (or, for threads, at least)
    bool atLeast;
};

const Target kTargets[] = {
    {"rotated 3-color horizontal vs cairo linear", "gradation/0/threads:1",
     "yardstick/cairo_linear_30deg", 0.25, false},
    {"circle vs cairo radial", "gradation/4/threads:1", "yardstick/cairo_radial", 0.25, false},
    {"outline vs GEGL distance transform", "gradation/3/threads:1",
     "yardstick/gegl_distance_transform", 0.25, false},
    {"mosaic (tile coloring 4, no seam) vs GEGL pixelize 20", "tile/mosaic_no_seam/threads:1",
     "yardstick/gegl_pixelize_20", 0.25, false},
    {"stripe texture 2 vs memset", "stripe/direction:1/texture:2/threads:1", "floor/memset", 10.0,
     false},
    {"horizontal, 1 thread over 2", "gradation/0/threads:1", "gradation/0/threads:2", 1.7, true},
    {"circle, 1 thread over 2", "gradation/4/threads:1", "gradation/4/threads:2", 1.7, true},
    {"outline, 1 thread over 2", "gradation/3/threads:1", "gradation/3/threads:2", 1.7, true},
    {"mosaic, 1 thread over 2", "tile/mosaic_no_seam/threads:1", "tile/mosaic_no_seam/threads:2",
     1.7, true},
    {"stripe texture 2, 1 thread over 2", "stripe/direction:1/texture:2/threads:1",
     "stripe/direction:1/texture:2/threads:2", 1.7, true},
    {"isolines, 16 points vs GEGL cell noise", "pattern/type:2/points:16/threads:1",
     "yardstick/gegl_cell_noise", 0.25, false},
    {"isolines, 256 points over 16", "pattern/type:2/points:256/threads:1",
     "pattern/type:2/points:16/threads:1", 1.5, false},
    {"mapping vs cairo bilinear repeat", "mapping/repeat_30deg_0.8/threads:1",
     "yardstick/cairo_image_repeat_30deg_0.8", 0.5, false},
    {"isolines, 1 thread over 2", "pattern/type:2/points:16/threads:1",
     "pattern/type:2/points:16/threads:2", 1.7, true},
    {"mapping, 1 thread over 2", "mapping/repeat_30deg_0.8/threads:1",
     "mapping/repeat_30deg_0.8/threads:2", 1.7, true},
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    RegisterAll();
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\n%-46s %10s %10s %8s %8s\n", "target", "ours ms", "yard ms", "ratio", "goal");
    for (const Target& t : kTargets) {
        const double ours = reporter.Time(t.ours), yard = reporter.Time(t.yardstick);
        if (ours <= 0 || yard <= 0) continue;
        const double ratio = ours / yard;
        const bool met = t.atLeast ? ratio >= t.limit : ratio <= t.limit;
        std::printf("%-46s %10.1f %10.1f %7.2fx %s%.2fx %s\n", t.what, ours, yard, ratio,
                    t.atLeast ? ">=" : "<=", t.limit, met ? "met" : "MISSED");
    }
    return 0;
}
