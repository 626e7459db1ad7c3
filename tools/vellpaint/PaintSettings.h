// What vellpaint paints: the effect or operation named on the command line
// and its parameter object, filled from `key = value` settings. Every field
// left out keeps the object's default.
#pragma once

#include <stdexcept>
#include <string>

#include "vellcolor/ColorRGB.h"
#include "vellcolor/KTEffectDensityPattern.h"
#include "vellcolor/KTEffectGradation.h"
#include "vellcolor/KTEffectStripe.h"
#include "vellcolor/KTEffectTile.h"
#include "vellcolor/KTMapping.h"
#include "vellcolor/VellRender.h"

namespace vellpaint {

// Something the user gave that cannot be used; the message is one line.
struct InputError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

enum class Effect {
    kGradation,
    kTile,
    kStripe,
    kUniform,
    kBlur,
    kInvert,
    kEdge,
    kPattern,
    kMapping
};

// The arguments of the one-shot operations.
struct Operation {
    ColorRGB color = ColorRGB(40, 60, 160);
    float radius = vellrender::kDefaultBlurRadius;
    float width = vellrender::kDefaultEdgeWidth;
};

// The mapping and the stretch factor that the host receives beside it.
struct Placement {
    KTMapping mapping;
    float stretch = 0.0f;
};

// The chosen effect and every object an effect can take; only its own is used.
struct Job {
    Effect effect = Effect::kGradation;
    KTEffectGradation gradation;
    KTEffectTile tile;
    KTEffectStripe stripe;
    Operation operation;
    KTEffectDensityPattern pattern;
    Placement placement;
};

// The effect of that name; throws for an unknown one.
Effect EffectNamed(const std::string& name);

// Sets field `key` of the job's object from `value`; throws naming both.
void Apply(Job& job, const std::string& key, const std::string& value);
// Applies a `key=value` argument.
void ApplyAssignment(Job& job, const std::string& assignment);
// Applies every `key = value` line of a parameter file's text (`#` starts a
// comment line); `source` names the file in messages.
void ApplyLines(Job& job, const std::string& text, const std::string& source);

// Whether the job's effect paints a picture of its own: the mapping, and the
// pattern's image types 13..15.
bool TakesImage(const Job& job);
// Hands the job's effect its copy of `image`; throws bad_alloc without memory.
void SetImage(Job& job, const BitmapImage& image);

// Paints the job's effect; the renderer's result.
int Render(const Job& job, const vellrender::Picture& picture, const vellrender::Part& part,
           const vellrender::Options& options);

// Values as the user writes them; each throws InputError for a bad one.
int ParseInt(const std::string& text);
float ParseFloat(const std::string& text);
ColorRGB ParseColor(const std::string& text);
// Text quoted for a one-line message: control characters replaced, long text cut.
std::string Quoted(const std::string& text);

}  // namespace vellpaint
