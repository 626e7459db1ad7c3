#include "PaintSettings.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <new>
#include <sstream>
#include <vector>

namespace vellpaint {

namespace {

using Text = const std::string&;

const char* const kEffectNames[] = {"gradation", "tile", "stripe",  "uniform", "blur",
                                    "invert",    "edge", "pattern", "mapping"};

std::string Trimmed(Text text) {
    const char* blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos) return std::string();
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<ColorRGB> ParseColors(Text text) {
    const std::string t = Trimmed(text);
    std::vector<ColorRGB> colors;
    if (t.empty()) return colors;
    if (t.back() == ',') throw InputError("a color list ends with a comma");
    std::stringstream list(t);
    std::string item;
    while (std::getline(list, item, ',')) colors.push_back(ParseColor(item));
    return colors;
}

// Through the object's SetColors, which gives -4 for too few colors (the
// gradation wants two) and -2 without memory.
template <class Effect>
void SetColorList(Effect& effect, Text text) {
    const std::vector<ColorRGB> colors = ParseColors(text);
    const int result = effect.SetColors(static_cast<int>(colors.size()), colors.data());
    if (result == -4) throw InputError("the gradation needs at least 2 colors");
    if (result != 0) throw std::bad_alloc();
}

template <class T>
struct Field {
    const char* key;
    void (*set)(T&, Text);
};

using G = KTEffectGradation;
const Field<G> kGradationFields[] = {
    {"type", [](G& e, Text v) { e.SetType(ParseInt(v)); }},
    {"mix", [](G& e, Text v) { e.SetMix(ParseFloat(v)); }},
    {"bias", [](G& e, Text v) { e.SetBias(ParseFloat(v)); }},
    {"angle", [](G& e, Text v) { e.SetAngle(ParseFloat(v)); }},
    // Set directly: the setter turns 0 and below into 1, and the renderer
    // brings every value into range itself.
    {"repeat", [](G& e, Text v) { e.repeat = ParseInt(v); }},
    {"hueInterpolation", [](G& e, Text v) { e.SetHueInterpolation(ParseInt(v)); }},
    {"factor", [](G& e, Text v) { e.SetFactor(ParseFloat(v)); }},
    // In degrees, where the setter takes whole turns.
    {"spiralAngle", [](G& e, Text v) { e.spiralAngle = ParseFloat(v); }},
    {"colors", SetColorList<G>},
};

using T = KTEffectTile;
const Field<T> kTileFields[] = {
    {"shape", [](T& e, Text v) { e.SetShape(ParseInt(v)); }},
    {"width", [](T& e, Text v) { e.SetTileSize(ParseFloat(v), e.height); }},
    {"height", [](T& e, Text v) { e.SetTileSize(e.width, ParseFloat(v)); }},
    {"rowShift", [](T& e, Text v) { e.SetRowShift(ParseFloat(v)); }},
    {"seamWidth", [](T& e, Text v) { e.SetSeamWidth(ParseFloat(v)); }},
    {"transparentSeam", [](T& e, Text v) { e.SetTransparentSeam(ParseInt(v)); }},
    {"roundCorners", [](T& e, Text v) { e.SetCorner(ParseInt(v), e.cornerCut); }},
    {"cornerCut", [](T& e, Text v) { e.SetCorner(e.roundCorners, ParseFloat(v)); }},
    {"angle", [](T& e, Text v) { e.SetAngle(ParseFloat(v)); }},
    {"coloring", [](T& e, Text v) { e.SetColoring(ParseInt(v)); }},
    {"seamColor", [](T& e, Text v) { e.SetSeamColor(ParseColor(v)); }},
    {"colors", SetColorList<T>},
};

using S = KTEffectStripe;
const Field<S> kStripeFields[] = {
    {"interval", [](S& e, Text v) { e.SetInterval(ParseFloat(v)); }},
    {"patternWidth", [](S& e, Text v) { e.SetPatternWidth(ParseFloat(v)); }},
    {"direction", [](S& e, Text v) { e.SetDirection(ParseInt(v)); }},
    {"intersectionBrightness", [](S& e, Text v) { e.SetIntersectionBrightness(ParseFloat(v)); }},
    {"texture", [](S& e, Text v) { e.SetTexture(ParseInt(v)); }},
    {"backgroundMode", [](S& e, Text v) { e.SetBackgroundMode(ParseInt(v)); }},
    {"backgroundColor", [](S& e, Text v) { e.SetBackgroundColor(ParseColor(v)); }},
    {"colors", SetColorList<S>},
};

using P = KTEffectDensityPattern;
const Field<P> kPatternFields[] = {
    {"patternType", [](P& e, Text v) { e.SetPatternType(ParseInt(v)); }},
    {"referencePoints", [](P& e, Text v) { e.SetReferencePoints(ParseInt(v)); }},
    // The object's SetColors leaks its converted copy when it refuses an
    // empty list: refused here first.
    {"colors",
     [](P& e, Text v) {
         if (ParseColors(v).empty()) throw InputError("the pattern needs at least 1 color");
         SetColorList(e, v);
     }},
    {"borderColor", [](P& e, Text v) { e.SetBorderColor(ColorF::FromRGB(ParseColor(v))); }},
    {"borderWidth", [](P& e, Text v) { e.SetBorderWidth(ParseFloat(v)); }},
    {"blurDirection", [](P& e, Text v) { e.SetBlurDirection(ParseInt(v)); }},
    {"isolineWidth", [](P& e, Text v) { e.SetIsolineWidth(ParseFloat(v)); }},
    {"radialLines", [](P& e, Text v) { e.SetRadialLines(ParseInt(v)); }},
    {"swirl", [](P& e, Text v) { e.SetSwirl(ParseFloat(v)); }},
    {"roughness", [](P& e, Text v) { e.SetRoughness(ParseFloat(v)); }},
    {"removeJaggies", [](P& e, Text v) { e.SetRemoveJaggies(ParseInt(v)); }},
    {"invertColors", [](P& e, Text v) { e.SetInvertColors(ParseInt(v)); }},
    // A float field, where the setter takes whole pixels.
    {"imageSize", [](P& e, Text v) { e.imageSize = ParseFloat(v); }},
};

using M = Placement;
const Field<M> kMappingFields[] = {
    {"repeat", [](M& m, Text v) { m.mapping.SetRepeat(ParseInt(v)); }},
    {"seamless", [](M& m, Text v) { m.mapping.SetSeamless(ParseInt(v)); }},
    {"fitWhole", [](M& m, Text v) { m.mapping.SetFitWhole(ParseInt(v)); }},
    {"scale", [](M& m, Text v) { m.mapping.SetScale(ParseFloat(v)); }},
    {"angle", [](M& m, Text v) { m.mapping.SetAngle(ParseFloat(v)); }},
    {"stretch", [](M& m, Text v) { m.stretch = ParseFloat(v); }},
};

using O = Operation;
const Field<O> kColorField[] = {{"color", [](O& o, Text v) { o.color = ParseColor(v); }}};
const Field<O> kBlurFields[] = {{"radius", [](O& o, Text v) { o.radius = ParseFloat(v); }}};
const Field<O> kEdgeFields[] = {{"color", [](O& o, Text v) { o.color = ParseColor(v); }},
                                {"width", [](O& o, Text v) { o.width = ParseFloat(v); }}};

// Sets `key` from the table; false when the table has no such key.
template <class Object, std::size_t N>
bool SetField(const Field<Object> (&fields)[N], Object& object, Text key, Text value) {
    for (const Field<Object>& field : fields) {
        if (key != field.key) continue;
        try {
            field.set(object, value);
        } catch (const InputError& e) {
            throw InputError(key + ": " + e.what());
        }
        return true;
    }
    return false;
}

bool SetOperationField(Job& job, Text key, Text value) {
    switch (job.effect) {
        case Effect::kUniform: return SetField(kColorField, job.operation, key, value);
        case Effect::kBlur: return SetField(kBlurFields, job.operation, key, value);
        case Effect::kEdge: return SetField(kEdgeFields, job.operation, key, value);
        default: return false;
    }
}

}  // namespace

int ParseInt(Text text) {
    const std::string t = Trimmed(text);
    char* end = nullptr;
    errno = 0;
    const long value = std::strtol(t.c_str(), &end, 10);
    if (t.empty() || *end != '\0') throw InputError(Quoted(text) + " is not a whole number");
    if (errno == ERANGE || value < INT_MIN || value > INT_MAX) {
        throw InputError(Quoted(text) + " is out of range");
    }
    return static_cast<int>(value);
}

float ParseFloat(Text text) {
    // NaN, infinities and values past float's range are taken as they come:
    // the renderer is meant to cope with them.
    const std::string t = Trimmed(text);
    char* end = nullptr;
    const float value = std::strtof(t.c_str(), &end);
    if (t.empty() || *end != '\0') throw InputError(Quoted(text) + " is not a number");
    return value;
}

ColorRGB ParseColor(Text text) {
    const std::string t = Trimmed(text);
    const bool shaped = t.size() == 7 && t[0] == '#' &&
                        t.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
    if (!shaped) throw InputError(Quoted(text) + " is not a color like #RRGGBB");
    const unsigned long rgb = std::strtoul(t.c_str() + 1, nullptr, 16);
    return ColorRGB(static_cast<unsigned char>(rgb >> 16), static_cast<unsigned char>(rgb >> 8),
                    static_cast<unsigned char>(rgb));
}

std::string Quoted(Text text) {
    const std::size_t kLongest = 40;
    std::string shown = text.substr(0, kLongest);
    for (char& c : shown) {
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '?';
    }
    return "'" + shown + (text.size() > kLongest ? "...'" : "'");
}

Effect EffectNamed(Text name) {
    for (std::size_t i = 0; i < sizeof kEffectNames / sizeof kEffectNames[0]; ++i) {
        if (name == kEffectNames[i]) return static_cast<Effect>(i);
    }
    throw InputError("unknown effect " + Quoted(name) +
                     " (gradation, tile, stripe, uniform, blur, invert, edge, pattern or "
                     "mapping)");
}

void Apply(Job& job, Text key, Text value) {
    bool known = false;
    switch (job.effect) {
        case Effect::kGradation:
            known = SetField(kGradationFields, job.gradation, key, value);
            break;
        case Effect::kTile: known = SetField(kTileFields, job.tile, key, value); break;
        case Effect::kStripe: known = SetField(kStripeFields, job.stripe, key, value); break;
        case Effect::kPattern: known = SetField(kPatternFields, job.pattern, key, value); break;
        case Effect::kMapping: known = SetField(kMappingFields, job.placement, key, value); break;
        default: known = SetOperationField(job, key, value);
    }
    if (!known) {
        throw InputError("unknown key " + Quoted(key) + " for " +
                         kEffectNames[static_cast<int>(job.effect)]);
    }
}

void ApplyAssignment(Job& job, Text assignment) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos) {
        throw InputError("expected key=value, got " + Quoted(assignment));
    }
    Apply(job, Trimmed(assignment.substr(0, equals)), assignment.substr(equals + 1));
}

