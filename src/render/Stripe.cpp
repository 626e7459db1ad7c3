// Placeholder until the stripe renderer lands: paints nothing.
#include "render/RenderCore.h"

namespace vellrender {

int RenderStripe(const KTEffectStripe&, const Picture& picture, const Part& part, const Options&) {
    return CheckTarget(picture, part);
}

}  // namespace vellrender
