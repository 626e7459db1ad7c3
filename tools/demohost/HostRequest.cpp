#include "HostRequest.h"

#include <windows.h>

#include <cstdio>
#include <memory>

#include "vellcolor/VellColor.h"

namespace demohost {

namespace {

using vellrender::Options;
using vellrender::Part;
using vellrender::Picture;

std::wstring Hex(const ColorRGB& c) {
    wchar_t text[16];
    std::swprintf(text, 16, L" #%02X%02X%02X", c.red, c.green, c.blue);
    return text;
}

ColorRGB AsBytes(const ColorRGB& c) {
    return c;
}
ColorRGB AsBytes(const ColorF& c) {
    return c.ToRGB();
}

template <typename Color>
std::wstring ColorList(int count, const Color* colors) {
    std::wstring text = L"    " + std::to_wstring(count) + L" colors:";
    for (int i = 0; i < count && colors != nullptr; ++i) text += Hex(AsBytes(colors[i]));
    return text;
}

// One line of "name value" pairs, printf style.
template <typename... Values>
std::wstring Fields(const wchar_t* format, Values... values) {
    wchar_t line[256];
    std::swprintf(line, 256, format, values...);
    return line;
}

HostRequest Gradation() {
    auto g = std::make_shared<KTEffectGradation>();
    PXColor_GetGradation(*g);
    HostRequest r;
    r.fields = {Fields(L"    type %d  mix %.4g  bias %.4g  angle %.4g  repeat %d", g->type, g->mix,
                       g->bias, g->angle, g->repeat),
                Fields(L"    spiral angle %.6g  hue interpolation %d  factor %.4g", g->spiralAngle,
                       g->hueInterpolation, g->factor),
                ColorList(g->colorCount, g->colors)};
    r.render = [g](const Picture& p, const Part& part, const Options& o) {
        return vellrender::RenderGradation(*g, p, part, o);
    };
    return r;
}

HostRequest Tile() {
    auto t = std::make_shared<KTEffectTile>();
    PXColor_GetTile(*t);
    HostRequest r;
    r.fields = {
        Fields(L"    shape %d  size %.6g x %.6g  seam %.4g  angle %.4g  coloring %d", t->shape,
               t->width, t->height, t->seamWidth, t->angle, t->coloring),
        Fields(L"    row shift %.4g  round %d  corner cut %.4g  transparent seam %d  seam color%ls",
               t->rowShift, t->roundCorners, t->cornerCut, t->transparentSeam,
               Hex(t->seamColor).c_str()),
        ColorList(t->colorCount, t->colors)};
    r.render = [t](const Picture& p, const Part& part, const Options& o) {
        return vellrender::RenderTile(*t, p, part, o);
    };
    return r;
}

HostRequest Stripe() {
    auto s = std::make_shared<KTEffectStripe>();
    PXColor_GetStripe(*s);
    HostRequest r;
    r.fields = {
        Fields(L"    interval %.4g  width %.4g  direction %d  texture %d  crossing %.4g",
               s->interval, s->patternWidth, s->direction, s->texture, s->intersectionBrightness),
        Fields(L"    background mode %d  background color%ls", s->backgroundMode,
               Hex(s->backgroundColor).c_str()),
        ColorList(s->colorCount, s->colors)};
    r.render = [s](const Picture& p, const Part& part, const Options& o) {
        return vellrender::RenderStripe(*s, p, part, o);
    };
    return r;
}

HostRequest DensityPattern() {
    auto p = std::make_shared<KTEffectDensityPattern>();
    PXColor_GetDensityPattern(*p);
    HostRequest r;
    r.fields = {Fields(L"    type %d  reference points %d  isoline width %.4g  radial lines %d",
                       p->patternType, p->referencePoints, p->isolineWidth, p->radialLines),
                Fields(L"    swirl %.4g  roughness %.4g  remove jaggies %d  swap colors %d",
                       p->swirl, p->roughness, p->removeJaggies, p->invertColors),
                Fields(L"    border color%ls  border width %.4g  blur direction %d",
                       Hex(p->borderColor.ToRGB()).c_str(), p->borderWidth, p->blurDirection),
                p->image != nullptr ? Fields(L"    picture %d x %d  image size %.4g",
                                             p->image->width, p->image->height, p->imageSize)
                                    : Fields(L"    no picture  image size %.4g", p->imageSize),
                ColorList(p->colorCount, p->colors)};
    r.render = [p](const Picture& picture, const Part& part, const Options& o) {
        return vellrender::RenderDensityPattern(*p, picture, part, o);
    };
    return r;
}

HostRequest Mapping() {
    auto m = std::make_shared<KTMapping>();
    float stretchX = 1.0f, stretchY = 1.0f;
    PXColor_GetMapping(*m, stretchX, stretchY);
    HostRequest r;
    if (m->image == nullptr) {
        r.fields = {L"    no picture: nothing was filled in"};
        return r;
    }
    r.fields = {Fields(L"    picture %d x %d  repeat %d  seamless %d  fit whole %d",
                       m->image->width, m->image->height, m->repeat, m->seamless, m->fitWhole),
                Fields(L"    scale %.4g  angle %.4g  assigned %d  stretch %.4g, %.4g", m->scale,
                       m->angle, m->assigned, stretchX, stretchY)};
    // The object frees its picture when the last copy of the request goes.
    r.render = [m, stretchX](const Picture& p, const Part& part, const Options& o) {
        return vellrender::RenderMapping(*m, stretchX, p, part, o);
    };
    return r;
}

// The two operations that paint a color take the first color of the color
// set, which every effect's colors share.
HostRequest ColorOperation(bool edge) {
    KTEffectGradation colors;
    PXColor_GetGradation(colors);
    const ColorRGB first = colors.colorCount > 0 ? colors.colors[0] : ColorRGB();
    HostRequest r;
    r.fields = {L"    first color" + Hex(first)};
    r.render = [first, edge](const Picture& p, const Part& part, const Options& o) {
        return edge ? vellrender::DrawEdge(first, vellrender::kDefaultEdgeWidth, p, part, o)
                    : vellrender::FillUniform(first, p, part, o);
    };
    return r;
}

}  // namespace

HostRequest ReadRequest(const std::string& name) {
    if (name == "gradation") return Gradation();
    if (name == "tile") return Tile();
    if (name == "stripe") return Stripe();
    if (name == "density_pattern") return DensityPattern();
    if (name == "image_mapping") return Mapping();
    if (name == "uniform_color") return ColorOperation(false);
    if (name == "color_edge") return ColorOperation(true);
    HostRequest r;
    if (name == "color_bokashi") {
        r.render = [](const Picture& p, const Part& part, const Options& o) {
            return vellrender::Blur(vellrender::kDefaultBlurRadius, p, part, o);
        };
    } else if (name == "reverse_color") {
        r.render = [](const Picture& p, const Part& part, const Options& o) {
            return vellrender::Invert(p, part, o);
        };
    }
    return r;
}

}  // namespace demohost