void ApplyLines(Job& job, Text text, Text source) {
    std::stringstream lines(text);
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        const std::string t = Trimmed(line);
        if (t.empty() || t[0] == '#') continue;
        try {
            ApplyAssignment(job, t);
        } catch (const InputError& e) {
            throw InputError(source + ":" + std::to_string(number) + ": " + e.what());
        }
    }
}

bool TakesImage(const Job& job) {
    const int type = job.pattern.patternType;
    if (job.effect == Effect::kPattern) return type >= 13 && type <= 15;
    return job.effect == Effect::kMapping;
}

void SetImage(Job& job, const BitmapImage& image) {
    int result = 0;
    if (job.effect == Effect::kPattern) result = job.pattern.SetImage(image);
    if (job.effect == Effect::kMapping) result = job.placement.mapping.SetImage(image);
    if (result != 0) throw std::bad_alloc();
}

int Render(const Job& job, const vellrender::Picture& picture, const vellrender::Part& part,
           const vellrender::Options& options) {
    using namespace vellrender;
    const Operation& o = job.operation;
    switch (job.effect) {
        case Effect::kGradation: return RenderGradation(job.gradation, picture, part, options);
        case Effect::kTile: return RenderTile(job.tile, picture, part, options);
        case Effect::kStripe: return RenderStripe(job.stripe, picture, part, options);
        case Effect::kUniform: return FillUniform(o.color, picture, part, options);
        case Effect::kBlur: return Blur(o.radius, picture, part, options);
        case Effect::kInvert: return Invert(picture, part, options);
        case Effect::kEdge: return DrawEdge(o.color, o.width, picture, part, options);
        case Effect::kPattern: return RenderDensityPattern(job.pattern, picture, part, options);
        case Effect::kMapping: {
            const Placement& m = job.placement;
            return RenderMapping(m.mapping, m.stretch, picture, part, options);
        }
    }
    return -4;
}

}  // namespace vellpaint
